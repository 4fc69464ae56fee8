#include <QBitmap>
#include <QDir>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "print/PdfFileJob.h"
#include "print/QueueJob.h"
#include "print/SheetPainter.h"
#include "ui/Drawing.h"

namespace quarvelle::testing {
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

TEST(Drawing, CondensesDigitsIntoTheirRoom) {
    QImage paper(60, 24, QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    Drawing drawing;
    drawing.drawText(10, 3, "123456789", 21);
    drawing.replay(painter);
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
    for (const qsizetype room : {qsizetype{0}, whole.size() / 2, whole.size() - 1}) {
        const rlimit full{static_cast<rlim_t>(room), RLIM_INFINITY}, unlimited{RLIM_INFINITY, RLIM_INFINITY};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
        const QString failure = print("a.pdf", 99);
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &unlimited), 0);
        EXPECT_TRUE(failure.contains("a.pdf could not be written: File too large")) << room;
        EXPECT_EQ(QFileInfo(file.fileName()).size(), whole.size()) << "the earlier file stays";
    }
    EXPECT_TRUE(PdfFileJob(folder.filePath("nowhere/b.pdf"), {}, "").begin().contains("No such file"));
    EXPECT_EQ(PdfFileJob(folder.filePath("dropped.pdf"), {}, "").begin(), "");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"a.pdf"});
    EXPECT_TRUE(QueueJob(std::make_unique<QPrinter>()).begin().contains("no such printer"));
}

} // namespace quarvelle::testing
