#include <QScrollArea>
#include <QScrollBar>

#include "tests/support/WindowFixture.h"

namespace quarvelle::testing {
namespace {

using LookTest = WindowFixture;

TEST_F(LookTest, CaptionsCanBeReadWhole) {
    EXPECT_FALSE(CaptionLayout("Print how many squares?", page().Label1->font(), {60, 17}, true).fits());
    const auto expectWhole = [](const auto& widgets, int least) {
        EXPECT_GE(widgets.size(), least);
        for (auto* widget : widgets) {
            EXPECT_TRUE(widget->captionLayout().fits()) << widget->text().toStdString();
            const QImage image = widget->grab().toImage();
            EXPECT_TRUE(widget->text().isEmpty() ||
                        image.convertToFormat(QImage::Format_Indexed8).colorCount() > 1)
                << "not drawn";
        }
    };
    const std::array<const char*, 3> rows[] = {{"5", "1", "1"},        {"11", "-77777", "1"},
                                               {"13", "0.1", "0.03"},  {"29", "1", "99999999"},
                                               {"97", "8888888", "1"}, {"101", "1", "1"}};
    for (const auto& [size, start, distance] : rows) {
        enter(size, start, distance);
        SCOPED_TRACE(size);
        expectWhole(window().findChildren<CaptionLabel*>(), 21);
        expectWhole(window().findChildren<CaptionCheckBox*>(), 11);
        expectWhole(window().findChildren<CaptionButton*>(), 5);
    }
}

TEST_F(LookTest, TextIsBlackOnTheGivenColoursWhateverTheTheme) {
    const QPalette light = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(35, 35, 38), QColor(35, 35, 38)));
    for (const auto* label : window().findChildren<CaptionLabel*>())
        EXPECT_EQ(label->palette().color(QPalette::WindowText),
                  label == page().Label19 ? Qt::blue : Qt::black);
    for (const auto* box : window().findChildren<CaptionCheckBox*>()) {
        EXPECT_EQ(box->palette().color(QPalette::WindowText), Qt::black);
        EXPECT_EQ(box->palette().color(box->backgroundRole()), QColor(0, 255, 0));
        EXPECT_EQ(box->palette().color(QPalette::Base), Qt::white) << "the tick is black as well";
    }
    EXPECT_EQ(answerBox().palette().color(QPalette::Text), Qt::black);
    EXPECT_GT(answerBox().palette().color(QPalette::Base).lightness(), 200);
    QApplication::setPalette(light);
}

TEST_F(LookTest, SmallScreensScroll) {
    window().setWindowState(Qt::WindowNoState);
    window().resize(500, 300);
    QTest::qWait(0);
    const QScrollArea* client = menus().client;
    for (const QRect inner : {page().Label7->geometry(), properties().Picture4->geometry()}) {
        EXPECT_GE(client->horizontalScrollBar()->maximum() + client->viewport()->width(), inner.right());
        EXPECT_GE(client->verticalScrollBar()->maximum() + client->viewport()->height(), inner.bottom());
    }
}

} // namespace
} // namespace quarvelle::testing
