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
    constexpr int dotsPerInch = 144;
    // A4, Letter and A6 inside their margins.
    for (const QSizeF& size : {QSizeF(10.9, 7.48), {7.48, 10.9}, {10.2, 7.7}, {7.7, 10.2}, {3.3, 5}}) {
        SCOPED_TRACE(size.width());
        QImage paper((size * dotsPerInch).toSize(), QImage::Format_RGB32);
        paper.setDotsPerMeterY(static_cast<int>(dotsPerInch / 0.0254));
        paper.fill(Qt::white);
        const QRect frame(8, 8, 780, 523), content(8, 8, 600, 523);
        Drawing drawing;
        drawing.fillRectangle(content.left(), content.top(), content.right(), content.bottom(), Qt::yellow);
        QPainter painter(&paper);
        paintSheet(painter, Sheet{drawing, frame, content, "Puzzles, sheet 1"});
        painter.end();

        const QRect drawn = boundsOf(paper, Qt::yellow);
        const int room = paper.height() - dotsPerInch / 4;
        const double scale = std::min(paper.width() / 780.0, room / 523.0);
        EXPECT_NEAR(drawn.width() / 600.0, scale, 0.01);
        EXPECT_NEAR(drawn.height() / 523.0, scale, 0.01);
        EXPECT_NEAR(drawn.left(), paper.width() - 1 - drawn.right(), 2);
        EXPECT_LE(drawn.bottom(), room);
        const QRect caption = boundsOf(paper.copy(0, room, paper.width(), paper.height() - room), Qt::black);
        EXPECT_GT(caption.top() + room, drawn.bottom() + dotsPerInch / 24);
        EXPECT_LT(caption.bottom() + room, paper.height() - 1);
        EXPECT_NEAR(caption.height(), 0.1 * dotsPerInch, 0.03 * dotsPerInch);
    }
}

/// Prints `sheets` sheets into a file; returns the first failure.
QString print(const QString& path, int sheets) {
    PdfFileJob job(path, QPageLayout(), "Squares");
    QString failure = job.begin();
    for (int sheet = 0; sheet < sheets && failure.isEmpty(); ++sheet) {
        Drawing drawing;
        for (int i = 0; i < 500; ++i)
            drawing.drawText(i % 25 * 30, i / 25 * 18, QString::number(i * sheet), 30);
        failure = job.print(Sheet{drawing, {8, 8, 745, 523}, {8, 8, 745, 523}, "Squares"});
    }
    return failure.isEmpty() ? job.finish() : failure;
}

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// No file of this process can grow beyond `bytes` from now on: the disk is full.
void limitFiles(rlim_t bytes) {
    rlimit limit{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    limit.rlim_cur = std::min(bytes, limit.rlim_max);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
}

TEST(PdfFile, IsWholeOrNotThere) {
    std::signal(SIGXFSZ, SIG_IGN);
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.pdf");
    ASSERT_EQ(print(path, 4), "");
    const QByteArray whole = contents(path);
    EXPECT_TRUE(whole.startsWith("%PDF-") && whole.trimmed().endsWith("%%EOF"));
    EXPECT_EQ(whole.count("/Type /Page\n"), 4);

    const auto size = static_cast<rlim_t>(whole.size());
    for (const rlim_t room : {rlim_t{0}, rlim_t{1000}, size / 2, size - 100, size - 1}) {
        limitFiles(room);
        const QString failure = print(path, 4);
        limitFiles(RLIM_INFINITY);
        EXPECT_TRUE(failure.contains(path) && failure.contains("File too large")) << room;
        EXPECT_EQ(contents(path), whole) << "the earlier file";
    }
    EXPECT_TRUE(PdfFileJob(folder.filePath("nowhere/b.pdf"), {}, "")
                    .begin()
                    .contains("b.pdf could not be written: No such file"));
    EXPECT_EQ(print(folder.filePath("none.pdf"), 0), "");
    {
        PdfFileJob dropped(folder.filePath("dropped.pdf"), {}, "");
        const Drawing drawing;
        EXPECT_EQ(dropped.begin(), "");
        EXPECT_EQ(dropped.print(Sheet{drawing, {0, 0, 9, 9}, {0, 0, 9, 9}, ""}), "");
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"a.pdf"});
}

TEST(QueueJob, ForAPrinterThatIsGoneSaysSo) {
    QueueJob job(std::make_unique<QPrinter>());
    EXPECT_TRUE(job.begin().contains("no such printer"));
}

} // namespace
} // namespace quarvelle
