#pragma once

#include <QObject>

namespace quarvelle {

class MainWindow;

/// Switches between the pages.
class Pages : public QObject {
    Q_OBJECT

public:
    /// Becomes a child of the window.
    explicit Pages(MainWindow& window);

    /// Shows a page (a value of `Page`) with its menus, and names it in `currentPage`. The board has the menu
    /// of practice where `practising` is 1, else that of a batch. A menu that is open is closed.
    static void show(MainWindow& window, int page);
    /// Shows the main page with its buttons in agreement with the settings.
    static void returnToMain(MainWindow& window);

    void Command2_Click();
    void Command3_Click();
    void chooseproperties_Click();
    void Command6_Click();

private:
    MainWindow& m_window;
};

} // namespace quarvelle
