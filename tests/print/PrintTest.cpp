#include <QAbstractEventDispatcher>
#include <QFontMetricsF>
#include <QMessageBox>
#include <QPrintDialog>
#include <QProgressBar>
#include <QTemporaryDir>
#include <QTimer>
#include <csignal>
#include <ranges>
#include <sys/resource.h>

#include "engine/MagicArithmetic.h"
#include "print/PdfFileJob.h"
#include "print/QtPrinter.h"
#include "print/QueueJob.h"
#include "print/SheetPainter.h"
#include "tests/support/WindowFixture.h"
#include "widgets/DrawingGrid.h"
#include "widgets/DrawingSurface.h"
#include "widgets/Fonts.h"
#include "widgets/FootLine.h"

namespace quarvelle::testing {

/// A batch with every property, and what comes of it.
struct PrintedBatch {
    int mode = PuzzleMode::both;
    int order = 5;
    const char* start = "1";
    const char* distance = "1";
    const char* random = ""; ///< how many random starts are asked for, if any
    double steps = 0;        ///< from the typed start to the highest with as many digits in its numbers
    bool shades = true;      ///< the answers
    int count = 1;
    std::size_t sheets = 0;
    double cell = 0; ///< its width on paper, in millimetres

    std::string size() const { return numberText(order) + " by " + numberText(order); }
    std::size_t views() const { return mode == PuzzleMode::both ? 2 : 1; }
    std::string caption(std::size_t view, std::size_t sheet, const QString& note, double first) const {
        const char* const name = mode == PuzzleMode::answers ? "Squares" : view == 0 ? "Puzzles" : "Answers";
        return name + std::string(", sheet ") + std::to_string(sheet) + note.toStdString() + " · " + size() +
               (*random ? " · first numbers from " : " · first number ") + numberText(first) +
               " · distance " + distance + (mode == PuzzleMode::answers ? "" : " · challenging") +
               " · 2026-11-23";
    }
};

class BatchTest : public WindowFixture {
protected:
    void print(const char* order, int count) {
        type(page().Text2, order);
        type(page().Text1, QString::number(count));
        click(page().Command1);
    }
    void print(const PrintedBatch& batch) {
        for (QCheckBox* box : window().findChildren<QCheckBox*>())
            box->setChecked(true);
        QAction* const modes[] = {command("panswers"), command("ppuzzles"), command("pboth")};
        modes[batch.mode]->trigger();
        (batch.shades ? command("highlighted") : command("nhighlighted"))->trigger();
        page().Check1->setChecked(*batch.random != '\0');
        type(page().Text7, batch.random);
        type(page().Text3, "300");
        type(page().text4, batch.start);
        type(page().Text5, batch.distance);
        print(numberText(batch.order).c_str(), batch.count);
    }

    /// The squares of a view, in order, their pieces put together and with the notes of their captions.
    std::vector<ShownBoard> squaresOf(const PrintedBatch& batch, std::size_t view) {
        const int columns = state().visibleColumns, rows = state().visibleRows;
        const int across = (batch.order + columns - 1) / columns;
        const int pieces = across * ((batch.order + rows - 1) / rows);
        std::vector<ShownBoard> squares;
        int piece = 0;
        for (std::size_t i = view; i < printer.sheets.size(); i += batch.views()) {
            const FakePrinter::Printed& sheet = printer.sheets[i];
            const QString note = QString::fromStdString(sheet.caption).section(" · ", 1, 1);
            EXPECT_EQ(sheet.caption, batch.caption(view, i / batch.views() + 1,
                                                   pieces > 1 ? " · " + note : "", state().startNumber));
            for (ShownBoard& board : boardsOf(sheet.drawing, state())) {
                const Step corner{piece % across * columns, piece / across * rows};
                EXPECT_TRUE(sheet.content.contains(board.area));
                const QPoint below = board.area.bottomLeft() + QPoint(0, 2);
                if (pieces > 1)
                    expectNamed(sheet, board.label, piece % across + 1, piece / across + 1);
                else
                    EXPECT_TRUE(board.label ==
                                TextAtPoint(below, board.label.text, board.area.width(), TextStyle::note));
                if (piece == 0)
                    squares.push_back({board.area, board.label});
                if (pieces > 1)
                    squares.back().label.text = note;
                for (const auto& [cell, number] : board.numbers)
                    squares.back().numbers[cell + corner] = number;
                for (const Cell& cell : board.shaded)
                    squares.back().shaded.insert(cell + corner);
                piece = (piece + 1) % pieces;
            }
            EXPECT_LT(sheet.content.width() * sheet.scale, 277.01);
            EXPECT_LT(sheet.content.height() * sheet.scale, 183.66);
        }
        return squares;
    }

