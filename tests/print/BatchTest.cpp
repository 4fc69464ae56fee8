#include <QDialog>
#include <QFontMetricsF>
#include <numeric>

#include "engine/MagicArithmetic.h"
#include "tests/support/WindowFixture.h"
#include "ui/Fonts.h"

namespace quarvelle::testing {
namespace {

class BatchTest : public WindowFixture {
protected:
    void makeBatch(int order, const QString& start, const QString& distance, int count) {
        enter(QString::number(order), start, distance);
        type(page().Text1, QString::number(count));
        click(page().Command1);
        EXPECT_EQ(title(), "Quarvelle");
        EXPECT_TRUE(page().Command1->hasFocus() || !page().Command1->isEnabled());
    }

    /// All boards of the sheets whose captions are those of `view`, numbered from 1.
    std::vector<ShownBoard> boardsIn(const std::string& view) {
        std::vector<ShownBoard> boards;
        int number = 0;
        for (const FakePrinter::Printed& sheet : printer.sheets)
            if (sheet.caption == view + ", sheet " + numberText(number + 1)) {
                ++number;
                for (const ShownBoard& board : boardsOf(sheet.drawing, state()))
                    boards.push_back(board);
            }
        return boards;
    }
};

TEST_F(BatchTest, PrintsWhatItsTitleCountsDown) {
    const std::pair<std::string, std::vector<std::string>> kinds[] = {
        {"squares", {"Squares"}}, {"puzzles", {"Puzzles"}}, {"puzzles and answers", {"Puzzles", "Answers"}}};
    const struct {
        int mode, order;
        const char *start, *distance;
        int count, sheets;           ///< sheets of each view
        const char* random = "";     ///< how many random starts are asked for, if any
        double highestStart = 1;     ///< no number has more digits than the last one of the typed square
        int columns = 99, rows = 99; ///< of a piece
    } rows[] = {
        {0, 5, "007", "2", 26, 2, "", 7},
        {1, 7, "1", "1", 13, 2},
        {2, 5, "-3.5", "0.25", 21, 2, "", -3.5},
        {2, 11, "-400", "3", 5, 2, "", -400},
        {2, 29, "1", "1", 1, 1},
        {0, 5, "4", "1", 40, 2, "0", 5},
        {2, 5, "4", "1", 40, 2, "1000", 75},
        {2, 31, "1", "1", 1, 2, "", 1, 31, 29},
        {2, 23, "1", "20", 2, 4, "", 1, 18, 23},
        {2, 101, "1", "1", 1, 24, "", 1, 18, 29},
    };
    for (QCheckBox* box : window().findChildren<QCheckBox*>())
        box->setChecked(true);
    type(page().Text3, "300");
    for (const auto& row : rows) {
        const auto& [what, views] = kinds[row.mode];
        const int n = row.order;
        SCOPED_TRACE(what + " from " + row.start + ", order " + numberText(n));
        std::set<std::string> titles, countdown;
        events.onYield = [&](int) { titles.insert(title()); };
        QAction* const modes[] = {menus().panswers, menus().ppuzzles, menus().pboth};
        modes[row.mode]->trigger();
        page().Check1->setChecked(*row.random != '\0');
        type(page().Text7, row.random);
        makeBatch(n, row.start, row.distance, row.count);

        const std::string size = numberText(n) + " by " + numberText(n);
        EXPECT_EQ(printer.document.toStdString(), "Quarvelle " + size);
        for (int left = 1; left <= row.count; ++left)
            countdown.insert("Creating (" + size + ") Complete Magic Square(s): " + numberText(left) +
                             " out of " + numberText(row.count) + ' ' + what + " left to print.");
        EXPECT_EQ(titles, countdown);

        const int columns = std::min(row.columns, n), across = (n + columns - 1) / columns;
        const int rowsDown = std::min(row.rows, n), pieces = across * ((n + rowsDown - 1) / rowsDown);
        const int width = static_cast<int>(state().cellWidth);
        const auto first = boardsIn(views.front());
        const auto last = boardsIn(views.back());
        EXPECT_EQ(printer.sheets.size(), static_cast<std::size_t>(row.sheets) * views.size());
        ASSERT_EQ(first.size(), static_cast<std::size_t>(row.count * pieces));
        ASSERT_EQ(first.size(), last.size());
        QRect covered;
        std::set<double> starts;
        for (std::size_t board = 0; board < first.size();) {
            Grid grid{};
            std::set<double> numbers;
            int blanks = n * n, shaded = 0;
            for (int piece = 0; piece < pieces; ++piece, ++board) {
                const int left = piece % across * columns, top = piece / across * rowsDown;
                const auto& [area, label, shown, none] = first[board];
                EXPECT_EQ(area.size(), QSize(width * std::min(columns, n - left) + 1,
                                             18 * std::min(rowsDown, n - top) + 1));
                covered |= area;
                EXPECT_EQ(last[board].area, area);
                const QString expected = QString("%1,%2").arg(left / columns + 1).arg(top / rowsDown + 1);
                EXPECT_EQ(label.text, pieces == 1 ? "" : expected);
                EXPECT_TRUE(pieces == 1 || label.point == QPoint(14 + width * columns, 8));
                EXPECT_GE(printer.sheets[0].frame.right(),
                          label.point.x() + QFontMetricsF(boardFont()).horizontalAdvance(label.text));
                blanks -= static_cast<int>(shown.size());
                shaded += static_cast<int>(last[board].shaded.size());
                for (const auto& [cell, number] : last[board].numbers) {
                    EXPECT_TRUE(shown.count(cell) == 0 || shown.at(cell) == number);
                    numbers.insert(number);
                    grid[static_cast<std::size_t>(cell.first + left)]
                        [static_cast<std::size_t>(cell.second + top)] = number;
                }
            }
            EXPECT_EQ(blanks > 0, row.mode != PuzzleMode::answers);
            EXPECT_EQ(shaded, row.mode == PuzzleMode::both ? blanks : 0);
            if (row.mode == PuzzleMode::puzzles)
                continue;
            const double start = *numbers.begin(), distance = std::stod(row.distance);
            EXPECT_EQ(numbers.size(), static_cast<std::size_t>(n) * n);
            EXPECT_EQ(*numbers.rbegin(), lastNumber(n, start, distance));
            for (const Line& line : linesInPlay(*stateOf(n, {1, 1}, 0)))
                EXPECT_NEAR(std::accumulate(line.begin(), line.end(), 0.0,
                                            [&](double sum, Cell cell) { return sum + at(grid, cell); }),
                            magicTotal(n, start, distance), 1e-6);
            EXPECT_TRUE(start >= std::stod(row.start) && start <= row.highestStart) << start;
            starts.insert(start);
        }
        EXPECT_TRUE(pieces > 1 || printer.sheets[0].content == covered);
        EXPECT_TRUE(QRect(QPoint(8, 8), QPoint(753, 530)).contains(covered));
        EXPECT_EQ(starts.size() > 1, page().Check1->isChecked());
    }
}

TEST_F(BatchTest, StopsAtAnyTurnWithTheFullSheetsPrinted) {
    type(page().Text3, "1");
    // Cells so wide that few squares share a sheet, or that a square comes in two pieces.
    for (const auto& [order, start, distance, perSheet] :
         {std::tuple{7, "-99999999", "1", 3.0}, {5, "-9.9E+100", "1E+86", 0.5}}) {
        const int count = static_cast<int>(2 * perSheet + 1);
        std::set<std::size_t> seen;
        int turn = 0;
        for (int stopping = 1; turn >= stopping - 1; ++stopping) {
            turn = 0;
            std::size_t sent = 2 * static_cast<std::size_t>(std::ceil(count / perSheet));
            events.onYield = [&, squaresPerSheet = perSheet](int) {
                seen.insert(printer.sheets.size());
                if (++turn != stopping)
                    return;
                sent = printer.sheets.size();
                EXPECT_GE(sent, 2 * static_cast<std::size_t>(state().squaresSolved / squaresPerSheet));
                pressKey(Qt::Key_Q);
            };
            makeBatch(order, start, distance, count);
            EXPECT_EQ(printer.sheets.size(), sent) << stopping;
        }
        EXPECT_EQ(static_cast<double>(seen.size()), std::ceil(count / perSheet)) << "a turn after each sheet";
    }
}

TEST_F(BatchTest, ThatIsCancelledOrImpossibleChangesNothing) {
    printer.dialog = [] {
        QDialog dialog;
        dialog.open();
        QTest::keyClick(&dialog, Qt::Key_Q);
        return true;
    };
    pressKey(Qt::Key_Q);
    makeBatch(7, "3", "2", 4);
    EXPECT_EQ(printer.sheets.size(), 2U) << "no key pressed before the batch or in its dialog stops it";
    for (const auto& [order, start, count] :
         {std::tuple{5, "1", 0}, {5, "1", -3}, {5, "1E+200", 1}, {103, "1", 1}}) {
        printer.document = "";
        makeBatch(order, start, "1", count);
        emit page().Command1->clicked(); // even if it is disabled
        EXPECT_EQ(printer.document, "") << order << ' ' << start << ' ' << count;
    }
}

} // namespace
} // namespace quarvelle::testing
