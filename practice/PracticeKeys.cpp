#include "practice/PracticeKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <algorithm>
#include <array>

#include "board/BoardPage.h"
#include "practice/AnswerEntry.h"
#include "ui/MainWindow.h"
#include "widgets/KeyCodes.h"

namespace quarvelle {

namespace {

struct Arrow {
    int key;
    Way way;
};

constexpr std::array<Arrow, 4> arrows{{
    {Qt::Key_Left, {-1, 0}},
    {Qt::Key_Right, {1, 0}},
    {Qt::Key_Up, {0, -1}},
    {Qt::Key_Down, {0, 1}},
}};

/// The modifiers held down. That of the number pad is left out: its arrows and Enter count like the others.
Qt::KeyboardModifiers modifiersOf(const QKeyEvent& key) {
    return key.modifiers() & ~Qt::KeypadModifier;
}

/// Whether the key is the first character of a number.
bool beginsNumber(const QKeyEvent& key) {
    constexpr std::string_view characters = "0123456789+-.";
    return (modifiersOf(key) & ~Qt::ShiftModifier) == Qt::NoModifier && key.text().size() == 1 &&
           characters.find(key.text().front().toLatin1()) != characters.npos;
}

/// Whether the key opens the box on a blank. A repeat of a key held down doesn't: that key has just given an
/// answer or started the run.
bool opensBox(const QKeyEvent& key) {
    constexpr std::array opening{Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_F2};
    return !key.isAutoRepeat() && modifiersOf(key) == Qt::NoModifier &&
           std::find(opening.begin(), opening.end(), key.key()) != opening.end();
}

/// Whether the key, pressed in the box, leaves it for another blank.
bool leavesBox(const QKeyEvent& key, const EntryBox& box) {
    const bool plain = modifiersOf(key) == Qt::NoModifier;
    switch (key.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return plain || modifiersOf(key) == Qt::ShiftModifier;
    case Qt::Key_Up:
    case Qt::Key_Down:
        return plain;
    case Qt::Key_Left:
        return plain && !box.hasSelectedText() && box.cursorPosition() == 0;
    case Qt::Key_Right:
        return plain && !box.hasSelectedText() && box.cursorPosition() == box.text().size();
    default:
        return false;
    }
}

} // namespace

PracticeKeys::PracticeKeys(MainWindow& window, AnswerEntry& answers)
    : QObject(&window), m_window(window), m_answers(answers), m_selection(window) {
    qApp->installEventFilter(this);
    connect(&window.boardPage(), &BoardPage::keyboardAsked, this, [this](Place place) {
        if (m_selection.mayAnswer())
            goTo(place);
    });
}

bool PracticeKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || m_window.state().practising != 1)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (keyCode(key) == KeyCode::q) {
        // The control that has the keyboard gets the key as well.
        m_window.Form_KeyDown(KeyCode::q, static_cast<int>(key.modifiers()));
        return false;
    }
    if (watched == &m_window.boardPage())
        return m_selection.mayAnswer() && boardKey(key);
    return watched == &m_window.boardPage().answerBox() && boxKey(key);
}

/// Returns whether the key was used.
bool PracticeKeys::boardKey(const QKeyEvent& key) {
    if (const auto place = destination(key, false)) {
        goTo(*place);
        return true;
    }
    const bool begins = beginsNumber(key);
    if (!m_selection.isBlank(m_selection.place()) || (!begins && !opensBox(key)))
        return false;
    m_selection.openBox();
    if (begins) {
        QKeyEvent typed(key.type(), key.key(), key.modifiers(), key.text());
        QCoreApplication::sendEvent(&m_window.boardPage().answerBox(), &typed);
    }
    return true;
}

/// Returns whether the key was used; the box doesn't get it then.
bool PracticeKeys::boxKey(const QKeyEvent& key) {
    if (keyCode(key) == KeyCode::enter) {
        // Held down, it has answered already.
        if (!key.isAutoRepeat())
            m_answers.Text6_KeyDown(KeyCode::enter, static_cast<int>(key.modifiers()));
        return true;
    }
    if (!m_selection.mayAnswer())
        return false;
    if (key.key() == Qt::Key_Escape) {
        m_selection.leaveBox();
        return true;
    }
    if (!leavesBox(key, m_window.boardPage().answerBox()))
        return false;
    // If there is no other blank, the box stays open with what was typed.
    const auto place = destination(key, true);
    if (place && *place != m_selection.place())
        goTo(*place);
    return true;
}

void PracticeKeys::goTo(Place place) {
    // In this order a screen reader hears of the new cell only.
    m_selection.moveTo(place);
    m_selection.leaveBox();
}

/// The cell that a key leads to from the selected one; nothing if it leads nowhere. With `onlyBlanks`, arrows
/// lead to blanks even without Ctrl.
std::optional<Place> PracticeKeys::destination(const QKeyEvent& key, bool onlyBlanks) const {
    const Place from = m_selection.place();
    const Qt::KeyboardModifiers modifiers = modifiersOf(key);
    for (const auto& [arrow, way] : arrows)
        if (key.key() == arrow && (modifiers == Qt::NoModifier || modifiers == Qt::ControlModifier))
            return onlyBlanks || modifiers == Qt::ControlModifier ? m_selection.blankTowards(from, way)
                                                                  : m_selection.neighbour(from, way);
    const bool isTab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    if (isTab && (modifiers == Qt::NoModifier || modifiers == Qt::ShiftModifier))
        return m_selection.blankInReadingOrder(from, modifiers == Qt::ShiftModifier ? -1 : 1);
    if (modifiers != Qt::NoModifier)
        return {};
    if (key.key() == Qt::Key_Home)
        return m_selection.firstBlank();
    if (key.key() == Qt::Key_End)
        return m_selection.lastBlank();
    return {};
}

} // namespace quarvelle
