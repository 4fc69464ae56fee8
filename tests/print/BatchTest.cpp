#include <QDialog>
#include <QFontMetricsF>
#include <QRegion>
#include <cmath>
#include <numeric>

#include "engine/MagicArithmetic.h"
#include "engine/Numbers.h"
#include "tests/support/WindowFixture.h"
#include "ui/Fonts.h"

namespace quarvelle::testing {
namespace {

struct PrintedBoard {
    QRect area;
    TextAtPoint label;            ///< what was drawn before it, outside of the board before it
    std::map<double, Cell> cells; ///< column and row, from 1, of each number
    int shaded = 0;
};

class BatchTest : public WindowFixture {
protected:
    void makeBatch(int order, const QString& start, const QString& distance, int count) {
        enter(QString::number(order), start, distance);
        type(page().Text1, QString::number(count));
        print();
    }

    void print() {
        click(page().Command1);
        EXPECT_EQ(state().currentPage, Page::main);
        EXPECT_EQ(state().stopRequested, Request::none);
        EXPECT_EQ(title(), "Quarvelle");
        EXPECT_TRUE(window().focusWidget() == page().Command1 || !page().Command1->isEnabled());
        EXPECT_TRUE(page().Command1->isVisible() && !menus().options1->menuAction()->isVisible());
    }

    /// All boards of the sheets whose caption begins with `view`, in the order drawn.
    std::vector<PrintedBoard> boardsOf(const std::string& view) {
        std::vector<PrintedBoard> boards;
        TextAtPoint label;
        for (const FakePrinter::Printed& sheet : printer.sheets) {
            QRegion covered;
            for (const DrawingItem& item : sheet.drawing.items()) {
                const auto* filled = std::get_if<FilledRectangle>(&item);
                const auto* text = std::get_if<TextAtPoint>(&item);
                if (sheet.caption.compare(0, view.size(), view) != 0)
                    continue;
                if (filled && filled->color == Qt::white) {
                    EXPECT_FALSE(covered.intersects(filled->rectangle.adjusted(-12, -12, 12, 12)));
                    covered += filled->rectangle;
                    boards.push_back({filled->rectangle, label, {}, 0});
                    label = {};
                } else if (filled) {
                    boards.back().shaded += filled->color != Qt::black;
                } else if (boards.empty() || !boards.back().area.contains(text->point)) {
                    label = *text;
                } else {
                    const QPoint inside = text->point - boards.back().area.topLeft();
                    const int column = inside.x() / static_cast<int>(state().cellWidth) + 1;
                    boards.back().cells[text->text.toDouble()] = {column, inside.y() / 18 + 1};
                }
            }
        }
        return boards;
    }

