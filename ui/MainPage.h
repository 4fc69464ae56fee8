#pragma once

#include <QWidget>

#include "engine/ProgramState.h"
#include "ui_MainPage.h"

namespace quarvelle {

/// The settings of the next square, and the readouts, which are updated at every key released in the boxes
/// for size, starting number and distance.
class MainPage : public QWidget {
    Q_OBJECT

public:
    explicit MainPage(ProgramState& state, QWidget* parent = nullptr);

    const Ui::MainPage& controls() const { return m_controls; }

    void Text2_KeyUp(int keyCode);
    void text4_KeyUp(int keyCode);
    void Text5_KeyUp(int keyCode);

    /// Makes `n`, an order, the size: sets `squareSize`, and updates the readouts and the count of squares.
    void acceptSize(int n);
    /// Stores `magicTotalText` and shows the Magic Total and the last number of the current settings.
    void showReadouts();
    /// Measures the board and enables the buttons that can be used: practice only if the board fits, batches
    /// only up to order 101, both only for numbers without a fault. Where practice is disabled, a caption
    /// says why: "(Larger than Page)", or what is wrong with the numbers.
    void fitboard();
    /// Why the practice button is disabled; empty if it isn't.
    QString whyNoPractice() const { return whyDisabled(m_controls.Command4); }
    /// Gives the keyboard to the practice button, or to the size box while that button is disabled.
    void focusPractice();

signals:
    void sizeAccepted(int n);

private:
    void stepSize(int keyCode);
    void showcounts(int n);
    QString whyDisabled(const QWidget* button) const;

    ProgramState& m_state;
    Ui::MainPage m_controls;
};

} // namespace quarvelle
