#include "tests/robot/HostileNumbers.h"

#include <cmath>

#include "engine/MagicArithmetic.h"
#include "engine/Numbers.h"
#include "tests/support/WindowFixture.h"

namespace quarvelle {
namespace {

using testing::WindowFixture;

TEST_F(WindowFixture, HostileNumbersGoThroughEveryBox) {
    EntryBox* const boxes[] = {page().Text1, page().Text2, page().Text3,
                               page().text4, page().Text5, page().Text7};
    const char* const usual[] = {"1", "5", "100", "1", "1", "3"};
    int yieldsBefore = 0;
    events.onYield = [&](int turn) {
        // No run of one square takes more passes than a scan for each of its cells.
        const int cells = state().squareSize * state().squareSize;
        if (turn - yieldsBefore > 5 * cells * cells) {
            ADD_FAILURE() << "no end in sight";
            state().stopRequested = Request::stop;
        }
    };
    int practised = 0;
    std::size_t printed = 0;
    for (const bool randomStarts : {false, true}) {
        page().Check1->setChecked(randomStarts);
        for (int hostile = 0; hostile < 6; ++hostile)
            for (const QString& number : testing::hostileNumbers) {
                for (int box = 0; box < 6; ++box)
                    type(boxes[box], box == hostile ? number : QString(usual[box]));
                SCOPED_TRACE((boxes[hostile]->objectName() + ": " + number).toStdString());
                EXPECT_EQ(page().Label11->text().toStdString(),
                          magicTotalCaption(numberText(
                              magicTotal(state().squareSize, state().startNumber, state().distance))));
                yieldsBefore = events.yields();
                if (page().Command4->isEnabled())
                    practise({[&] {
                        ++practised;
                        ProgramState solved = state();
                        testing::solve(solved.puzzle, testing::linesInPlay(solved),
                                       magicTotal(solved.squareSize, solved.startNumber, solved.distance));
                        EXPECT_TRUE(testing::blanksOf(solved).empty()) << "it can't be solved line by line";
                        for (const DrawingItem& item : window().boardPage().drawing().items())
                            if (const auto* text = std::get_if<TextAtPoint>(&item)) {
                                EXPECT_LT(std::fabs(leadingNumber(text->text.toStdString())), emptyMarker);
                            }
                    }});
                if (page().Text1->number() > 2)
                    type(page().Text1, "1");
                yieldsBefore = events.yields();
                if (page().Command1->isEnabled())
                    click(page().Command1);
                EXPECT_EQ(state().currentPage, Page::main);
                printed += printer.sheets.size();
                printer.sheets.clear();
            }
    }
    EXPECT_GT(practised, 250);
    EXPECT_GT(printed, 400U);
}

} // namespace
} // namespace quarvelle
