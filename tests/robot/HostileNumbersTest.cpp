#include "tests/robot/HostileNumbers.h"

#include "engine/MagicArithmetic.h"
#include "engine/Numbers.h"
#include "tests/support/WindowFixture.h"

namespace quarvelle::testing {
namespace {

TEST_F(WindowFixture, HostileNumbersGoThroughEveryBox) {
    const std::pair<EntryBox*, const char*> boxes[] = {{page().Text1, "1"},   {page().Text2, "5"},
                                                       {page().Text3, "100"}, {page().text4, "1"},
                                                       {page().Text5, "1"},   {page().Text7, "3"}};
    int turnsBefore = 0;
    events.onYield = [&](int turn) {
        // No run of one square takes more passes than a scan for each of its cells.
        const int cells = state().squareSize * state().squareSize;
        if (turn - turnsBefore > 5 * cells * cells) {
            ADD_FAILURE() << "no end in sight";
            state().stopRequested = Request::stop;
        }
    };
    const auto total = [this] {
        return magicTotal(state().squareSize, state().startNumber, state().distance);
    };
    int practised = 0;
    std::size_t printed = 0;
    for (const bool randomStarts : {false, true})
        for (const auto& [hostileBox, usual] : boxes)
            for (const QString& number : hostileNumbers) {
                SCOPED_TRACE((hostileBox->objectName() + ": " + number).toStdString());
                page().Check1->setChecked(randomStarts);
                for (const auto& [box, text] : boxes)
                    type(box, box == hostileBox ? number : QString(text));
                EXPECT_EQ(page().Label11->text().toStdString(), magicTotalCaption(numberText(total())));
                turnsBefore = events.yields();
                if (page().Command4->isEnabled())
                    practise({[&] {
                        ++practised;
                        ProgramState solved = state();
                        solve(solved.puzzle, linesInPlay(solved), total());
                        const double last =
                            lastNumber(solved.squareSize, solved.startNumber, solved.distance);
                        const double largest = std::max(std::fabs(solved.startNumber), std::fabs(last));
                        EXPECT_FALSE(blanksOf(state()).empty());
                        for (const Cell& blank : blanksOf(state()))
                            EXPECT_NEAR(at(solved.puzzle, blank), at(solved.square, blank), 1e-9 * largest);
                    }});
                if (page().Text1->number() > 2)
                    type(page().Text1, "1");
                turnsBefore = events.yields();
                printer.sheets.clear();
                if (page().Command1->isEnabled())
                    click(page().Command1);
                EXPECT_EQ(state().currentPage, Page::main);
                printed += printer.sheets.size();
            }
    EXPECT_GT(practised, 250);
    EXPECT_GT(printed, 400U);
}

} // namespace
} // namespace quarvelle::testing
