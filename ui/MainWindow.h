#pragma once

#include <QMainWindow>
#include <memory>
#include <string>

#include "engine/ProgramState.h"

class QAction;

namespace Ui {
class MagicSquare2;
}

namespace quarvelle {

class BoardPage;
class FootLine;
class InformationPage;
class MainPage;
class OptionMenus;
class Pages;
class PropertiesPage;
class SizeMenu;

/// The program's one window: the menu bar, and four pages of which one is shown in a client area that scrolls
/// if the screen is too small. Owns the program state.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    ProgramState& state() { return *m_state; }
    Pages& pages() const { return *m_pages; }
    MainPage& mainPage() const { return *m_mainPage; }
    InformationPage& informationPage() const { return *m_informationPage; }
    PropertiesPage& propertiesPage() const { return *m_propertiesPage; }
    BoardPage& boardPage() const { return *m_boardPage; }
    FootLine& foot() const { return *m_foot; }
    /// The menu item with that object name; the program ends if there is none.
    QAction& command(const QString& name) const;

    /// Scrolls so that an area of a widget on a page can be seen; `area` is in the widget's pixels.
    void scrollTo(const QWidget& widget, const QRect& area);
    /// Tells what has happened in a run: at the foot of the window until the next thing that the person does,
    /// and to whoever listens with a screen reader.
    void tell(const QString& news) { tell(news, news); }
    /// The same, where what is heard has other words.
    void tell(const QString& shown, const QString& heard);
    /// Maximises the window at the beginning of a run.
    void present();
    /// Sets the title, and maximises the window again unless the person has made it smaller since `present`.
    void showTitle(const std::string& title);

    void Form_Activate();
    /// A key was pressed, whatever control has the keyboard; Q requests a stop.
    void Form_KeyDown(int keyCode, int shift);
    void quit_Click();
    void Form_Unload();

signals:
    /// The window is shown for the first time; its state has the start-up values.
    void activated();

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addPages();

    std::unique_ptr<ProgramState> m_state;
    std::unique_ptr<Ui::MagicSquare2> m_controls;
    MainPage* m_mainPage;
    BoardPage* m_boardPage;
    FootLine* m_foot;
    InformationPage* m_informationPage;
    PropertiesPage* m_propertiesPage;
    std::unique_ptr<SizeMenu> m_sizeMenu;
    std::unique_ptr<OptionMenus> m_optionMenus;
    std::unique_ptr<Pages> m_pages;
    bool m_activated = false;
    bool m_staysSmall = false; ///< the person has made it smaller than maximised
};

} // namespace quarvelle