    void expectNamed(const FakePrinter::Printed& sheet, const TextAtPoint& label, int across, int down) {
        const int left = 14 + static_cast<int>(state().cellWidth) * state().visibleColumns;
        EXPECT_EQ(label.text, QString("%1,%2").arg(across).arg(down));
        EXPECT_EQ(label.point, QPoint(left, 8));
        EXPECT_GE(sheet.content.right() - left, QFontMetricsF(boardFont()).horizontalAdvance(label.text));
    }

    /// The squares printed are complete, the numbers of the puzzles are theirs, and the highest start was
    /// drawn.
    void expectSquares(const PrintedBatch& batch) {
        const auto shown = squaresOf(batch, 0), answered = squaresOf(batch, batch.views() - 1);
        ASSERT_EQ(std::ssize(shown), batch.count);
        ASSERT_EQ(std::ssize(answered), batch.count);
        const auto cells = static_cast<std::size_t>(batch.order * batch.order);
        double highest = state().startNumber;
        for (std::size_t i = 0; i < shown.size(); ++i) {
            const auto& [area, note, numbers, shaded] = answered[i];
            const std::size_t blanks = cells - shown[i].numbers.size();
            EXPECT_EQ(blanks > 0, batch.mode != PuzzleMode::answers);
            EXPECT_EQ(shaded.size(), batch.mode == PuzzleMode::both && batch.shades ? blanks : 0);
            double start = state().startNumber;
            if (batch.mode != PuzzleMode::puzzles)
                start = std::ranges::min(numbers | std::views::values);
            const double total = magicTotal(batch.order, start, leadingNumber(batch.distance));
            EXPECT_EQ(note.text.toStdString(), std::to_string(i + 1) + ". Magic Total " + numberText(total));
            EXPECT_EQ(shown[i].label, note);
            if (batch.mode != PuzzleMode::puzzles) {
                EXPECT_TRUE(std::ranges::includes(numbers, shown[i].numbers));
                Grid square{};
                for (const auto& [cell, number] : numbers)
                    cellAt(square, cell) = number;
                expectComplete(square, batch.order, total);
            }
            highest = std::max(highest, start);
        }
        EXPECT_EQ(highest, state().startNumber + batch.steps);
    }

    /// "P" or "A", the number of the sheet, a colon and the first square on it, for each.
    std::string sheetsPrinted() {
        std::string sheets;
        for (const auto& sheet : printer.sheets) {
            const QString caption = QString::fromStdString(sheet.caption);
            const QString note = boardsOf(sheet.drawing, state()).front().label.text;
            // A piece has its square in the caption.
            const QString square = note.contains(',') ? caption.section(" · ", 1, 1) : note;
            const QString number = caption.section("sheet ", 1).left(1);
            sheets += (caption.left(1) + number + ':' + square.section('.', 0, 0) + ' ').toStdString();
        }
        return sheets;
    }

