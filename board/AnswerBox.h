#pragma once

#include "widgets/EntryBox.h"

namespace quarvelle {

/// The box that a cell's number is typed into. The digits typed stand where the board will draw the number.
/// It has no background: the board paints the cell inside its grid lines.
class AnswerBox : public EntryBox {
    Q_OBJECT

public:
    /// Where a text begins, from the cell's corner, and how much further right it does without a minus sign.
    struct Insets {
        QPoint text;
        int signRoom = 0;
    };

    explicit AnswerBox(QWidget* parent = nullptr);

    void setInsets(const Insets& insets);

protected:
    void changeEvent(QEvent* event) override;
    void moveEvent(QMoveEvent* event) override;

private:
    void alignText();

    Insets m_insets;
};

} // namespace quarvelle
