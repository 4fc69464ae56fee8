#include "packaging/demo/BoardReader.h"

#include <QPainter>
#include <array>
#include <cstdlib>
#include <functional>
#include <limits>
#include <numeric>
#include <stdexcept>

#include "ui/Drawing.h"

namespace quarvelle::demo {

namespace {

constexpr int rowHeight = 18;
constexpr int smallestOrder = 5;
constexpr int narrowestCell = 24;

/// How many black pixels follow each other from `from` in steps of `step`.
int blackRun(const QImage& picture, QPoint from, QPoint step) {
    int length = 0;
    for (QPoint at = from; picture.rect().contains(at) && picture.pixel(at) == qRgb(0, 0, 0); at += step)
        ++length;
    return length;
}

/// The brightness of each pixel between a cell's grid lines, but for the last column, where the first digit
/// of an answer in the next cell may reach.
QByteArray insideOf(const QImage& gray, QPoint corner, int cellWidth) {
    QByteArray inside;
    for (int y = corner.y() + 1; y < corner.y() + rowHeight; ++y)
        inside.append(reinterpret_cast<const char*>(gray.constScanLine(y)) + corner.x() + 1, cellWidth - 2);
    return inside;
}

int difference(const QByteArray& a, const QByteArray& b) {
    return std::transform_reduce(a.begin(), a.end(), b.begin(), 0, std::plus<>(), [](char left, char right) {
        return std::abs(static_cast<unsigned char>(left) - static_cast<unsigned char>(right));
    });
}

struct Look {
    QByteArray inside;
    int rank;
};

/// What each number looks like in a cell, given or answered. All are drawn in one go, since how far the
/// digits are condensed may depend on the widest number of a drawing.
std::vector<Look> looksOf(const std::vector<QString>& texts, int cellWidth) {
    constexpr std::array<int, 2> insets{2, -1};
    const auto corner = [cellWidth](std::size_t column, int rank) {
        return QPoint(cellWidth + 2 * static_cast<int>(column) * cellWidth, (rank + 1) * rowHeight);
    };
    const auto count = static_cast<int>(texts.size());
    Drawing drawing;
    for (int rank = 0; rank < count; ++rank) {
        const QString& text = texts[static_cast<std::size_t>(rank)];
        const int signRoom = texts.front().startsWith('-') && !text.startsWith('-') ? 3 : 0;
        for (std::size_t column = 0; column < insets.size(); ++column) {
            const int inset = insets[column] + signRoom;
            const QPoint at = corner(column, rank) + QPoint(inset, 3);
            drawing.drawText(at.x(), at.y(), text, cellWidth - 1 - inset);
        }
    }
    const QPoint end = corner(insets.size(), count);
    QImage picture(end.x(), end.y(), QImage::Format_Grayscale8);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    drawing.replay(painter);
    painter.end();

    std::vector<Look> looks;
    for (int rank = Board::blank; rank < count; ++rank)
        for (std::size_t column = 0; column < insets.size(); ++column)
            looks.push_back({insideOf(picture, corner(column, rank), cellWidth), rank});
    return looks;
}

/// The number that a cell looks most like. Something is allowed for how condensed digits fall between pixels;
/// for a blank, which has no ink, nothing.
int rankOf(const QByteArray& inside, const std::vector<Look>& looks) {
    const Look* best = nullptr;
    int least = std::numeric_limits<int>::max();
    for (const Look& look : looks) {
        const int found = difference(inside, look.inside);
        if (found < least) {
            least = found;
            best = &look;
        }
    }
    const int ink = difference(inside, looks.front().inside);
    if (least > ink / 3)
        throw std::runtime_error("a cell shows something else than a number of the square");
    return best->rank;
}

/// The grid: its size from its black edges, checked against every line inside it.
Board findGrid(const QImage& picture, int order) {
    const QPoint right(1, 0);
    const QPoint down(0, 1);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QPoint corner(x, y);
            const int width = blackRun(picture, corner, right) - 1;
            if (width < smallestOrder * narrowestCell)
                continue;
            const int height = blackRun(picture, corner, down) - 1;
            if (height < smallestOrder * rowHeight)
                continue;
            if (height != order * rowHeight || width % order != 0)
                throw std::runtime_error("the board has another size");
            const int cellWidth = width / order;
            for (int line = 0; line <= order; ++line)
                if (blackRun(picture, corner + line * cellWidth * right, down) != height + 1 ||
                    blackRun(picture, corner + line * rowHeight * down, right) != width + 1)
                    throw std::runtime_error("a grid line is broken");
            return {order, corner, cellWidth, {}};
        }
    }
    throw std::runtime_error("there is no board on the screen");
}

