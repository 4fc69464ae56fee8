#include <QBitmap>
#include <QDir>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <QProgressBar>
#include <QTemporaryDir>
#include <csignal>
#include <numeric>
#include <ranges>
#include <sys/resource.h>

#include "engine/MagicArithmetic.h"
#include "print/PdfFileJob.h"
#include "print/QueueJob.h"
#include "print/SheetPainter.h"
#include "tests/support/WindowFixture.h"
#include "ui/DrawingSurface.h"
#include "ui/Fonts.h"
#include "ui/FootLine.h"

namespace quarvelle::testing {

class BatchTest : public WindowFixture {
protected:
    /// The squares on every `step`th sheet from the `first` on, in order, their pieces put together and with
    /// the notes of their captions. `settings` are the end of each caption.
    std::vector<ShownBoard> squaresOf(const std::string& view, std::size_t first, std::size_t step,
                                      const std::string& settings) {
        const int n = state().squareSize, columns = state().visibleColumns, rows = state().visibleRows;
        const int across = (n + columns - 1) / columns, pieces = across * ((n + rows - 1) / rows);
        const int width = static_cast<int>(state().cellWidth);
        std::vector<ShownBoard> squares;
        int piece = 0;
        for (std::size_t i = first; i < printer.sheets.size(); i += step) {
            const FakePrinter::Printed& sheet = printer.sheets[i];
            const std::string opening = view + ", sheet " + std::to_string(i / step + 1) + " · ";
            EXPECT_TRUE(sheet.caption.starts_with(opening) && sheet.caption.ends_with(settings))
                << sheet.caption;
            QRect covered;
            for (const auto& [area, label, numbers, shaded] : boardsOf(sheet.drawing, state())) {
                const int left = piece % across * columns, top = piece / across * rows;
                covered |= area;
                if (pieces > 1) {
                    EXPECT_EQ(label.text, QString("%1,%2").arg(left / columns + 1).arg(top / rows + 1));
                    EXPECT_EQ(label.point, QPoint(14 + width * columns, 8));
                    const double labelWidth = QFontMetricsF(boardFont()).horizontalAdvance(label.text);
                    EXPECT_GE(sheet.content.right(), label.point.x() + labelWidth);
                }
                if (piece == 0)
                    squares.push_back({area, label});
                auto& note = squares.back().label;
                if (pieces > 1)
                    note.text = QString::fromStdString(sheet.caption).split(" · ").value(1);
                else
                    EXPECT_TRUE(note == TextAtPoint(area.bottomLeft() + QPoint(0, 2), note.text, area.width(),
                                                    TextStyle::note));
                for (const auto& [cell, number] : numbers)
                    squares.back().numbers[{cell.row + left, cell.column + top}] = number;
                for (const Cell& cell : shaded)
                    squares.back().shaded.insert({cell.row + left, cell.column + top});
                piece = (piece + 1) % pieces;
            }
            EXPECT_TRUE(sheet.content.contains(covered) && sheet.content.width() * sheet.scale < 277.01 &&
                        sheet.content.height() * sheet.scale < 183.66);
        }
        return squares;
    }
};

TEST_F(BatchTest, PrintsWhatItsTitleCountsDown) {
    const std::string kinds[] = {"squares", "puzzles", "puzzles and answers"};
    const struct {
        int mode, order;
        const char *start, *distance;
        int count;
        std::size_t sheets;
        double cell;             ///< its width on paper, in millimetres
        const char* random = ""; ///< how many random starts are asked for, if any
        double steps = 0;        ///< from the typed start to the highest with as many digits in its numbers
    } rows[] = {{0, 5, "1", "5000", 11, 2, 18},       {0, 5, "007", "2", 26, 2, 10.37},
                {1, 7, "1", "1", 2, 1, 18},           {1, 7, "1", "1", 25, 3, 10.35},
                {2, 5, "-3.5", "0.25", 21, 4, 13.83}, {2, 11, "-400", "3", 13, 8, 12.28},
                {2, 29, "1", "1", 1, 2, 8.22},        {0, 5, "4", "1", 50, 2, 8.28, "0", 1},
                {0, 5, "4", "1", 40, 2, 9.94, "1"},   {2, 5, "4", "1", 40, 4, 9.94, "71", 69},
                {2, 31, "1", "1", 1, 4, 8.43},        {2, 23, "1", "20", 2, 8, 14.05},
                {2, 101, "1", "1", 1, 48, 14.05}};
    for (QCheckBox* box : window().findChildren<QCheckBox*>())
        box->setChecked(true);
    type(page().Text3, "300");
    for (const auto& row : rows) {
        const std::string& kind = kinds[row.mode];
        const std::string firstView = row.mode == PuzzleMode::answers ? "Squares" : "Puzzles";
        const std::string lastView = row.mode == PuzzleMode::both ? "Answers" : firstView;
        const int n = row.order;
        SCOPED_TRACE(kind + " from " + row.start + ", order " + numberText(n));
        const std::string size = numberText(n) + " by " + numberText(n);
        std::set<std::size_t> turns;
        random = ScriptedRandom({0.999, 0.999}); // the highest start
        events.onYield = [&](int) {
            EXPECT_EQ(title(), "Creating (" + size + ") Complete Magic Square(s): " +
                                   numberText(row.count - state().squaresSolved) + " out of " +
                                   numberText(row.count) + ' ' + kind + " left to print.");
            turns.insert(printer.sheets.size());
        };
        QAction* const modes[] = {menus().panswers, menus().ppuzzles, menus().pboth};
        modes[row.mode]->trigger();
        const bool shades = n != 29;
        (shades ? menus().highlighted : menus().nhighlighted)->trigger();
        page().Check1->setChecked(*row.random != '\0');
        type(page().Text7, row.random);
        enter(QString::number(n), row.start, row.distance);
        type(page().Text1, QString::number(row.count));
        click(page().Command1);
        EXPECT_EQ(printer.document.toStdString(), "Quarvelle " + size);
        const std::size_t views = row.mode == PuzzleMode::both ? 2 : 1;
        const std::string settings =
            " · " + size + (*row.random ? " · first numbers from " : " · first number ") +
            numberText(state().startNumber) + " · distance " + row.distance +
            (row.mode == PuzzleMode::answers ? "" : " · challenging") + " · 2026-11-23";
        const auto first = squaresOf(firstView, 0, views, settings),
                   last = squaresOf(lastView, views - 1, views, settings);
        EXPECT_EQ(printer.sheets.size(), row.sheets);
        EXPECT_NEAR(printer.sheets[0].scale * state().cellWidth, row.cell, 0.01);
        EXPECT_EQ(turns.size() * views, row.sheets) << "a turn a sheet";
        ASSERT_EQ(first.size(), static_cast<std::size_t>(row.count));
        ASSERT_EQ(first.size(), last.size());
        std::set<double> starts{state().startNumber};
        for (std::size_t i = 0; i < first.size(); ++i) {
            const auto& [area, note, answers, shaded] = last[i];
            const auto cells = static_cast<std::size_t>(n * n), blanks = cells - first[i].numbers.size();
            EXPECT_EQ(blanks > 0, row.mode != PuzzleMode::answers);
            EXPECT_EQ(shaded.size(), row.mode == PuzzleMode::both && shades ? blanks : 0);
            const double start = row.mode == PuzzleMode::puzzles
                                     ? state().startNumber
                                     : std::ranges::min(answers | std::views::values);
            const double total = magicTotal(n, start, leadingNumber(row.distance));
            EXPECT_EQ(note.text.toStdString(), std::to_string(i + 1) + ". Magic Total " + numberText(total));
            EXPECT_TRUE(first[i].label == note);
            if (row.mode == PuzzleMode::puzzles)
                continue;
            ASSERT_EQ(answers.size(), cells);
            EXPECT_TRUE(std::ranges::includes(answers, first[i].numbers));
            starts.insert(start);
            for (const Line& line : linesInPlay(*stateOf(n, 1, 1)))
                EXPECT_NEAR(std::accumulate(line.begin(), line.end(), 0.0,
                                            [&](double sum, Cell cell) { return sum + answers.at(cell); }),
                            total, 1e-6);
        }
        EXPECT_EQ(*starts.begin(), state().startNumber);
        EXPECT_EQ(*starts.rbegin(), state().startNumber + row.steps);
    }
}

TEST_F(BatchTest, PrintsTheSheetsOrderedAndTellsHowItEnded) {
    const struct {
        const char *order, *count;
        std::function<void(PrintOrder&)> change;
        const char *sheets, *ending;
        std::size_t stop = 99; ///< with so many sheets printed
    } rows[] = {{"5", "60", [](PrintOrder& order) { order.firstSheet = 2, order.lastSheet = 5; },
                 "A1:1 P2:21 A2:21 P3:41 ", "4 sheets sent to Fake"},
                {"5", "60", [](PrintOrder& order) { order.lastSheet = 5, order.backwards = true; },
                 "P3:41 A2:21 P2:21 A1:1 P1:1 ", "5 sheets sent to Fake"},
                {"5", "60", [](PrintOrder& order) { order.lastSheet = 3, order.copies = 2; },
                 "P1:1 A1:1 P2:21 P1:1 A1:1 P2:21 ", "6 sheets sent to Fake"},
                {"5", "60",
                 [](PrintOrder& order) { order.firstSheet = 6, order.copies = 3, order.collated = false; },
                 "A3:41 A3:41 A3:41 ", "3 sheets sent to Fake"},
                {"5", "60", [](PrintOrder& order) { order.queueCopies = 2; }, "P1:1 A1:1 ",
                 "Stopped: 4 of 12 sheets sent to Fake", 2},
                {"5", "1", [](PrintOrder& order) { order.copies = 9; }, "P1:1 A1:1 P1:1 ",
                 "Stopped: 3 of 18 sheets sent to Fake", 3},
                {"31", "2",
                 [](PrintOrder& order) { order.firstSheet = 4, order.lastSheet = 6, order.backwards = true; },
                 "A3:2 P3:2 A2:1 ", "3 sheets sent to Fake"},
                {"31", "2", [](PrintOrder&) {}, "P1:1 A1:1 ", "Stopped: 2 of 8 sheets sent to Fake", 2},
                {"7", "1", [](PrintOrder& order) { order.lastSheet = 1; }, "P1:1 ", "1 sheet sent to Fake"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.sheets);
        printer.dialog = [&](PrintOrder& order) { return row.change(order), true; };
        events.onYield = [&](int) {
            EXPECT_TRUE(printer.sheets.empty() || !window().boardPage().drawing().items().empty());
            if (printer.sheets.size() == row.stop)
                pressKey(Qt::Key_Q);
        };
        type(page().Text2, row.order);
        type(page().Text1, row.count);
        click(page().Command1);
        std::string sheets;
        for (const auto& sheet : printer.sheets) {
            const auto note = boardsOf(sheet.drawing, state()).front().label.text.toStdString();
            const std::string& numbered = note.ends_with(",1") || note.ends_with(",2")
                                              ? sheet.caption.substr(sheet.caption.find("·") + 3)
                                              : note;
            sheets += sheet.caption.substr(0, 1) + sheet.caption.substr(sheet.caption.find("sheet ") + 6, 1) +
                      ':' + numbered.substr(0, numbered.find('.')) + ' ';
        }
        EXPECT_EQ(sheets, row.sheets);
        EXPECT_EQ(window().foot().currentMessage().toStdString(), row.ending);
        pressKey(Qt::Key_Shift);
        EXPECT_EQ(window().foot().currentMessage(), "") << "the next thing that a person does";
    }
    const auto& bar = *window().foot().findChild<QProgressBar*>();
    events.onYield = [&](int) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return bar.isVisible(); }));
        EXPECT_EQ(bar.text(), QString("%1 of 1 sheets").arg(printer.sheets.size()));
    };
    click(page().Command1);
    EXPECT_FALSE(bar.isVisible());
    type(page().Text1, "0");
    click(page().Command1);
    EXPECT_TRUE(printer.told.startsWith("There is nothing to print"));
    EXPECT_EQ(window().foot().currentMessage(), "");
    printer.dialog = [](PrintOrder&) { return false; };
    type(page().Text1, "1");
    click(page().Command1);
    EXPECT_EQ(window().foot().currentMessage(), "Cancelled");
}

