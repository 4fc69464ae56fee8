#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <map>

#include "engine/Numbers.h"
#include "print/Printer.h"
#include "tests/support/Lines.h"
#include "widgets/Drawing.h"

namespace quarvelle::testing {

/// A board as a drawing shows it.
struct ShownBoard {
    QRect area;
    TextAtPoint label;                ///< the only text outside of all boards since the one before it
    std::map<Cell, double> numbers{}; ///< by column and row, from 1
    std::set<Cell> shaded{};
};

/// The boards of a drawing, in order. What is missing, a pixel out of its place, there twice or no part of a
/// board fails the test.
inline std::vector<ShownBoard> boardsOf(const Drawing& drawing, const ProgramState& state) {
    const int width = static_cast<int>(state.cellWidth);
    std::vector<ShownBoard> boards;
    std::vector<QRect> missing;
    TextAtPoint label;
    for (const DrawingItem& item : drawing.items()) {
        const auto* filled = std::get_if<FilledRectangle>(&item);
        const auto* text = std::get_if<TextAtPoint>(&item);
        if (text && (boards.empty() || !boards.back().area.contains(text->point))) {
            EXPECT_TRUE(label.text.isEmpty()) << "a stray text: " << label.text.toStdString();
            label = *text;
        } else if (filled && filled->color == Qt::white) {
            const QRect area = filled->rectangle;
            for (int x = area.left(); x <= area.right(); x += width)
                missing.emplace_back(x, area.top(), 1, area.height());
            for (int y = area.top(); y <= area.bottom(); y += 18)
                missing.emplace_back(area.left(), y, area.width(), 1);
            for (const ShownBoard& other : boards)
                EXPECT_FALSE(other.area.adjusted(-15, -15, 15, 15).intersects(area));
            boards.push_back({area, std::exchange(label, {})});
        } else if (filled && filled->color == Qt::black) {
            EXPECT_EQ(std::erase(missing, filled->rectangle), 1U);
        } else if (boards.empty()) {
            ADD_FAILURE() << "a shade without a board";
        } else {
            auto& [area, ignored, numbers, shaded] = boards.back();
            const QPoint inside = (text ? text->point : filled->rectangle.topLeft()) - area.topLeft();
            const Cell cell{inside.x() / width + 1, inside.y() / 18 + 1};
            const QPoint corner = area.topLeft() + QPoint((cell.row - 1) * width, (cell.column - 1) * 18);
            if (filled) {
                const QRect room(corner + QPoint(1, 1), QSize(width - 1, 17));
                EXPECT_TRUE(*filled == FilledRectangle(room, QColor(192, 192, 192)));
                EXPECT_TRUE(shaded.insert(cell).second);
                continue;
            }
            const double number = leadingNumber(text->text.toStdString());
            EXPECT_TRUE(numbers.emplace(cell, number).second) << "two numbers in a cell";
            // Beside negative numbers the others keep room for a sign; so does a shaded answer.
            const bool signRoom = state.startNumber < 0 && (number >= 0 || shaded.count(cell) != 0);
            const int inset = signRoom ? 5 : 2;
            const auto expected = QString::fromStdString(numberText(number));
            EXPECT_TRUE(*text == TextAtPoint(corner + QPoint(inset, 3), expected, width - inset - 1));
        }
    }
    EXPECT_TRUE(missing.empty());
    EXPECT_TRUE(label.text.isEmpty()) << "a stray text: " << label.text.toStdString();
    return boards;
}

/// A printer that keeps its sheets and fails where it is told to. Its dialog is answered beforehand.
class FakePrinter final : public Printer {
public:
    struct Printed {
        Drawing drawing;
        QRect content;
        double scale;
        std::string caption;
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
            printer.sheets.push_back(
                {sheet.drawing, sheet.content, sheet.scale, sheet.caption.toStdString()});
            return begin();
        }
        QString finish() override { return begin(); }

        FakePrinter& printer;
    };
};

} // namespace quarvelle::testing
