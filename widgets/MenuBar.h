#pragma once

#include <QList>
#include <QMenuBar>

namespace quarvelle {

/// A menu bar that has the keyboard only while one of its menus is open: Escape gives it back to where it
/// was. F10 opens the first menu.
class MenuBar : public QMenuBar {
    Q_OBJECT

public:
    explicit MenuBar(QWidget* parent = nullptr);

    /// Shows these menus, in this order, and no others. A menu that isn't shown has no letter: Alt with that
    /// letter does nothing, or opens the menu shown that has the same one.
    void showMenus(const QList<QMenu*>& menus);

    /// Chooses the item of the menus shown that has such a shortcut; a key held down chooses only items that
    /// repeat. Returns whether there is one.
    bool choose(QKeyCombination shortcut, bool isRepeated);

private:
    void openFirst();
};

} // namespace quarvelle
