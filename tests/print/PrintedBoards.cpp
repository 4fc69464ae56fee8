#include "tests/print/PrintedBoards.h"

#include <algorithm>
#include <cmath>

namespace quarvelle::testing {

namespace {

constexpr int rowHeight = 18;

bool isBackground(const FilledRectangle& item) {
    return item.color == Qt::white;
}

} // namespace

PrintedBoards::PrintedBoards(const Drawing& drawing, int cellWidth) {
    for (const DrawingItem& item : drawing.items())
        if (const auto* filled = std::get_if<FilledRectangle>(&item)) {
            if (isBackground(*filled))
                boards.push_back({filled->rectangle.adjusted(0, 0, -1, -1), {}, 0});
            else if (filled->color != Qt::black)
                ++boards.back().shaded;
        }
    for (const DrawingItem& item : drawing.items())
        if (const auto* text = std::get_if<TextAtPoint>(&item)) {
            const auto board = std::find_if(boards.begin(), boards.end(), [&](const PrintedBoard& it) {
                return it.area.contains(text->point);
            });
            if (board == boards.end())
                labels.push_back(*text);
            else
                board->cells[{(text->point.x() - board->area.left()) / cellWidth,
                              (text->point.y() - board->area.top()) / rowHeight}] = text->text.toStdString();
        }
}

std::string completenessFault(const std::map<std::pair<int, int>, std::string>& cells, int n, double s,
                              double d) {
    if (static_cast<int>(cells.size()) != n * n)
        return std::to_string(cells.size()) + " numbers";
    const auto number = [&](int column, int row) {
        return std::stod(cells.at({column % n, (row % n + n) % n}));
    };
    std::vector<double> numbers;
    numbers.reserve(cells.size());
    for (const auto& [place, text] : cells)
        numbers.push_back(std::stod(text));
    std::sort(numbers.begin(), numbers.end());
    for (int k = 0; k < n * n; ++k)
        if (std::fabs(numbers[static_cast<std::size_t>(k)] - (s + k * d)) > 1e-9)
            return "number " + std::to_string(k) + " is missing";
    const double total = n * s + d * n * (n * n - 1.0) / 2;
    for (int line = 0; line < n; ++line) {
        double sums[4] = {};
        for (int i = 0; i < n; ++i) {
            sums[0] += number(line, i);
            sums[1] += number(i, line);
            sums[2] += number(i, line + i);
            sums[3] += number(i, line - i);
        }
        for (const double sum : sums)
            if (std::fabs(sum - total) > 1e-6)
                return "line " + std::to_string(line) + " adds up to " + std::to_string(sum);
    }
    return {};
}

} // namespace quarvelle::testing
