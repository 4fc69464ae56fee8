#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include "widgets/CaptionLayout.h"

namespace quarvelle {

/// A label that shows all of its text inside its box, condensed if necessary.
class CaptionLabel : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;
    CaptionLayout captionLayout() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRectF captionBox() const; ///< at 100 %
};

/// A check box whose caption may take several lines.
class CaptionCheckBox : public QCheckBox {
    Q_OBJECT

public:
    using QCheckBox::QCheckBox;
    CaptionLayout captionLayout() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& position) const override;

private:
    QRectF captionBox() const; ///< at 100 %
};

/// A push button whose caption may take several lines.
class CaptionButton : public QPushButton {
    Q_OBJECT

public:
    explicit CaptionButton(QWidget* parent = nullptr);
    CaptionLayout captionLayout() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRectF captionBox() const; ///< at 100 %
};

} // namespace quarvelle