    QString foot() { return window().foot().isVisible() ? window().foot().currentMessage() : ""; }
};

TEST_F(BatchTest, PrintsWhatItsTitleCountsDown) {
    const std::string kinds[] = {"squares", "puzzles", "puzzles and answers"};
    constexpr int answers = PuzzleMode::answers, puzzles = PuzzleMode::puzzles;
    const PrintedBatch batches[] = {
        {.mode = answers, .distance = "5000", .count = 11, .sheets = 2, .cell = 18},
        {.mode = answers, .start = "007", .distance = "2", .count = 26, .sheets = 2, .cell = 10.37},
        {.mode = puzzles, .order = 7, .count = 25, .sheets = 3, .cell = 10.35},
        {.start = "-3.5", .distance = "0.25", .count = 21, .sheets = 4, .cell = 13.83},
        {.order = 11, .start = "-400", .distance = "3", .count = 13, .sheets = 8, .cell = 12.28},
        {.order = 29, .shades = false, .sheets = 2, .cell = 8.22},
        {.mode = answers, .start = "4", .random = "0", .steps = 1, .count = 50, .sheets = 2, .cell = 8.28},
        {.mode = answers, .start = "4", .random = "1", .sheets = 1, .cell = 18},
        {.start = "4", .random = "71", .steps = 69, .count = 40, .sheets = 4, .cell = 9.94},
        {.order = 31, .sheets = 4, .cell = 8.43},
        {.order = 23, .distance = "20", .count = 2, .sheets = 8, .cell = 14.05},
        {.order = 101, .sheets = 48, .cell = 14.05}};
    for (const PrintedBatch& batch : batches) {
        const std::string& kind = kinds[batch.mode];
        SCOPED_TRACE(kind + " from " + batch.start + ", " + batch.size());
        random = ScriptedRandom({0.999, 0.999}); // the highest start
        events.onYield = [&](int) {
            EXPECT_EQ(title(), "Creating (" + batch.size() + ") Complete Magic Square(s): " +
                                   numberText(batch.count - state().squaresSolved) + " out of " +
                                   numberText(batch.count) + ' ' + kind + " left to print.");
        };
        print(batch);
        EXPECT_EQ(state().squaresSolved, batch.count);
        EXPECT_EQ(printer.document.toStdString(), "Quarvelle " + batch.size());
        ASSERT_EQ(printer.sheets.size(), batch.sheets);
        EXPECT_NEAR(printer.sheets[0].scale * state().cellWidth, batch.cell, 0.01);
        expectSquares(batch);
    }
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
    for (const auto& row : rows) {
        SCOPED_TRACE(row.sheets);
        printer.dialog = [&](PrintOrder& order) {
            std::tie(order.firstSheet, order.lastSheet) = std::tuple(row.first, row.last);
            std::tie(order.copies, order.queueCopies) = std::tuple(row.copies, row.queueCopies);
            std::tie(order.backwards, order.collated) = std::tuple(row.backwards, row.collated);
            return true;
        };
        events.onYield = [&](int) {
            if (printer.sheets.size() == row.stop)
                // By the key or by the menu.
                row.copies > 1 ? command("aprinting")->trigger() : pressKey(Qt::Key_Q);
        };
        print(row.order, row.count);
        EXPECT_EQ(sheetsPrinted(), row.sheets);
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
    events.onYield = [&](int) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return bar.isVisible(); }));
        EXPECT_EQ(bar.text(), QString("%1 of 2 sheets").arg(printer.sheets.size()));
        window().boardPage().fillRectangle(0, 0, 2000, 2000, Qt::red);
        const QRect foot = window().foot().geometry();
        EXPECT_TRUE(foot.bottomRight() == window().rect().bottomRight() && foot.height() < 30);
        const QImage shown = window().grab().toImage();
        EXPECT_EQ(shown.pixelColor(0, foot.top() - 1), QColor(Qt::red));
        EXPECT_NE(shown.pixelColor(0, foot.top() + 9), QColor(Qt::red)) << "it lies over the page";
    };
    print("7", 1);
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(BatchTest, SaysWhyNothingIsPrinted) {
    print("5", 0);
    EXPECT_TRUE(printer.told.startsWith("There is nothing to print"));
    printer.dialog = [](PrintOrder&) { return false; };
    print("5", 1);
    EXPECT_EQ(foot(), "Cancelled");
    printer.document.clear();
    type(page().Text2, "103");
    emit page().Command1->clicked(); // which can't be clicked
    EXPECT_EQ(printer.document, "") << "too large";
}

