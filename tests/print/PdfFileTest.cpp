#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QPrinter>
#include <QTemporaryDir>
#include <csignal>
#include <sys/resource.h>

#include "print/PdfFileJob.h"
#include "print/QueueJob.h"
#include "ui/Drawing.h"

namespace quarvelle::testing {
namespace {

class PdfFile : public ::testing::Test {
protected:
    QString path(const char* name) const { return m_folder.filePath(name); }
    QStringList files() const { return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden); }

    QByteArray contents(const QString& name) const {
        QFile file(path(name.toUtf8()));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Prints `sheets` sheets into a file; returns the first failure.
    QString print(const char* name, int sheets) const {
        const QPageLayout layout(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF(10, 10, 10, 10),
                                 QPageLayout::Millimeter);
        PdfFileJob job(path(name), layout, "Squares");
        QString failure = job.begin();
        for (int sheet = 0; sheet < sheets && failure.isEmpty(); ++sheet) {
            Drawing drawing;
            for (int i = 0; i < 500; ++i)
                drawing.drawText(i % 25 * 30, i / 25 * 18, QString::number(i * sheet), 30);
            const QRect frame(8, 8, 745, 523);
            failure = job.print(Sheet{drawing, frame, frame, "Squares"});
        }
        return failure.isEmpty() ? job.finish() : failure;
    }

private:
    QTemporaryDir m_folder;
};

/// While it lives, no file of this process can grow beyond `bytes`: the disk is full.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before{};
    void (*m_handler)(int);
};

TEST_F(PdfFile, IsWholeWithAPageForEachSheet) {
    EXPECT_EQ(print("a.pdf", 3), "");
    const QByteArray pdf = contents("a.pdf");
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    EXPECT_TRUE(pdf.trimmed().endsWith("%%EOF"));
    EXPECT_EQ(pdf.count("/Type /Page\n"), 3);
    EXPECT_EQ(files(), QStringList{"a.pdf"});
}

TEST_F(PdfFile, ThatADiskCantTakeIsNeverClaimedAndAnEarlierOneStays) {
    ASSERT_EQ(print("earlier.pdf", 4), "");
    const QByteArray earlier = contents("earlier.pdf");
    const auto size = static_cast<rlim_t>(earlier.size());
    for (const rlim_t room : {rlim_t{0}, rlim_t{1000}, size / 2, size - 100, size - 1}) {
        const FullDisk disk(room);
        const QString failure = print("earlier.pdf", 4);
        EXPECT_TRUE(failure.contains("earlier.pdf")) << room;
        EXPECT_TRUE(failure.contains("File too large")) << failure.toStdString();
        EXPECT_EQ(contents("earlier.pdf"), earlier) << room;
        EXPECT_EQ(files(), QStringList{"earlier.pdf"}) << room;
    }
    EXPECT_EQ(print("earlier.pdf", 4), "");
}

TEST_F(PdfFile, ThatCantBeWrittenIsToldAtOnce) {
    PdfFileJob job(path("nowhere/a.pdf"), QPageLayout(), "Squares");
    const QString failure = job.begin();
    EXPECT_TRUE(failure.contains("nowhere/a.pdf"));
    EXPECT_TRUE(failure.contains("No such file or directory"));
}

TEST_F(PdfFile, WithoutSheetsOrAnEndDoesNotAppear) {
    EXPECT_EQ(print("none.pdf", 0), "");
    {
        PdfFileJob job(path("dropped.pdf"), QPageLayout(), "Squares");
        const Drawing drawing;
        EXPECT_EQ(job.begin(), "");
        EXPECT_EQ(job.print(Sheet{drawing, QRect(0, 0, 10, 10), QRect(0, 0, 10, 10), "Squares"}), "");
    }
    EXPECT_EQ(files(), QStringList());
}

TEST(QueueJob, ForAPrinterThatIsGoneSaysSo) {
    QueueJob job(std::make_unique<QPrinter>());
    EXPECT_TRUE(job.begin().contains("no such printer"));
}

} // namespace
} // namespace quarvelle::testing
