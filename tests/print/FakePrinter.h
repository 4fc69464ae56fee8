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
        QRect frame;
        QRect content;
        QString caption;
    };

    bool cancels = false;
    std::function<void()> whileChoosing = [] {};
    bool beginFails = false;
    std::size_t failingSheet = 0; ///< from 1; 0 for none
    bool finishFails = false;

    int asked = 0;
    QString documentName;
    std::vector<Printed> sheets;
    int finished = 0;
    std::vector<QString> told;

    std::unique_ptr<PrintJob> choose(const QString& name) override {
        ++asked;
        documentName = name;
        whileChoosing();
        return cancels ? nullptr : std::make_unique<Job>(*this);
    }
    void tellFailure(const QString& reason) override { told.push_back(reason); }

    std::vector<std::string> captions() const {
        std::vector<std::string> texts;
        for (const Printed& sheet : sheets)
            texts.push_back(sheet.caption.toStdString());
        return texts;
    }

private:
    class Job final : public PrintJob {
    public:
        explicit Job(FakePrinter& printer) : m_printer(printer) {}

        QString begin() override { return m_printer.beginFails ? "no beginning" : QString(); }
        QString print(const Sheet& sheet) override {
            if (m_printer.failingSheet == m_printer.sheets.size() + 1)
                return "paper jam";
            m_printer.sheets.push_back({sheet.drawing, sheet.frame, sheet.content, sheet.caption});
            return {};
        }
        QString finish() override {
            ++m_printer.finished;
            return m_printer.finishFails ? "no end" : QString();
        }

    private:
        FakePrinter& m_printer;
    };
};

} // namespace quarvelle::testing
