#include "widgets/PictureBox.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <vector>

#include "widgets/PageScale.h"
#include "widgets/PixelGrid.h"

namespace quarvelle {

namespace {

struct Mark {
    int down;
    int across;
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

void drawGrid(QPainter& painter, const PixelGrid& grid, QPoint corner) {
    constexpr int width = cells * cellWidth;
    constexpr int height = cells * cellHeight;
    grid.fill(painter, {corner, QSize(width + 1, height + 1)}, Qt::white);
    for (int line = 0; line <= cells; ++line) {
        grid.fill(painter, {corner + QPoint(line * cellWidth, 0), QSize(1, height + 1)}, Qt::black);
        grid.fill(painter, {corner + QPoint(0, line * cellHeight), QSize(width + 1, 1)}, Qt::black);
    }
}

QPointF middle(const Mark& mark) {
    return {(mark.across - 0.5) * cellWidth + 0.5, (mark.down - 0.5) * cellHeight + 0.5};
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
    const double factor = PageScale::factorOf(*this);
    const QSize size = PageScale::placeOf(*this).size();
    const QPoint corner((size.width() - cells * cellWidth) / 2, (size.height() - cells * cellHeight) / 2);
    drawGrid(painter, PixelGrid::painted(painter, factor), corner);
    painter.scale(factor, factor);
    painter.translate(corner);
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
