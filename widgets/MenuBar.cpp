#include "widgets/MenuBar.h"

#include <QMenu>
#include <QProxyStyle>
#include <QShortcut>

namespace quarvelle {

namespace {

/// Without it, Escape would leave the keyboard in the bar, and so would a touch of Alt; what is typed next
/// would be lost.
class MenuBarStyle : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        return hint == SH_MenuBar_AltKeyNavigation ? 0
                                                   : QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

} // namespace

MenuBar::MenuBar(QWidget* parent) : QMenuBar(parent) {
    auto* style = new MenuBarStyle;
    style->setParent(this);
    setStyle(style);
    connect(new QShortcut(Qt::Key_F10, this), &QShortcut::activated, this, &MenuBar::openFirst);
}

void MenuBar::showMenus(const QList<QMenu*>& menus) {
    // A hidden menu that stayed in the bar would keep its letter.
    QList<QAction*> titles;
    for (const QMenu* menu : menus)
        titles << menu->menuAction();
    if (titles == actions())
        return;
    clear();
    addActions(titles);
}

bool MenuBar::choose(QKeyCombination shortcut, bool isRepeated) {
    for (const QAction* title : actions())
        for (QAction* item : title->menu()->actions())
            if (item->isVisible() && item->isEnabled() && item->shortcut() == QKeySequence(shortcut)) {
                if (!isRepeated || item->autoRepeat())
                    item->trigger();
                return true;
            }
    return false;
}

void MenuBar::openFirst() {
    setActiveAction(actions().value(0));
}

} // namespace quarvelle
