#include "practice/LineTexts.h"

#include <QStringList>
#include <algorithm>
#include <array>

#include "engine/MagicArithmetic.h"
#include "engine/Numbers.h"
#include "engine/PropertyShapes.h"
#include "engine/Stepping.h"

namespace quarvelle {

namespace {

QString textOf(double number) {
    return QString::fromStdString(numberText(number));
}

QString summand(double number) {
    return number < 0 ? '(' + textOf(number) + ')' : textOf(number);
}

/// The numbers that a line shows.
std::vector<double> numbersOn(const ProgramState& state, const std::vector<Place>& line) {
    std::vector<double> numbers;
    for (const Place place : line)
        if (const double number = cellAt(state.puzzle, cellOf(place)); !isBlank(number))
            numbers.push_back(number);
    return numbers;
}

QString sumOf(const ProgramState& state, const std::vector<Place>& line) {
    return textOf(SquareNumbers(state.startNumber, state.distance).sumOf(numbersOn(state, line)));
}

QString totalOf(const ProgramState& state) {
    return textOf(magicTotal(state.squareSize, state.startNumber, state.distance));
}

/// The summands but for `left` of them in the middle.
QString joined(const QStringList& summands, qsizetype left) {
    if (left == 0)
        return summands.join(" + ");
    const qsizetype before = (summands.size() - left + 1) / 2;
    QStringList shown = summands.mid(0, before);
    shown << QString(QChar(0x2026)) << summands.mid(before + left);
    return shown.join(" + ");
}

QString rowAndColumn(Place place) {
    return QString("row %1, column %2").arg(place.down).arg(place.across);
}

QString shapeName(int kind, Place through, int n) {
    // In the order of the families.
    constexpr std::array<const char*, shapeFamilies.size()> names{
        "Cross-diagonal", "Scattered cross-diagonal", "Cross-line", "Scattered cross-line"};
    const Place centre = placeOf(wrapped(cellOf(through) + centreOffset(kind), n));
    return QString("%1 around %2").arg(names[static_cast<std::size_t>(familyOf(kind))], rowAndColumn(centre));
}

} // namespace

std::vector<Place> placesOnLine(const ProgramState& state, int kind, Place through) {
    std::vector<Place> places;
    walkLine(kind, cellOf(through), state.squareSize, [&](Cell cell) {
        places.push_back(placeOf(cell));
        return true;
    });
    std::sort(places.begin(), places.end(),
              [](Place a, Place b) { return std::pair(a.down, a.across) < std::pair(b.down, b.across); });
    if (kind == WholeLine::antiDiagonal)
        std::reverse(places.begin(), places.end());
    return places;
}

QString lineName(const ProgramState& state, int kind, Place through) {
    const int n = state.squareSize;
    const Place begin = placesOnLine(state, kind, through).front();
    bool isAroundEdge = false;
    QString name;
    switch (kind) {
    case WholeLine::column:
        // What the engine calls a column runs across the board.
        return QString("Row %1").arg(begin.down);
    case WholeLine::row:
        return QString("Column %1").arg(begin.across);
    case WholeLine::antiDiagonal:
    case WholeLine::diagonal:
        name = QString("Diagonal going %1 from ").arg(kind == WholeLine::diagonal ? "down" : "up") +
               rowAndColumn(begin);
        isAroundEdge = begin.across != 1;
        break;
    default:
        name = shapeName(kind, through, n);
        isAroundEdge = !fitsShape(PropertyMode::onlyMain, kind, cellOf(through), n);
    }
    return isAroundEdge ? name + ", around the edge" : name;
}

QString lineSum(const ProgramState& state, const std::vector<Place>& line, const QFontMetrics& metrics,
                int room) {
    QStringList summands;
    for (const double number : numbersOn(state, line))
        summands << summand(number);
    const QString end = QString(" = %1; the Magic Total is %2.").arg(sumOf(state, line), totalOf(state));
    qsizetype left = 0;
    while (left < summands.size() && metrics.horizontalAdvance(joined(summands, left) + end) > room)
        ++left;
    return joined(summands, left) + end;
}

QString lineNumbers(const ProgramState& state, const std::vector<Place>& line) {
    QStringList spoken;
    for (const Place place : line) {
        const double number = cellAt(state.puzzle, cellOf(place));
        spoken << (isBlank(number) ? QString("blank") : textOf(number));
    }
    return spoken.join(", ");
}

QString spokenSum(const ProgramState& state, const std::vector<Place>& line) {
    return QString("Sum %1, Magic Total %2").arg(sumOf(state, line), totalOf(state));
}

} // namespace quarvelle