TEST_F(BatchTest, EndsWhenItsWindowCloses) {
    events.onYield = [&](int) {
        if (printer.sheets.size() == 2)
            window().close();
    };
    printer.dialog = [this](PrintOrder&) { return printer.failingStep = 4; }; // the end of the job
    print("5", 60);
    EXPECT_EQ(printer.steps, 4);
    EXPECT_EQ(printer.failuresTold, 0) << "to nobody";
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
        EXPECT_EQ(boundsOf(paper, Qt::yellow), content);
        EXPECT_TRUE(QRect(0, size.height() - 20, size.width(), 19).contains(boundsOf(paper, Qt::black)))
            << "a caption that is too wide";
    }
}

TEST(Drawing, CondensesDigitsIntoTheirRoom) {
    const QFontMetricsF digits(boardFont());
    EXPECT_EQ(digits.horizontalAdvance("1111"), 4 * digits.horizontalAdvance("8"));
    DrawingSurface surface;
    surface.setPalette(QColor(35, 35, 38)); // of a dark theme
    surface.fillRectangle(0, 0, 59, 23, Qt::white);
    surface.drawText(10, 3, "123456789", 21);
    QImage paper(60, 24, QImage::Format_RGB32);
    QPainter painter(&paper);
    surface.drawing().replay(painter, PaperGrid(*painter.device()));
    for (const QImage& shown : {surface.grab({0, 0, 60, 24}).toImage(), paper}) {
        const QImage ink = shown.createMaskFromColor(qRgb(255, 255, 255));
        const QRect inked = boundsOf(ink, Qt::black);
        EXPECT_TRUE(QRect(9, 0, 23, 24).contains(inked) && inked.width() > 15) << inked.x() << inked.width();
    }
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
    printer->setOutputFileName(file.fileName());
    QueueJob job(std::move(printer));
    EXPECT_TRUE(job.begin().contains("no printer"));
    for (int sheet = 0; sheet < 2; ++sheet)
        EXPECT_EQ(job.print(Sheet{drawing, {8, 8, 745, 523}, 0.3, "Squares"}), "");
    const QByteArray temporary = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/proc"); // which has no room at all
    EXPECT_TRUE(job.print(Sheet{drawing, {8, 8, 745, 523}, 0.3, "Squares"}).contains("No space left"));
    qputenv("TMPDIR", temporary);
    // The print client keeps that it reached no server.
    EXPECT_TRUE(job.finish().endsWith("did not take the sheets: " + qt_error_string(EBADF) + '.'));
}

TEST(QtPrinter, OrdersWhatItsDialogIsGiven) {
    QWidget window;
    const auto choose = [&](const char* fileName, QDialog::DialogCode ending) {
        QTimer::singleShot(0, [=] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            EXPECT_TRUE(dialog->testOption(QPrintDialog::PrintPageRange) && dialog->maxPage() == 7);
            QPrinter& printer = *dialog->printer();
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(fileName);
            printer.setPageSize(QPageSize(QPageSize::A4));
            printer.setPrintRange(*fileName ? QPrinter::PageRange : QPrinter::AllPages);
            printer.setFromTo(2, 5);
            printer.setPageOrder(QPrinter::LastPageFirst);
            printer.setCollateCopies(false);
            printer.setCopyCount(3);
            dialog->done(ending);
        });
        return QtPrinter(window).choose("Squares", 7);
    };
    const PrintOrder order = choose("/proc/a.pdf", QDialog::Accepted);
    EXPECT_EQ(order.destination, "written to /proc/a.pdf");
    EXPECT_TRUE(order.firstSheet == 2 && order.lastSheet == 5 && order.backwards && !order.collated);
    EXPECT_TRUE(order.copies == 3 && order.queueCopies == 1 && order.date == QDate::currentDate());
    EXPECT_EQ(order.paper.toSize(), QSize(277, 190));
    const PrintOrder onPaper = choose("", QDialog::Accepted);
    EXPECT_TRUE(onPaper.destination == "sent to " && onPaper.firstSheet == 1 && onPaper.lastSheet >= 7);
    EXPECT_EQ(onPaper.job->finish(), "") << "where nothing was printed";
    EXPECT_FALSE(choose("", QDialog::Rejected).job);
    QTimer::singleShot(0, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        EXPECT_TRUE(box && box->text() == "paper jam" && box->close());
    });
    QtPrinter(window).tell("paper jam");
}

} // namespace quarvelle::testing
