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

namespace quarvelle {
namespace {

QRect boundsOf(const QImage& paper, const QColor& color) {
    return QRegion(QBitmap::fromImage(paper.createMaskFromColor(color.rgb(), Qt::MaskOutColor)))
        .boundingRect();
}

TEST(Paper, HoldsTheFrameUndistortedCentredAndAsLargeAsItFits) {
    // A4 and, upright, A6 at 144 dots per inch, inside their margins.
    for (const auto& [size, content] : {std::pair{QSize(1570, 1077), QRect(188, 0, 1194, 1041)},
                                        {QSize(475, 720), QRect(55, 183, 365, 318)}}) {
        QImage paper(size, QImage::Format_RGB32);
        paper.setDotsPerMeterY(5669);
        paper.fill(Qt::white);
        Drawing drawing;
        drawing.fillRectangle(8, 8, 607, 530, Qt::yellow);
        QPainter painter(&paper);
        paintSheet(painter, Sheet{drawing, {8, 8, 780, 523}, {8, 8, 600, 523}, "Puzzles, sheet 1"});
        const QRect drawn = boundsOf(paper, Qt::yellow), caption = boundsOf(paper, Qt::black);
        EXPECT_TRUE(content.adjusted(-2, -2, 2, 2).contains(drawn)) << size.width();
        EXPECT_TRUE(drawn.contains(content.adjusted(2, 2, -2, -2))) << size.width();
        EXPECT_TRUE(QRect(0, size.height() - 30, size.width(), 29).contains(caption));
        EXPECT_NEAR(caption.height(), 14, 4);
    }
}

TEST(PdfFile, IsWholeOrNotThere) {
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
    EXPECT_TRUE(whole.startsWith("%PDF-") && whole.trimmed().endsWith("%%EOF"));
    EXPECT_EQ(whole.count("/Type /Page\n"), 99);

    // No file of this process can grow beyond the limit: the disk is full.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit unlimited{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &unlimited), 0);
    for (const qsizetype room : {qsizetype{0}, whole.size() / 2, whole.size() - 1}) {
        const rlimit limit{static_cast<rlim_t>(room), unlimited.rlim_max};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
        const QString failure = print("a.pdf", 99);
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &unlimited), 0);
        EXPECT_TRUE(failure.contains("a.pdf could not be written: File too large")) << room;
        EXPECT_EQ(QFileInfo(file.fileName()).size(), whole.size()) << "the earlier file stays";
    }
    EXPECT_TRUE(PdfFileJob(folder.filePath("nowhere/b.pdf"), {}, "").begin().contains("No such file"));
    EXPECT_EQ(PdfFileJob(folder.filePath("dropped.pdf"), {}, "").begin(), "");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"a.pdf"});
}

TEST(QueueJob, ForAPrinterThatIsGoneSaysSo) {
    EXPECT_TRUE(QueueJob(std::make_unique<QPrinter>()).begin().contains("no such printer"));
}

} // namespace
} // namespace quarvelle
