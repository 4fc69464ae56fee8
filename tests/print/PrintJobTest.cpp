#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QTemporaryDir>
#include <QTimer>
#include <csignal>
#include <sys/resource.h>

#include "print/PdfFileJob.h"
#include "print/QtPrinter.h"
#include "print/QueueJob.h"
#include "print/SheetPainter.h"
#include "tests/support/WindowFixture.h"

namespace quarvelle::testing {

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

/// Prints empty sheets and returns why that failed.
static QString printSheets(PrintJob& job, int count) {
    const Drawing drawing;
    QString failure;
    for (int sheet = 0; sheet < count && failure.isEmpty(); ++sheet)
        failure = job.print(Sheet{drawing, {8, 8, 745, 523}, 0.3, "Squares"});
    return failure;
}

TEST(PdfFileJob, IsWholeOrNotThereAndSaysWhy) {
    const QTemporaryDir folder;
    const auto print = [&](const QString& name, int sheets) {
        PdfFileJob job(folder.filePath(name), QPageLayout(), "Squares");
        QString failure = job.begin();
        if (failure.isEmpty())
            failure = printSheets(job, sheets);
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
    EXPECT_TRUE(print("nowhere/b.pdf", 1).contains(qt_error_string(ENOENT)));
    EXPECT_EQ(PdfFileJob(folder.filePath("dropped.pdf"), {}, "").begin(), "");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"a.pdf"});
}

TEST(QueueJob, SaysWhyItsSheetsDontComeOut) {
    const QTemporaryDir folder;
    auto printer = std::make_unique<QPrinter>();
    printer->setOutputFormat(QPrinter::PdfFormat); // so that it is no printer of this machine
    printer->setOutputFileName(folder.filePath("a.pdf"));
    QueueJob job(std::move(printer));
    EXPECT_TRUE(job.begin().contains("no printer"));
    EXPECT_EQ(printSheets(job, 2), "");
    const QByteArray temporary = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/proc"); // which has no room at all
    EXPECT_TRUE(printSheets(job, 1).contains("No space left"));
    qputenv("TMPDIR", temporary);
    // The print client keeps that it reached no server.
    EXPECT_TRUE(job.finish().endsWith("did not take the sheets: " + qt_error_string(EBADF) + '.'));
}

TEST(QtPrinter, OrdersWhatItsDialogIsGiven) {
    QWidget window;
    const QWidget page(&window);
    const auto choose = [&](const char* fileName, QDialog::DialogCode ending) {
        QTimer::singleShot(0, &window, [=, &window, &page] {
            auto* dialog = window.findChild<QPrintDialog*>();
            ASSERT_TRUE(dialog);
            EXPECT_FALSE(page.isEnabled());
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
    QTimer::singleShot(0, &window, [&] {
        EXPECT_EQ(window.findChild<QMessageBox*>()->text(), "paper jam");
        window.close(); // which takes the message along
    });
    QtPrinter(window).tell("paper jam");
    EXPECT_TRUE(page.isEnabled());
}

} // namespace quarvelle::testing
