#pragma once

#include <QWidget>

#include "engine/ProgramState.h"
#include "ui_MainPage.h"

namespace quarvelle {

/// The settings of the next square and the readouts beside them, which follow every key released in the size,
/// starting-number and distance boxes.
class MainPage : public QWidget {
    Q_OBJECT

public:
    explicit MainPage(ProgramState& state, QWidget* parent = nullptr);

    const Ui::MainPage& controls() const { return m_controls; }

    void Text2_KeyUp(int keyCode);
    void text4_KeyUp(int keyCode);
    void Text5_KeyUp(int keyCode);

    /// Takes `n`, an order, as the size: `squareSize`, the readouts and the count explanation.
    void acceptSize(int n);
    /// Stores `magicTotalText` and shows the Magic Total and the last number of the current settings.
    void showReadouts();
    /// Offers practice only for a board that fits and batches only up to order 101, both only for numbers
    /// that can't be taken for blanks; says "(Larger than Page)" where practice is refused. Measures the
    /// board.
    void fitboard();
    /// Gives the keyboard to the practice button, or to the size box while practice is refused.
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