static QRect boundsOf(const QImage& paper, QRgb color) {
    return QRegion(QBitmap::fromImage(paper.createMaskFromColor(color, Qt::MaskOutColor))).boundingRect();
}

TEST(Paper, HoldsTheContentInItsSizeUndistortedAndCentred) {
    // At 144 dots per inch; wider than the content, and higher.
    for (const auto& [size, content] : {std::pair{QSize(1600, 1082), QRect(200, 0, 1200, 1046)},
                                        {QSize(780, 1001), QRect(90, 221, 600, 523)}}) {
        QImage paper(size, QImage::Format_RGB32);
        paper.setDotsPerMeterY(5669);
        paper.fill(Qt::white);
        Drawing drawing;
        drawing.fillRectangle(8, 8, 607, 530, Qt::yellow);
        QPainter painter(&paper);
        const double scale = content.width() / 600.0 * 25.4 / 144;
        paintSheet(painter, Sheet{drawing, {8, 8, 600, 523}, scale, QString(250, 'E')});
        EXPECT_EQ(boundsOf(paper, qRgb(255, 255, 0)), content);
        EXPECT_TRUE(QRect(0, size.height() - 20, size.width(), 19).contains(boundsOf(paper, qRgb(0, 0, 0))))
            << "a caption that is too wide";
    }
}

