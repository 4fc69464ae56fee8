#pragma once

#include <QObject>

namespace quarvelle {

class MainWindow;

/// The menu commands of practice. Each only sets values of the state, which the run reads.
class MenuCommands : public QObject {
    Q_OBJECT

public:
    /// Becomes a child of the window.
    explicit MenuCommands(MainWindow& window);

    void newsquare_Click();
    void startover_Click();
    void qplaying_Click();

private:
    MainWindow& m_window;
};

} // namespace quarvelle
