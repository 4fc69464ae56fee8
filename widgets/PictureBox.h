#pragma once

#include <QWidget>

namespace quarvelle {

/// A picture of a 5 by 5 square with some cells marked. Which cells follows from the widget's object name; a
/// name that has no picture shows an unmarked square.
class PictureBox : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quarvelle