TEST(DrawingSurface, CondensesDigitsIntoTheirRoom) {
    DrawingSurface surface;
    surface.fillRectangle(0, 0, 59, 23, Qt::white);
    surface.drawText(10, 3, "123456789", 21);
    const QImage paper = surface.grab({0, 0, 60, 24}).toImage();
    const QRect inked = boundsOf(paper.createMaskFromColor(qRgb(255, 255, 255)), qRgb(0, 0, 0));
    EXPECT_TRUE(QRect(9, 0, 23, 24).contains(inked) && inked.width() > 15) << inked.width();
}

TEST(PrintJob, IsWholeOrNotThereAndSaysWhy) {
    const QTemporaryDir folder;
    const Drawing drawing;
    const auto print = [&](const QString& name, int sheets) {
        PdfFileJob job(folder.filePath(name), QPageLayout(), "Squares");
        QString failure = job.begin();
        while (sheets-- > 0 && failure.isEmpty())
            failure = job.print(Sheet{drawing, {8, 8, 745, 523}, 0.3, "Squares"});
        return failure.isEmpty() ? job.finish() : failure;
    };
    EXPECT_EQ(print("none.pdf", 0), "");
    EXPECT_EQ(print("a.pdf", 99), "");
    QFile file(folder.filePath("a.pdf"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    EXPECT_TRUE(whole.count("/Type /Page\n") == 99 && whole.trimmed().endsWith("%%EOF"));

    // No file of this process can grow beyond the limit: the disk is full.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit usual{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &usual), 0);
    for (const qsizetype room : {qsizetype{0}, whole.size() / 2, whole.size() - 1}) {
        const rlimit full{static_cast<rlim_t>(room), usual.rlim_max};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
        const QString failure = print("a.pdf", 99);
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &usual), 0);
        EXPECT_TRUE(failure.contains("a.pdf could not be written: " + qt_error_string(EFBIG))) << room;
        EXPECT_EQ(QFileInfo(file.fileName()).size(), whole.size()) << "the earlier file stays";
    }
    EXPECT_TRUE(
        PdfFileJob(folder.filePath("nowhere/b.pdf"), {}, "").begin().contains(qt_error_string(ENOENT)));
    EXPECT_EQ(PdfFileJob(folder.filePath("dropped.pdf"), {}, "").begin(), "");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"a.pdf"});
    auto printer = std::make_unique<QPrinter>();
    printer->setOutputFormat(QPrinter::PdfFormat); // so that it is no printer of this machine
    EXPECT_TRUE(QueueJob(std::move(printer)).begin().contains("no printer"));
}

} // namespace quarvelle::testing
