#pragma once

#include "widgets/EntryBox.h"

namespace quarvelle {

/// The box into which a cell's number is typed. Its digits stand exactly where the board will draw the
/// number. It paints no background; the board does, and leaves the grid lines free.
class AnswerBox : public EntryBox {
    Q_OBJECT

public:
    /// Where a text begins, in pixels from the cell's top-left corner, and how many pixels further right it
    /// begins without a minus sign.
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