    void expectCaptions(const std::vector<std::string>& views, int sheets) {
        std::string expected, printed;
        for (int sheet = 1; sheet <= sheets; ++sheet)
            for (const std::string& view : views)
                expected += view + ", sheet " + numberText(sheet) + '\n';
        for (const FakePrinter::Printed& sheet : printer.sheets)
            printed += sheet.caption + '\n';
        EXPECT_EQ(printed, expected);
    }
};

TEST_F(BatchTest, PrintsWhatItsTitleCountsDown) {
    const std::pair<std::string, std::vector<std::string>> kinds[] = {
        {"squares", {"Squares"}}, {"puzzles", {"Puzzles"}}, {"puzzles and answers", {"Puzzles", "Answers"}}};
    const struct {
        int mode, order;
        const char *start, *distance;
        int count, sheets;   ///< sheets of each view
        const char* random;  ///< how many random starts are asked for, if any
        double highestStart; ///< no number has more digits than the last one of the typed square
    } rows[] = {
        {0, 5, "007", "2", 26, 2, "", 7},        {1, 7, "1", "1", 13, 2, "", 1},
        {2, 5, "-3.5", "0.25", 21, 2, "", -3.5}, {2, 11, "-400", "3", 5, 2, "", -400},
        {0, 5, "1", "5000", 11, 2, "", 1},       {0, 17, "1", "1", 2, 2, "", 1},
        {2, 29, "1", "1", 1, 1, "", 1},          {2, 5, "1", "1", 50, 2, "", 1},
        {0, 5, "4", "1", 40, 2, "3", 6},         {0, 5, "4", "1", 40, 2, "0", 5},
        {2, 5, "4", "1", 40, 2, "1000", 75},
    };
    for (const auto& row : rows) {
        const auto& [what, views] = kinds[row.mode];
        SCOPED_TRACE(what + " from " + row.start + ", order " + numberText(row.order));
        std::set<std::string> titles, countdown;
        events.onYield = [&](int) {
            titles.insert(title());
            EXPECT_TRUE(menus().options1->menuAction()->isVisible() && menus().aprinting->isVisible());
            EXPECT_FALSE(menus().newsquare->isVisible() || page().Command1->isVisible());
        };
        QAction* const modes[] = {menus().panswers, menus().ppuzzles, menus().pboth};
        modes[row.mode]->trigger();
        page().Check1->setChecked(*row.random != '\0');
        type(page().Text7, row.random);
        makeBatch(row.order, row.start, row.distance, row.count);

        expectCaptions(views, row.sheets);
        const std::string size = numberText(row.order) + " by " + numberText(row.order);
        EXPECT_EQ(printer.document.toStdString(), "Quarvelle " + size);
        for (int left = 1; left <= row.count; ++left)
            countdown.insert("Creating (" + size + ") Complete Magic Square(s): " + numberText(left) +
                             " out of " + numberText(row.count) + ' ' + what + " left to print.");
        EXPECT_EQ(titles, countdown);

        const auto first = boardsOf(views.front());
        const auto last = boardsOf(views.back());
        ASSERT_TRUE(first.size() == static_cast<std::size_t>(row.count) && last.size() == first.size());
        const int numbers = row.order * row.order;
        const double distance = std::stod(row.distance);
        const auto lines = linesInPlay(*stateOf(row.order, {1, 1}, 0));
        QRect covered;
        std::set<double> starts;
        for (std::size_t i = 0; i < first.size(); ++i) {
            const int blanks = numbers - static_cast<int>(first[i].cells.size());
            EXPECT_EQ(blanks > 0, row.mode != PuzzleMode::answers);
            EXPECT_EQ(last[i].shaded, row.mode == PuzzleMode::both ? blanks : 0);
            EXPECT_TRUE(last[i].area == first[i].area && last[i].label.text.isEmpty());
            covered |= first[i].area;
            if (row.mode == PuzzleMode::puzzles)
                continue;
            for (const auto& [number, cell] : first[i].cells)
                EXPECT_EQ(last[i].cells.at(number), cell);
            EXPECT_EQ(last[i].cells.size(), static_cast<std::size_t>(numbers));
            const double start = last[i].cells.begin()->first;
            EXPECT_EQ(last[i].cells.rbegin()->first, start + (numbers - 1) * distance);
            Grid shown{};
            for (const auto& [number, cell] : last[i].cells)
                shown[static_cast<std::size_t>(cell.first)][static_cast<std::size_t>(cell.second)] = number;
            for (const Line& line : lines)
                EXPECT_NEAR(std::accumulate(line.begin(), line.end(), 0.0,
                                            [&](double sum, Cell cell) { return sum + at(shown, cell); }),
                            magicTotal(row.order, start, distance), 1e-6);
            EXPECT_TRUE(start >= std::stod(row.start) && start <= row.highestStart) << start;
            starts.insert(start);
        }
        EXPECT_EQ(printer.sheets[0].content, covered);
        EXPECT_TRUE(QRect(QPoint(8, 8), QPoint(753, 530)).contains(covered));
        EXPECT_EQ(starts.size() > 1, page().Check1->isChecked());
        EXPECT_EQ(state().startNumber, std::stod(row.start));
        EXPECT_EQ(page().text4->text().toStdString(), numberText(state().startNumber));
    }
}

TEST_F(BatchTest, PrintsLargeSquaresInLabelledPieces) {
    for (QCheckBox* box : window().findChildren<QCheckBox*>())
        box->setChecked(true);
    type(page().Text3, "300");
    const struct {
        int order;
        const char* distance;
        int columns, rows, labelLeft, across, down;
    } squares[] = {
        {31, "1", 31, 29, 758, 1, 2}, {23, "20", 18, 23, 734, 2, 1}, {101, "1", 18, 29, 734, 6, 4}};
    for (const auto& [order, distance, columns, rows, labelLeft, across, down] : squares) {
        makeBatch(order, "1", distance, 1);
        expectCaptions({"Puzzles", "Answers"}, across * down);
        const auto boards = boardsOf("");
        ASSERT_EQ(boards.size(), printer.sheets.size());
        std::size_t numbers = 0, answers = 0;
        for (std::size_t i = 0; i < boards.size(); ++i) {
            const auto& [area, label, cells, shaded] = boards[i];
            const int piece = static_cast<int>(i) / 2;
            const int left = piece % across * columns;
            const int top = piece / across * rows;
            const int width = static_cast<int>(state().cellWidth) * std::min(columns, order - left);
            EXPECT_EQ(area, QRect(8, 8, width + 1, 18 * std::min(rows, order - top) + 1));
            EXPECT_EQ(label.text, QString("%1,%2").arg(piece % across + 1).arg(piece / across + 1));
            EXPECT_EQ(label.point, QPoint(labelLeft, 8));
            const double labelWidth = QFontMetricsF(boardFont()).horizontalAdvance(label.text);
            EXPECT_GE(printer.sheets[i].frame.right(), labelLeft + labelWidth);
            for (const auto& [number, cell] : cells)
                EXPECT_EQ(number, at(state().square, {cell.first + left, cell.second + top}));
            numbers += cells.size();
            answers += static_cast<std::size_t>(shaded);
        }
        EXPECT_GT(answers, static_cast<std::size_t>(order));
        EXPECT_EQ(numbers + answers, static_cast<std::size_t>(2 * order * order))
            << "each is shown, or shaded among the answers";
    }
}

TEST_F(BatchTest, StopsAtAnyTurnWithTheFullSheetsPrinted) {
    type(page().Text3, "1");
    // Cells so wide that few squares share a sheet, or that a square comes in two pieces.
    for (const auto& [order, start, distance, perSheet] :
         {std::tuple{7, "-99999999", "1", 3.0}, {5, "-9.9E+100", "1E+86", 0.5}}) {
        const double count = 2 * perSheet + 1;
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
                if (turn % 2 == 0)
                    pressKey(Qt::Key_Q);
                else
                    menus().aprinting->trigger();
            };
            makeBatch(order, start, distance, static_cast<int>(count));
            EXPECT_EQ(printer.sheets.size(), sent) << stopping;
            EXPECT_EQ(printer.steps, 2 + static_cast<int>(sent)) << "begun and ended";
            EXPECT_TRUE(printer.told.empty());
        }
        EXPECT_EQ(static_cast<double>(seen.size()), std::ceil(count / perSheet)) << "a turn after each sheet";
    }
}

