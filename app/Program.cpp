#include "app/Program.h"

#include "practice/AnswerEntry.h"
#include "practice/MenuCommands.h"
#include "practice/PracticeDriver.h"

namespace quarvelle {

Program::Program(RandomSource& random, EventQueue& events) {
    new MenuCommands(m_window);
    new AnswerEntry(m_window);
    new PracticeDriver(m_window, random, events);
}

} // namespace quarvelle
