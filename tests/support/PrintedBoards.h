#pragma once

#include <functional>
#include <map>

#include "board/Place.h"
#include "engine/Numbers.h"
#include "print/Printer.h"
#include "tests/support/Lines.h"
#include "widgets/Drawing.h"

namespace quarvelle::testing {

/// A board as a drawing shows it.
struct ShownBoard {
    QRect area;
    TextAtPoint label; ///< the only text outside of all boards since the one before it
    std::map<Place, double> numbers{};
    std::set<Place> shaded{};
};

/// Takes a number or a shade for what it is in its cell, in its exact place.
inline void readCell(ShownBoard& board, const DrawingItem& item, const ProgramState& state) {
    const int width = static_cast<int>(state.cellWidth);
    const auto* filled = std::get_if<FilledRectangle>(&item);
    const auto* text = std::get_if<TextAtPoint>(&item);
    const QPoint inside = (text ? text->point : filled->rectangle.topLeft()) - board.area.topLeft();
    const Place place{inside.x() / width + 1, inside.y() / 18 + 1};
    const QPoint corner = board.area.topLeft() + QPoint((place.across - 1) * width, (place.down - 1) * 18);
    if (filled) {
        const QRect room(corner + QPoint(1, 1), QSize(width - 1, 17));
        EXPECT_TRUE(*filled == FilledRectangle(room, QColor(192, 192, 192))) << "a shade beside its cell";
        EXPECT_TRUE(board.shaded.insert(place).second) << "shaded twice";
        return;
    }
    const double number = leadingNumber(text->text.toStdString());
    EXPECT_TRUE(board.numbers.emplace(place, number).second) << "two numbers in a cell";
    // Beside negative numbers the others keep room for a sign; so does a shaded answer.
    const bool signRoom = state.startNumber < 0 && (number >= 0 || board.shaded.count(place) != 0);
    const int inset = signRoom ? 5 : 2;
    const auto expected = QString::fromStdString(numberText(number));
    EXPECT_TRUE(*text == TextAtPoint(corner + QPoint(inset, 3), expected, width - inset - 1))
        << "a number out of its place: " << text->text.toStdString();
}

/// The boards of a drawing, in order. What is missing, a pixel out of its place, there twice or no part of a
/// board fails the test.
inline std::vector<ShownBoard> boardsOf(const Drawing& drawing, const ProgramState& state) {
    std::vector<ShownBoard> boards;
    std::vector<QRect> missing; // lines of the grid
    TextAtPoint label;
    for (const DrawingItem& item : drawing.items() | untilFailure) {
        const auto* text = std::get_if<TextAtPoint>(&item);
        const auto [area, color] = text ? FilledRectangle() : std::get<FilledRectangle>(item);
        if (text && (boards.empty() || !boards.back().area.contains(text->point))) {
            EXPECT_EQ(label.text, "") << "a stray text";
            label = *text;
        } else if (color == Qt::white) {
            for (int x = area.left(); x <= area.right(); x += static_cast<int>(state.cellWidth))
                missing.emplace_back(x, area.top(), 1, area.height());
            for (int y = area.top(); y <= area.bottom(); y += 18)
                missing.emplace_back(area.left(), y, area.width(), 1);
            for (const ShownBoard& other : boards | untilFailure)
                EXPECT_FALSE(other.area.adjusted(-15, -15, 15, 15).intersects(area));
            boards.push_back({area, std::exchange(label, {})});
        } else if (color == Qt::black) {
            EXPECT_EQ(std::erase(missing, area), 1U) << "a line of no grid";
        } else if (boards.empty()) {
            ADD_FAILURE() << "a shade without a board";
        } else {
            readCell(boards.back(), item, state);
        }
    }
    EXPECT_TRUE(missing.empty()) << "a line of a grid is missing";
    EXPECT_EQ(label.text, "") << "a stray text";
    return boards;
}

/// A printer that keeps its sheets and fails where it is told to. Its dialog is answered beforehand.
class FakePrinter final : public Printer {
public:
    struct Printed {
        Drawing drawing;
        QRect content;
        double scale;
        QString caption;
    };

    /// Whether the person prints, and what they change of the order.
    std::function<bool(PrintOrder&)> dialog = [](PrintOrder&) { return true; };
    int failingStep = 0; ///< of the job's beginning, its sheets and its end, from 1; 0 for none

    // Of the last document:
    QString document;
    std::vector<Printed> sheets;
    int steps = 0;
    int failuresTold = 0;
    QString told; ///< last of all

    PrintOrder choose(const QString& name, int sheetsOffered) override {
        document = name;
        sheets.clear();
        steps = failuresTold = 0;
        PrintOrder order;
        order.destination = "sent to Fake";
        order.paper = {277, 190};
        order.date = QDate(2026, 11, 23);
        order.lastSheet = sheetsOffered;
        if (dialog(order))
            order.job = std::make_unique<Job>(*this);
        return order;
    }
    void tell(const QString& message) override {
        told = message;
        failuresTold += message == "paper jam";
    }

private:
    struct Job final : PrintJob {
        explicit Job(FakePrinter& owner) : printer(owner) {}

        QString begin() override { return ++printer.steps == printer.failingStep ? "paper jam" : ""; }
        QString print(const Sheet& sheet) override {
            printer.sheets.push_back({sheet.drawing, sheet.content, sheet.scale, sheet.caption});
            return begin();
        }
        QString finish() override { return begin(); }

        FakePrinter& printer;
    };
};

} // namespace quarvelle::testing