TEST_F(BatchTest, TellsAFailureOfAnyStepOnceAndEnds) {
    // The beginning, six sheets and the end.
    for (printer.failingStep = 1; printer.failingStep <= 8; ++printer.failingStep) {
        makeBatch(5, "1", "1", 60);
        EXPECT_EQ(printer.told, std::vector<QString>{"paper jam"});
        EXPECT_EQ(printer.steps, printer.failingStep);
    }
    printer.failingStep = 4;
    events.onYield = [&](int) {
        if (state().squaresSolved == 30)
            window().close();
    };
    click(page().Command1);
    EXPECT_EQ(printer.steps, 4) << "the beginning, the full sheets and the end";
    EXPECT_TRUE(printer.told.empty()) << "nobody is there any more";
}

TEST_F(BatchTest, ThatIsCancelledChangesNothing) {
    bool accepts = false;
    printer.dialog = [&] {
        QDialog dialog;
        dialog.open();
        QTest::keyClick(&dialog, Qt::Key_Q);
        return accepts;
    };
    makeBatch(7, "3", "2", 4);
    EXPECT_TRUE(printer.document == "Quarvelle 7 by 7" && printer.steps == 0 && printer.told.empty());
    EXPECT_TRUE(state().squareSize == 7 && page().Text1->text() == "4");
    accepts = true;
    pressKey(Qt::Key_Q);
    print();
    EXPECT_EQ(printer.sheets.size(), 2U) << "no key pressed before the batch or in its dialog stops it";
}

TEST_F(BatchTest, OfNothingOrImpossibleNumbersAsksNothing) {
    for (const auto& [order, start, count] :
         {std::tuple{5, "1", 0}, {5, "1", -3}, {5, "1E+200", 1}, {103, "1", 1}}) {
        makeBatch(order, start, "1", count);
        emit page().Command1->clicked(); // even if it is disabled
        EXPECT_EQ(printer.document, "") << order << ' ' << start << ' ' << count;
    }
}

} // namespace
} // namespace quarvelle::testing
