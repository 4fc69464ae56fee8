#include <QBitmap>
#include <QDir>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
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

namespace quarvelle::testing {

class BatchTest : public WindowFixture {
protected:
    /// The squares on every `step`th sheet from the `first` on, in order, their pieces put together.
    std::vector<ShownBoard> squaresOf(const std::string& view, std::size_t first, std::size_t step) {
        const int n = state().squareSize, columns = state().visibleColumns, rows = state().visibleRows;
        const int across = (n + columns - 1) / columns, pieces = across * ((n + rows - 1) / rows);
        const int width = static_cast<int>(state().cellWidth);
        std::vector<ShownBoard> squares;
        int piece = 0;
        for (std::size_t i = first; i < printer.sheets.size(); i += step) {
            const FakePrinter::Printed& sheet = printer.sheets[i];
            EXPECT_EQ(sheet.caption, view + ", sheet " + std::to_string(i / step + 1));
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
                for (const auto& [cell, number] : numbers)
                    squares.back().numbers[{cell.row + left, cell.column + top}] = number;
                for (const Cell& cell : shaded)
                    squares.back().shaded.insert({cell.row + left, cell.column + top});
                piece = (piece + 1) % pieces;
            }
            EXPECT_EQ(sheet.frame, sheet.content | QRect(QPoint(8, 8), QPoint(753, 530)));
            EXPECT_TRUE(i < step && pieces == 1 ? sheet.content == covered : sheet.content.contains(covered));
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
        const char* random = ""; ///< how many random starts are asked for, if any
        double steps = 0;        ///< from the typed start to the highest with as many digits in its numbers
    } rows[] = {
        {0, 5, "1", "5000", 11, 2},      {0, 5, "007", "2", 26, 2},    {1, 7, "1", "1", 13, 2},
        {2, 5, "-3.5", "0.25", 21, 4},   {2, 11, "-400", "3", 5, 4},   {2, 29, "1", "1", 1, 2},
        {0, 5, "4", "1", 50, 2, "0", 1}, {0, 5, "4", "1", 40, 2, "1"}, {2, 5, "4", "1", 40, 4, "71", 69},
        {2, 31, "1", "1", 1, 4},         {2, 23, "1", "20", 2, 8},     {2, 101, "1", "1", 1, 48}};
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
        const auto first = squaresOf(firstView, 0, views), last = squaresOf(lastView, views - 1, views);
        EXPECT_EQ(printer.sheets.size(), row.sheets);
        EXPECT_EQ(turns.size() * views, row.sheets) << "a turn a sheet";
        ASSERT_EQ(first.size(), static_cast<std::size_t>(row.count));
        ASSERT_EQ(first.size(), last.size());
        std::set<double> starts{state().startNumber};
        for (std::size_t i = 0; i < first.size(); ++i) {
            const auto& [area, label, answers, shaded] = last[i];
            const auto cells = static_cast<std::size_t>(n * n), blanks = cells - first[i].numbers.size();
            EXPECT_EQ(blanks > 0, row.mode != PuzzleMode::answers);
            EXPECT_EQ(shaded.size(), row.mode == PuzzleMode::both && shades ? blanks : 0);
            if (row.mode == PuzzleMode::puzzles)
                continue;
            ASSERT_EQ(answers.size(), cells);
            EXPECT_TRUE(std::ranges::includes(answers, first[i].numbers));
            const double start = std::ranges::min(answers | std::views::values);
            starts.insert(start);
            for (const Line& line : linesInPlay(*stateOf(n, 1, 1)))
                EXPECT_NEAR(std::accumulate(line.begin(), line.end(), 0.0,
                                            [&](double sum, Cell cell) { return sum + answers.at(cell); }),
                            magicTotal(n, start, leadingNumber(row.distance)), 1e-6);
        }
        EXPECT_EQ(*starts.begin(), state().startNumber);
        EXPECT_EQ(*starts.rbegin(), state().startNumber + row.steps);
    }
    events.onYield = [this](int) { printer.sheets.size() == 2 ? pressKey(Qt::Key_Q) : void(); };
    click(page().Command1);
    EXPECT_EQ(printer.sheets.size(), 2U) << "a stop between two pieces";
}

static QRect boundsOf(const QImage& paper, QRgb color) {
    return QRegion(QBitmap::fromImage(paper.createMaskFromColor(color, Qt::MaskOutColor))).boundingRect();
}

TEST(Paper, HoldsTheFrameUndistortedCentredAndAsLargeAsItFits) {
    // At 144 dots per inch; wider than the frame, and higher.
    for (const auto& [size, content] : {std::pair{QSize(1600, 1082), QRect(200, 0, 1200, 1046)},
                                        {QSize(780, 1001), QRect(90, 221, 600, 523)}}) {
        QImage paper(size, QImage::Format_RGB32);
        paper.setDotsPerMeterY(5669);
        paper.fill(Qt::white);
        Drawing drawing;
        drawing.fillRectangle(8, 8, 607, 530, Qt::yellow);
        QPainter painter(&paper);
        paintSheet(painter, Sheet{drawing, {8, 8, 780, 523}, {8, 8, 600, 523}, "Puzzles, sheet 1"});
        EXPECT_EQ(boundsOf(paper, qRgb(255, 255, 0)), content);
        EXPECT_TRUE(QRect(0, size.height() - 20, size.width(), 19).contains(boundsOf(paper, qRgb(0, 0, 0))));
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
            failure = job.print(Sheet{drawing, {8, 8, 745, 523}, {8, 8, 745, 523}, "Squares"});
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
    EXPECT_TRUE(QueueJob(std::move(printer)).begin().contains("no such printer"));
}

} // namespace quarvelle::testing
