#include "ui/RunSettings.h"

#include <cmath>

#include "engine/MagicArithmetic.h"
#include "engine/Numbers.h"
#include "engine/ProgramState.h"
#include "engine/Random.h"
#include "ui/MainPage.h"

namespace quarvelle {

void tidyRandomStarts(const MainPage& page) {
    if (page.controls().Text7->number() < 1)
        page.controls().Text7->setProgramText("2");
}

void readNumbers(ProgramState& state, MainPage& page) {
    const Ui::MainPage& controls = page.controls();
    for (EntryBox* box : {controls.Text1, controls.Text3, controls.text4, controls.Text5})
        box->setProgramText(numberText(box->number()));
    controls.Text2->setProgramText(numberText(state.squareSize));
    for (EntryBox* box : {controls.Text5, controls.Text3})
        if (box->number() == 0)
            box->setProgramText("1");
    state.startNumber = controls.text4->number();
    if (controls.Text5->number() <= 0 && state.distance <= 0)
        controls.Text5->setProgramText("1");
    if (controls.Text5->number() > 0)
        state.distance = controls.Text5->number();
    page.showReadouts();
}

void readCounts(ProgramState& state, const MainPage& page) {
    const Ui::MainPage& controls = page.controls();
    if (controls.Text3->number() < 1)
        controls.Text3->setProgramText("1");
    state.blankCount = controls.Text3->number();
    state.printCount = controls.Text1->number();
}

void drawStartNumber(ProgramState& state, const MainPage& page, RandomSource& random) {
    double limit = 1;
    for (int digit = 0; digit < state.maxDigits; ++digit)
        limit *= 10;
    const double n = state.squareSize;
    const double starts = limit - SquareNumbers(state.baseStart, state.distance).realValue(n * n + 1);
    double steps = std::floor(random.draw() * (starts - 1));
    const double asked = page.controls().Text7->number();
    if (asked < starts)
        steps = std::floor(random.draw() * asked);
    state.startNumber = SquareNumbers(state.baseStart, 1).realValue(steps + 1);
    if (!hasPlayableNumbers(state))
        state.startNumber = state.baseStart;
}

} // namespace quarvelle
