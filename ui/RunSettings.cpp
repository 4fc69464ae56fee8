#include "ui/RunSettings.h"

#include "board/BoardGeometry.h"
#include "engine/Numbers.h"
#include "engine/ProgramState.h"
#include "ui/MainPage.h"
#include "ui/PropertiesPage.h"

namespace quarvelle {

namespace {

/// Reads a positive distance. 0 becomes 1, and so does a negative one if the state has no positive one.
void readDistance(ProgramState& state, EntryBox& box) {
    if (box.number() == 0 || (box.number() < 0 && state.distance <= 0))
        box.setProgramText("1");
    if (box.number() > 0)
        state.distance = box.number();
}

} // namespace

void readRunSettings(ProgramState& state, MainPage& page, PropertiesPage& properties) {
    const Ui::MainPage& controls = page.controls();
    properties.readPairs();
    for (EntryBox* box : {controls.Text1, controls.Text3, controls.text4, controls.Text5})
        box->setProgramText(numberText(box->number()));
    controls.Text2->setProgramText(numberText(state.squareSize));
    if (controls.Text7->number() < 1)
        controls.Text7->setProgramText("2");
    if (controls.Text3->number() < 1)
        controls.Text3->setProgramText("1");
    readDistance(state, *controls.Text5);
    state.startNumber = controls.text4->number();
    state.blankCount = controls.Text3->number();
    state.printCount = controls.Text1->number();
    state.randomStarts.reset();
    if (controls.Check1->isChecked())
        state.randomStarts = controls.Text7->number();
    page.showReadouts();
    measureBoard(state);
}

} // namespace quarvelle
