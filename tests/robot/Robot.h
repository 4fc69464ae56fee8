#pragma once

#include <functional>
#include <map>
#include <memory>
#include <random>

#include "app/Program.h"
#include "print/Printer.h"
#include "tests/support/Lines.h"

namespace quarvelle::testing {

/// Does what a person could do, one random step after another, at every page and inside every running
/// operation, and checks after each step what must always hold. The same seed takes the same steps.
class Robot final : public EventQueue, public Printer {
public:
    explicit Robot(unsigned seed);

    /// Takes that many steps and returns how many failed; each failure is printed with its step.
    int run(long steps);
    void fail(const std::string& what);

    void yield() override;
    void wait() override;
    std::unique_ptr<PrintJob> choose(const QString& documentName) override;
    void tellFailure(const QString& reason) override;

private:
    int below(int limit) { return static_cast<int>(m_choices() % static_cast<unsigned>(limit)); }
    template <class Item>
    const Item& oneOf(const std::vector<Item>& items) {
        return items[static_cast<std::size_t>(below(static_cast<int>(items.size())))];
    }
    MainWindow& window() { return m_program->window(); }
    ProgramState& state() { return window().state(); }

    void step();
    void clickControl();
    void clickButton();
    void pressCell();
    void typeAnswer();
    void pressKey();
    void enterNumber();
    void paste();
    void chooseMenuItem();
    void openMenu();
    void resize();

    void check();
    void checkPage();
    void checkMarks();
    void checkReadouts();
    void checkBoard();

    std::mt19937 m_choices;
    SeededRandom m_random;
    std::unique_ptr<Program> m_program;
    long m_step = 0;
    long m_stepsLeft = 0;
    int m_failures = 0;
    bool m_keepsScore = false; ///< practice goes on, and was not started over since the last look
    std::array<int, 3> m_score{};
    std::map<std::string, long> m_seen; ///< how often what was come across
    std::string m_done;
};

} // namespace quarvelle::testing
