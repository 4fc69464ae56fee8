#include "app/Program.h"

#include "practice/AnswerEntry.h"
#include "practice/MenuCommands.h"
#include "practice/PracticeDriver.h"
#include "practice/PracticeKeys.h"
#include "practice/ShowLine.h"
#include "print/Batch.h"

namespace quarvelle {

Program::Program(RandomSource& random, EventQueue& events, Printer* printer) : m_platformPrinter(m_window) {
    new MenuCommands(m_window);
    new PracticeKeys(m_window, *new AnswerEntry(m_window));
    new ShowLine(m_window);
    new PracticeDriver(m_window, random, events);
    new Batch(m_window, random, events, printer ? *printer : m_platformPrinter);
}

} // namespace quarvelle
