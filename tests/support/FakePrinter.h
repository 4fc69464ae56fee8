#pragma once

#include <functional>
#include <vector>

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
    std::vector<QString> told;

    std::unique_ptr<PrintJob> choose(const QString& name) override {
        document = name;
        sheets.clear();
        told.clear();
        steps = 0;
        return dialog() ? std::make_unique<Job>(*this) : nullptr;
    }
    void tellFailure(const QString& reason) override { told.push_back(reason); }

private:
    struct Job final : PrintJob {
        explicit Job(FakePrinter& owner) : printer(owner) {}

        QString begin() override { return step(); }
        QString print(const Sheet& it) override {
            printer.sheets.push_back({it.drawing, it.frame, it.content, it.caption.toStdString()});
            return step();
        }
        QString finish() override { return step(); }
        QString step() const { return ++printer.steps == printer.failingStep ? "paper jam" : ""; }

        FakePrinter& printer;
    };
};

} // namespace quarvelle::testing
