#include "print/BatchTexts.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "engine/MagicArithmetic.h"
#include "engine/Numbers.h"
#include "engine/PrimeOrder.h"
#include "engine/ProgramState.h"
#include "print/Printer.h"

namespace quarvelle {

namespace {

QString textOf(double number) {
    return QString::fromStdString(numberText(number));
}

} // namespace

std::string batchTitle(const ProgramState& state) {
    // In the order of the values of `puzzleMode`.
    constexpr std::array<const char*, 3> kinds{"squares", "puzzles", "puzzles and answers"};
    return "Creating " + orderByOrder(state.squareSize) + " Complete Magic Square(s): " +
           // Of 2.5 squares, three are made.
           numberText(std::max(state.printCount - state.squaresSolved, 0.0)) + " out of " +
           numberText(state.printCount) + ' ' + kinds[static_cast<std::size_t>(state.puzzleMode)] +
           " left to print.";
}

QString squareNote(const ProgramState& state, int number) {
    const double total = SquareNumbers(state.startNumber, state.distance).magicTotal(state.squareSize);
    return QString("%1. Magic Total %2").arg(QString::number(number), textOf(total));
}

QString sheetCaption(const ProgramState& state, const QStringList& contents, bool drawsStarts,
                     const QDate& date) {
    const double first = drawsStarts ? state.baseStart : state.startNumber;
    QStringList parts = contents;
    parts << QString("%1 by %1").arg(state.squareSize)
          << (drawsStarts ? "first numbers from " : "first number ") + textOf(first)
          << "distance " + textOf(state.distance);
    if (state.puzzleMode != PuzzleMode::answers)
        parts << (state.difficulty == Difficulty::easy ? "easy" : "challenging");
    parts << date.toString(Qt::ISODate);
    return parts.join(" · ");
}

QString batchEnding(std::int64_t done, std::int64_t sheets, const PrintOrder& order) {
    const QString all = QString("%1 %2 %3")
                            .arg(QString::number(sheets * order.queueCopies),
                                 sheets * order.queueCopies == 1 ? "sheet" : "sheets", order.destination);
    return done == sheets ? all : QString("Stopped: %1 of %2").arg(done * order.queueCopies).arg(all);
}

QString outOfRange(const ProgramState& state) {
    if (numberFault(state) == NumberFault::alike)
        return QString("There is nothing to print: some numbers can't be told apart in 15 digits. "
                       "A larger distance than %1 would do.")
            .arg(textOf(state.distance));
    // The next double below 1e200 would be written as 1E+200.
    constexpr double limit = 9.99999999999999e199;
    const double start = state.startNumber;
    const bool startFits = std::fabs(start) < emptyMarker;
    const double number = startFits ? lastNumber(state.squareSize, start, state.distance) : start;
    const QString digits = std::isfinite(number) ? ", " + textOf(number) + ',' : QString();
    return QString("There is nothing to print: the %1%2 is too %3. The %4 possible is %5.")
        .arg(startFits ? "last number" : "starting number", digits, number < 0 ? "small" : "large",
             number < 0 ? "smallest" : "largest", textOf(std::copysign(limit, number)));
}

} // namespace quarvelle
