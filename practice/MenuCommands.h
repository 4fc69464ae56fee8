#pragma once

#include <QObject>

namespace quarvelle {

class MainWindow;

/// The menu commands that steer practice and printing. Each only sets a value that the run in progress, or
/// the next one, reads.
class MenuCommands : public QObject {
    Q_OBJECT

public:
    /// Becomes a child of the window.
    explicit MenuCommands(MainWindow& window);

    void newsquare_Click();
    void startover_Click();
    void qplaying_Click();
    void aprinting_Click();

private:
    MainWindow& m_window;
};

} // namespace quarvelle
