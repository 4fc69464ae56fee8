#pragma once

#include "practice/MenuCommands.h"
#include "print/Batch.h"
#include "tests/print/FakePrinter.h"
#include "tests/support/Scripted.h"
#include "ui/MainPage.h"
#include "ui/MainWindow.h"

namespace quarvelle::testing {

/// A window that makes batches for a printer that keeps them.
class BatchWindow {
public:
    MainWindow window;
    ScriptedRandom random;
    ScriptedEvents events;
    FakePrinter printer;

    BatchWindow() {
        new MenuCommands(window);
        m_batch = new Batch(window, random, events, printer);
        window.show();
    }

    const Ui::MainPage& controls() { return window.mainPage().controls(); }
    ProgramState& state() { return window.state(); }
    int cellWidth() { return static_cast<int>(state().cellWidth); }

    /// Sets the boxes as a person does.
    void enter(int order, const QString& start, const QString& distance, const QString& count) {
        controls().Text2->setText(QString::number(order));
        window.mainPage().Text2_KeyUp(0);
        controls().text4->setText(start);
        window.mainPage().text4_KeyUp(0);
        controls().Text5->setText(distance);
        window.mainPage().Text5_KeyUp(0);
        controls().Text1->setText(count);
    }
    /// Presses the button, which does nothing while it is disabled.
    void press() { controls().Command1->click(); }
    Batch& batch() { return *m_batch; }

private:
    Batch* m_batch;
};

} // namespace quarvelle::testing
