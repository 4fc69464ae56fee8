#include "packaging/demo/BoardReader.h"

#include <QHash>
#include <QPainter>
#include <array>
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

/// The pixels between a cell's grid lines, but for the last column, where the first digit of an answer in the
/// next cell may reach.
QByteArray cellPixels(const QImage& picture, QPoint corner, int cellWidth) {
    const QImage cell = picture.copy(corner.x() + 1, corner.y() + 1, cellWidth - 2, rowHeight - 1)
                            .convertToFormat(QImage::Format_RGB32);
    return QByteArray(reinterpret_cast<const char*>(cell.constBits()), cell.sizeInBytes());
}

QByteArray drawnCell(const QString& text, int inset, int cellWidth) {
    QImage cell(cellWidth + 1, rowHeight + 1, QImage::Format_RGB32);
    cell.fill(Qt::white);
    Drawing drawing;
    drawing.drawText(inset, 3, text, cellWidth - 1 - inset);
    QPainter painter(&cell);
    drawing.replay(painter);
    painter.end();
    return cellPixels(cell, QPoint(), cellWidth);
}

/// What each number looks like in a cell, given or answered.
QHash<QByteArray, int> looks(const std::vector<QString>& texts, int cellWidth) {
    constexpr int givenInset = 2;
    constexpr int answerInset = -1;
    QHash<QByteArray, int> ranks{{drawnCell({}, 0, cellWidth), Board::blank}};
    int rank = 0;
    for (const QString& text : texts) {
        const int signRoom = texts.front().startsWith('-') && !text.startsWith('-') ? 3 : 0;
        for (const int inset : {givenInset, answerInset}) {
            const QByteArray pixels = drawnCell(text, inset + signRoom, cellWidth);
            if (ranks.value(pixels, rank) != rank)
                throw std::runtime_error("two numbers look alike: " + text.toStdString());
            ranks.insert(pixels, rank);
        }
        ++rank;
    }
    return ranks;
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
    const QHash<QByteArray, int> ranks = looks(texts, board.cellWidth);
    for (int y = 0; y < order; ++y) {
        for (int x = 0; x < order; ++x) {
            const QPoint corner = board.corner + QPoint(x * board.cellWidth, y * rowHeight);
            const auto found = ranks.find(cellPixels(picture, corner, board.cellWidth));
            if (found == ranks.end())
                throw std::runtime_error("cell (" + std::to_string(x + 1) + ", " + std::to_string(y + 1) +
                                         ") can't be read");
            board.ranks.push_back(*found);
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
