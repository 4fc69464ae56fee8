#include "practice/BoardKeys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <algorithm>
#include <array>

#include "board/BoardPage.h"
#include "ui/MainWindow.h"

namespace quarvelle {

namespace {

struct Arrow {
    int key;
    Step step; ///< the first index runs across
};

constexpr std::array<Arrow, 4> arrows{{
    {Qt::Key_Left, {-1, 0}},
    {Qt::Key_Right, {1, 0}},
    {Qt::Key_Up, {0, -1}},
    {Qt::Key_Down, {0, 1}},
}};

/// The modifiers that make another key of it; arrows and Enter of the number pad are the ordinary ones.
Qt::KeyboardModifiers modifiersOf(const QKeyEvent& key) {
    return key.modifiers() & ~Qt::KeypadModifier;
}

/// Whether the key is the first character of a number.
bool beginsNumber(const QKeyEvent& key) {
    constexpr std::string_view characters = "0123456789+-.";
    return (modifiersOf(key) & ~Qt::ShiftModifier) == Qt::NoModifier && key.text().size() == 1 &&
           characters.find(key.text().front().toLatin1()) != characters.npos;
}

/// Whether the key opens the box on a blank. One that is held, after it has given an answer or has started
/// the run, does not.
bool opensBox(const QKeyEvent& key) {
    constexpr std::array opening{Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_F2};
    return !key.isAutoRepeat() && modifiersOf(key) == Qt::NoModifier &&
           std::find(opening.begin(), opening.end(), key.key()) != opening.end();
}

/// Whether the key, in the box, leads out of it.
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

BoardKeys::BoardKeys(MainWindow& window) : QObject(&window), m_window(window), m_selection(window) {
    window.boardPage().installEventFilter(this);
    window.boardPage().answerBox().installEventFilter(this);
}

bool BoardKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !m_selection.mayAnswer())
        return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    return watched == &m_window.boardPage() ? boardKey(key) : boxKey(key);
}

/// Returns whether the key has had its effect.
bool BoardKeys::boardKey(const QKeyEvent& key) {
    if (const auto cell = destination(key, false)) {
        goTo(*cell);
        return true;
    }
    const bool begins = beginsNumber(key);
    if (!m_selection.isBlank(m_selection.cell()) || (!begins && !opensBox(key)))
        return false;
    m_selection.openBox();
    if (begins) {
        QKeyEvent typed(key.type(), key.key(), key.modifiers(), key.text());
        QCoreApplication::sendEvent(&m_window.boardPage().answerBox(), &typed);
    }
    return true;
}

/// Returns whether the key has had its effect, so that the box doesn't see it.
bool BoardKeys::boxKey(const QKeyEvent& key) {
    if (key.key() == Qt::Key_Escape) {
        m_selection.leaveBox();
        return true;
    }
    if (!leavesBox(key, m_window.boardPage().answerBox()))
        return false;
    // Where there is no other blank to go to, what was typed stays.
    const auto cell = destination(key, true);
    if (cell && *cell != m_selection.cell())
        goTo(*cell);
    return true;
}

void BoardKeys::goTo(Cell cell) {
    m_selection.leaveBox();
    m_selection.moveTo(cell);
}

/// Where a key leads from the selected cell, arrows to a blank in any case if only those are asked for;
/// nothing for a key that leads nowhere.
std::optional<Cell> BoardKeys::destination(const QKeyEvent& key, bool onlyBlanks) const {
    const Cell from = m_selection.cell();
    const Qt::KeyboardModifiers modifiers = modifiersOf(key);
    for (const auto& [arrow, step] : arrows)
        if (key.key() == arrow && (modifiers == Qt::NoModifier || modifiers == Qt::ControlModifier))
            return onlyBlanks || modifiers == Qt::ControlModifier ? m_selection.blankTowards(from, step)
                                                                  : m_selection.neighbour(from, step);
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
