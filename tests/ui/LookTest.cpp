#include <QScrollArea>
#include <QScrollBar>

#include "tests/support/WindowFixture.h"

namespace quarvelle {
namespace {

using testing::WindowFixture;

class LookTest : public WindowFixture {
protected:
    void expectWhole(const char* when) {
        const auto check = [when](const auto& widgets) {
            for (const auto* widget : widgets)
                EXPECT_TRUE(widget->captionLayout().fits()) << widget->objectName().toStdString() << ' '
                                                            << widget->text().toStdString() << ' ' << when;
        };
        check(window().template findChildren<CaptionLabel*>());
        check(window().template findChildren<CaptionCheckBox*>());
        check(window().template findChildren<CaptionButton*>());
    }
};

TEST_F(LookTest, CaptionsCanBeReadWhole) {
    EXPECT_GE(window().findChildren<CaptionLabel*>().size(), 21);
    expectWhole("at the start");
    for (const char* size : {"5", "7", "11", "13", "29", "31", "89", "97", "101"}) {
        type(page().Text2, size);
        expectWhole(size);
    }
    for (const auto& [start, distance] :
         {std::pair{"-77777", "1"}, {"1", "99999999"}, {"0.1", "0.03"}, {"8888888", "1"}}) {
        enter("5", start, distance);
        expectWhole(start);
    }
}

TEST_F(LookTest, CaptionLayoutKnowsWhatDoesNotFit) {
    const QFont font = page().Label1->font();
    EXPECT_FALSE(CaptionLayout("Print how many squares?", font, {60, 17}, false).fits());
    EXPECT_FALSE(CaptionLayout("Print how many squares?", font, {60, 17}, true).fits());
    EXPECT_TRUE(CaptionLayout("Print how many squares?", font, {80, 50}, true).fits());
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
    for (const QWidget* inner :
         {static_cast<QWidget*>(page().Label7), static_cast<QWidget*>(properties().Picture4)}) {
        const QPoint corner = inner->geometry().bottomRight();
        EXPECT_GE(client->horizontalScrollBar()->maximum() + client->viewport()->width(), corner.x());
        EXPECT_GE(client->verticalScrollBar()->maximum() + client->viewport()->height(), corner.y());
    }
}

} // namespace
} // namespace quarvelle
