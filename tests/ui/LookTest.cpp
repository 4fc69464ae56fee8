#include <QScrollArea>
#include <QScrollBar>
#include <cmath>

#include "engine/Numbers.h"
#include "tests/support/WindowFixture.h"

namespace quarvelle {
namespace {

using testing::WindowFixture;

double luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double light = std::max(luminance(a), luminance(b));
    return (light + 0.05) / (std::min(luminance(a), luminance(b)) + 0.05);
}

QPalette desktop(bool dark) {
    const QColor window = dark ? QColor(35, 35, 38) : QColor(239, 239, 239);
    QPalette palette(window, window);
    palette.setColor(QPalette::Base, dark ? Qt::black : Qt::white);
    return palette;
}

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
        type(page().Text2, "5");
        type(page().text4, start);
        type(page().Text5, distance);
        expectWhole(start);
    }
}

TEST_F(LookTest, CaptionLayoutKnowsWhatDoesNotFit) {
    const QFont font = page().Label1->font();
    EXPECT_FALSE(CaptionLayout("Print how many squares?", font, {60, 17}, false).fits());
    EXPECT_FALSE(CaptionLayout("Print how many squares?", font, {60, 17}, true).fits());
    EXPECT_TRUE(CaptionLayout("Print how many squares?", font, {80, 50}, true).fits());
}

TEST_F(LookTest, TextStandsOutOnEveryTheme) {
    for (const bool dark : {false, true}) {
        QApplication::setPalette(desktop(dark));
        for (const auto* label : window().findChildren<CaptionLabel*>())
            EXPECT_GT(contrast(label->palette().color(QPalette::WindowText),
                               label->palette().color(QPalette::Window)),
                      4.5)
                << label->objectName().toStdString();
        for (const auto* box : window().findChildren<CaptionCheckBox*>()) {
            EXPECT_EQ(box->palette().color(box->backgroundRole()), QColor(0, 255, 0));
            EXPECT_GT(contrast(box->palette().color(QPalette::Text), box->palette().color(QPalette::Base)),
                      4.5);
        }
        for (const auto* box : window().findChildren<EntryBox*>())
            EXPECT_GT(contrast(box->palette().color(QPalette::Text), box->palette().color(QPalette::Base)),
                      4.5);
    }
    QApplication::setPalette(QPalette());
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

TEST_F(LookTest, AnswerBoxShowsTheWidestNumber) {
    const struct {
        const char *size, *start, *distance;
    } rows[] = {{"29", "1", "1"},    {"5", "-24", "1"},       {"5", "1", "0.5"},
                {"5", "0.1", "0.1"}, {"5", "1E+15", "1E+11"}, {"7", "1", "1E-9"}};
    for (const auto& row : rows) {
        type(page().Text2, row.size);
        type(page().text4, row.start);
        type(page().Text5, row.distance);
        practise({[&] {
            const auto blank = *testing::blanksOf(state()).begin();
            press(blank);
            EXPECT_EQ(answerBox().width(), static_cast<int>(state().cellWidth) + 1);
            EXPECT_EQ(answerBox().pos(), QPoint(state().selectedCellX, state().selectedCellY));
            const QFontMetricsF metrics(answerBox().font());
            QString widest;
            for (int cell = 0; cell < state().squareSize * state().squareSize; ++cell) {
                const double value = testing::at(
                    state().square, {1 + cell / state().squareSize, 1 + cell % state().squareSize});
                const auto text = QString::fromStdString(numberText(value));
                widest = metrics.horizontalAdvance(text) > metrics.horizontalAdvance(widest) ? text : widest;
            }
            QTest::keyClicks(&answerBox(), widest);
            EXPECT_EQ(answerBox().text(), widest);
            EXPECT_EQ(answerBox().cursorPositionAt({0, 9}), 0) << widest.toStdString() << " has scrolled";
            EXPECT_LT(metrics.horizontalAdvance(widest), answerBox().width());
        }});
    }
}

} // namespace
} // namespace quarvelle
