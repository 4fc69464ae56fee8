#include <QAbstractEventDispatcher>
#include <QProgressBar>

#include "tests/support/WindowFixture.h"
#include "widgets/FootLine.h"

namespace quarvelle::testing {

class BatchTest : public WindowFixture {};

/// "P" or "A", the number of the sheet, a colon and the first square on it, for each.
static std::string sheetsOf(const FakePrinter& printer, const ProgramState& state) {
    QString sheets;
    for (const auto& sheet : printer.sheets) {
        const auto boards = boardsOf(sheet.drawing, state);
        const QString note = boards.empty() ? "?" : boards[0].label.text;
        // A piece has its square in the caption.
        const QString square = note.contains(',') ? sheet.caption.section(" · ", 1, 1) : note;
        const QString number = sheet.caption.section("sheet ", 1).left(1);
        sheets += sheet.caption.left(1) + number + ':' + square.section('.', 0, 0) + ' ';
    }
    return sheets.toStdString();
}

TEST_F(BatchTest, PrintsTheSheetsOrderedAndTellsHowItEnded) {
    const struct {
        const char* order = "5";
        int count = 60;
        int first = 1, last = 99, copies = 1, queueCopies = 1;
        bool backwards = false, collated = true;
        std::size_t stop = 99; ///< with so many sheets printed
        const char* sheets;    ///< each view, its sheet and the first square on that
        const char* ending;
    } rows[] = {
        // clang-format off
        {.first = 2, .last = 5, .sheets = "A1:1 P2:21 A2:21 P3:41 ", .ending = "4 sheets"},
        {.last = 5, .backwards = true, .sheets = "P3:41 A2:21 P2:21 A1:1 P1:1 ", .ending = "5 sheets"},
        {.last = 3, .copies = 2, .sheets = "P1:1 A1:1 P2:21 P1:1 A1:1 P2:21 ", .ending = "6 sheets"},
        {.first = 6, .copies = 3, .collated = false, .sheets = "A3:41 A3:41 A3:41 ", .ending = "3 sheets"},
        {.queueCopies = 2, .stop = 2, .sheets = "P1:1 A1:1 ", .ending = "Stopped: 4 of 12 sheets"},
        {.count = 1, .copies = 3, .collated = false, .stop = 1, .sheets = "P1:1 ",
         .ending = "Stopped: 1 of 6 sheets"},
        {.count = 1, .copies = 9, .stop = 3, .sheets = "P1:1 A1:1 P1:1 ", .ending = "Stopped: 3 of 18 sheets"},
        {.order = "31", .count = 2, .first = 4, .last = 6, .backwards = true, .sheets = "A3:2 P3:2 A2:1 ",
         .ending = "3 sheets"},
        {.order = "31", .count = 2, .stop = 2, .sheets = "P1:1 A1:1 ", .ending = "Stopped: 2 of 8 sheets"},
        {.order = "7", .count = 1, .last = 1, .sheets = "P1:1 ", .ending = "1 sheet"},
        // clang-format on
    };
    for (const auto& row : rows | untilFailure) {
        SCOPED_TRACE(row.sheets);
        printer.dialog = [&](PrintOrder& order) {
            std::tie(order.firstSheet, order.lastSheet) = std::tuple(row.first, row.last);
            std::tie(order.copies, order.queueCopies) = std::tuple(row.copies, row.queueCopies);
            std::tie(order.backwards, order.collated) = std::tuple(row.backwards, row.collated);
            return true;
        };
        events.onYield = [&] {
            if (printer.sheets.size() == row.stop)
                // By the key or by the menu.
                row.copies > 1 ? command("aprinting")->trigger() : pressKey(Qt::Key_Q);
        };
        print(row.order, row.count);
        EXPECT_EQ(sheetsOf(printer, state()), row.sheets);
        EXPECT_EQ(window().focusWidget(), page().Command1);
        EXPECT_TRUE(QAbstractEventDispatcher::instance()->registeredTimers(&window().foot()).isEmpty());
        pressKey(Qt::Key_Shift, {}, {}, true); // still held
        EXPECT_EQ(foot(), row.ending + QString(" sent to Fake"));
        row.copies > 1 ? click(page().Check1) : pressKey(Qt::Key_Shift);
        EXPECT_EQ(foot(), "") << "the next thing that a person does";
    }
}

TEST_F(BatchTest, ShowsAtItsFootHowFarItIs) {
    const auto& bar = *window().foot().findChild<QProgressBar*>();
    events.onYield = [&] {
        EXPECT_TRUE(QTest::qWaitFor([&] { return bar.isVisible(); }));
        EXPECT_EQ(bar.text(), QString("%1 of 2 sheets").arg(printer.sheets.size()));
        const QRect foot = window().foot().geometry();
        EXPECT_TRUE(foot.bottomRight() == window().rect().bottomRight() && foot.height() < 30);
        EXPECT_LE(board().mapTo(&window(), board().rect().bottomLeft()).y(), foot.top()) << "under it";
    };
    print("7", 1);
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(BatchTest, SaysWhyNothingIsPrinted) {
    print("5", 0);
    EXPECT_TRUE(printer.told.startsWith("There is nothing to print"));
}

TEST_F(BatchTest, EndsWhenItsWindowCloses) {
    events.onYield = [&] {
        if (printer.sheets.size() == 2)
            window().close();
    };
    printer.failingStep = 4; // the end of the job
    print("5", 60);
    EXPECT_EQ(printer.steps, 4);
    EXPECT_EQ(printer.failuresTold, 0) << "to nobody";
}

} // namespace quarvelle::testing
