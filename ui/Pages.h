#pragma once

#include <QObject>

class QMenu;
class QWidget;

namespace Ui {
class MagicSquare2;
}

namespace quarvelle {

class FootLine;
class InformationPage;
class MainPage;
class PropertiesPage;
struct ProgramState;

/// Switches between the pages, and shows the menus that belong to each.
class Pages : public QObject {
    Q_OBJECT

public:
    /// Everything outlives the object.
    Pages(ProgramState& state, const Ui::MagicSquare2& window, FootLine& foot, MainPage& mainPage,
          InformationPage& informationPage, PropertiesPage& propertiesPage);

    /// Shows a page (a value of `Page`) with its menus and sets `currentPage`. The board has the menu of
    /// practice if `practising` is 1, otherwise that of a batch. A menu that is open is closed.
    void show(int page);
    /// Shows the main page, with the buttons enabled that can be used with the settings.
    void returnToMain();

    void Command2_Click();
    void Command3_Click();
    void chooseproperties_Click();
    void Command6_Click();

private:
    ProgramState& m_state;
    const Ui::MagicSquare2& m_window;
    FootLine& m_foot;
    MainPage& m_mainPage;
    InformationPage& m_informationPage;
    PropertiesPage& m_propertiesPage;
};

} // namespace quarvelle
