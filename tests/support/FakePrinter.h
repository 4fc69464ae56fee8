#pragma once

#include <functional>

#include "print/Printer.h"
#include "ui/Drawing.h"

namespace quarvelle::testing {

/// A printer that keeps its sheets and fails where it is told to. Its dialog is answered beforehand.
class FakePrinter final : public Printer {
public:
    struct Printed {
        Drawing drawing;
        QRect frame, content;
        std::string caption;
    };

    std::function<bool()> dialog = [] { return true; }; ///< whether the person prints
    int failingStep = 0; ///< of the job's beginning, its sheets and its end, from 1; 0 for none

    // Of the last document:
    QString document;
    std::vector<Printed> sheets;
    int steps = 0;
    bool finished = false;
    int failuresTold = 0;

    std::unique_ptr<PrintJob> choose(const QString& name) override {
        document = name;
        sheets.clear();
        steps = failuresTold = 0;
        finished = false;
        return dialog() ? std::make_unique<Job>(*this) : nullptr;
    }
    void tellFailure(const QString& reason) override { failuresTold += reason == "paper jam"; }

private:
    struct Job final : PrintJob {
        explicit Job(FakePrinter& owner) : printer(owner) {}

        QString begin() override { return ++printer.steps == printer.failingStep ? "paper jam" : ""; }
        QString print(const Sheet& it) override {
            printer.sheets.push_back({it.drawing, it.frame, it.content, it.caption.toStdString()});
            return begin();
        }
        QString finish() override {
            printer.finished = true;
            return begin();
        }

        FakePrinter& printer;
    };
};

} // namespace quarvelle::testing
