#include "ui/PictureBox.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <vector>

namespace quarvelle {

namespace {

struct Mark {
    int row;
    int column;
};

struct Picture {
    const char* name;
    std::vector<Mark> plusSigns;
    std::vector<Mark> crosses;
};

const std::array<Picture, 6>& pictures() {
    static const std::array<Picture, 6> table{{
        {"Picture1", {}, {{1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}}},
        {"Picture2", {}, {{1, 4}, {2, 5}, {3, 1}, {4, 2}, {5, 3}}},
        {"Picture3", {{1, 1}, {1, 3}, {2, 2}, {3, 1}, {3, 3}}, {{2, 3}, {2, 5}, {3, 4}, {4, 3}, {4, 5}}},
        {"Picture6", {{1, 2}, {2, 1}, {2, 2}, {2, 3}, {3, 2}}, {{3, 4}, {4, 3}, {4, 4}, {4, 5}, {5, 4}}},
        {"Picture5", {}, {{1, 1}, {1, 5}, {3, 3}, {5, 1}, {5, 5}}},
        {"Picture4", {}, {{1, 3}, {3, 1}, {3, 3}, {3, 5}, {5, 3}}},
    }};
    return table;
}

constexpr int cells = 5;
constexpr int cellWidth = 24;
constexpr int cellHeight = 18;
constexpr double reach = 5; ///< of a mark from the middle of its cell

void drawGrid(QPainter& painter) {
    constexpr int width = cells * cellWidth;
    constexpr int height = cells * cellHeight;
    painter.fillRect(QRect(0, 0, width + 1, height + 1), Qt::white);
    for (int line = 0; line <= cells; ++line) {
        painter.fillRect(QRect(line * cellWidth, 0, 1, height + 1), Qt::black);
        painter.fillRect(QRect(0, line * cellHeight, width + 1, 1), Qt::black);
    }
}

QPointF middle(const Mark& mark) {
    return {(mark.column - 0.5) * cellWidth + 0.5, (mark.row - 0.5) * cellHeight + 0.5};
}

void drawStrokes(QPainter& painter, const std::vector<Mark>& marks, QPointF arm, QPointF otherArm) {
    for (const Mark& mark : marks) {
        const QPointF centre = middle(mark);
        painter.drawLine(centre - arm, centre + arm);
        painter.drawLine(centre - otherArm, centre + otherArm);
    }
}

} // namespace

void PictureBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(192, 192, 192));
    const int left = (width() - cells * cellWidth) / 2;
    const int top = (height() - cells * cellHeight) / 2;
    painter.translate(left, top);
    drawGrid(painter);
    const auto picture = std::find_if(pictures().begin(), pictures().end(),
                                      [this](const Picture& entry) { return objectName() == entry.name; });
    if (picture == pictures().end())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0, 128, 0), 2, Qt::SolidLine, Qt::FlatCap));
    drawStrokes(painter, picture->plusSigns, {reach, 0}, {0, reach});
    drawStrokes(painter, picture->crosses, {reach, reach}, {reach, -reach});
}

} // namespace quarvelle