/// In a 5 by 5 square a cell adds up to the Magic Total with the four cells one or two steps away from it,
/// straight or diagonally, with wrap-around.
void addCrosses(std::vector<std::vector<QPoint>>& lines) {
    constexpr int n = 5;
    for (int place = 0; place < n * n; ++place)
        for (const QPoint arm : {QPoint(1, 0), QPoint(2, 0), QPoint(1, 1), QPoint(2, 2)}) {
            const QPoint centre(place % n, place / n);
            std::vector<QPoint> cross{centre};
            QPoint offset = arm;
            for (int quarter = 0; quarter < 4; ++quarter) {
                cross.emplace_back((centre.x() + offset.x() + n) % n, (centre.y() + offset.y() + n) % n);
                offset = {-offset.y(), offset.x()};
            }
            lines.push_back(cross);
        }
}

/// The places of all lines that add up to the Magic Total: rows, columns and both kinds of diagonals with
/// their wrap around the edges.
std::vector<std::vector<QPoint>> linesOf(int n) {
    std::vector<std::vector<QPoint>> lines;
    for (int line = 0; line < n; ++line) {
        std::array<std::vector<QPoint>, 4> through;
        for (int i = 0; i < n; ++i) {
            through[0].emplace_back(i, line);
            through[1].emplace_back(line, i);
            through[2].emplace_back(i, (line + i) % n);
            through[3].emplace_back(i, (line + n - i) % n);
        }
        lines.insert(lines.end(), through.begin(), through.end());
    }
    if (n == 5)
        addCrosses(lines);
    return lines;
}

struct LineCount {
    int sum = 0;
    int open = 0;
    QPoint lastOpen;
};

LineCount count(Board& board, const std::vector<QPoint>& line) {
    LineCount counted;
    for (const QPoint& place : line) {
        const int rank = board.at(place.x(), place.y());
        if (rank == Board::blank) {
            ++counted.open;
            counted.lastOpen = place;
        } else {
            counted.sum += rank;
        }
    }
    return counted;
}

void requireDifferentNumbers(const Board& board) {
    std::vector<bool> seen(board.ranks.size());
    for (const int rank : board.ranks) {
        if (rank == Board::blank)
            continue;
        if (rank < 0 || rank >= board.order * board.order || seen[static_cast<std::size_t>(rank)])
            throw std::runtime_error("a number is not of this square, or stands in it twice");
        seen[static_cast<std::size_t>(rank)] = true;
    }
}

} // namespace

Board readBoard(const QImage& picture, int order, const std::vector<QString>& texts) {
    Board board = findGrid(picture, order);
    const QImage gray = picture.convertToFormat(QImage::Format_Grayscale8);
    const std::vector<Look> looks = looksOf(texts, board.cellWidth);
    for (int y = 0; y < order; ++y) {
        for (int x = 0; x < order; ++x) {
            const QPoint corner = board.corner + QPoint(x * board.cellWidth, y * rowHeight);
            board.ranks.push_back(rankOf(insideOf(gray, corner, board.cellWidth), looks));
        }
    }
    requireDifferentNumbers(board);
    return board;
}

std::vector<Answer> solve(Board board) {
    const int n = board.order;
    const int total = n * (n * n - 1) / 2;
    const auto lines = linesOf(n);
    std::vector<Answer> answers;
    for (bool progress = true; progress;) {
        progress = false;
        for (const auto& line : lines) {
            const LineCount counted = count(board, line);
            if (counted.open != 1)
                continue;
            const Answer answer{counted.lastOpen.x(), counted.lastOpen.y(), total - counted.sum};
            board.at(answer.x, answer.y) = answer.rank;
            requireDifferentNumbers(board);
            answers.push_back(answer);
            progress = true;
        }
    }
    for (const auto& line : lines) {
        const LineCount counted = count(board, line);
        if (counted.open > 0 || counted.sum != total)
            throw std::runtime_error("the puzzle can't be solved line by line");
    }
    return answers;
}

} // namespace quarvelle::demo
