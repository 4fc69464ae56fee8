#include "ui/MainWindow.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QWindowStateChangeEvent>

#include "board/AccessibleBoard.h"
#include "board/BoardPage.h"
#include "widgets/FootLine.h"
#include "ui/InformationPage.h"
#include "widgets/KeyCodes.h"
#include "ui/MainPage.h"
#include "widgets/PageScale.h"
#include "ui/Pages.h"
#include "ui/PropertiesPage.h"
#include "ui/SizeMenu.h"
#include "widgets/Zoom.h"

namespace quarvelle {

MainWindow::MainWindow() : m_state(std::make_unique<ProgramState>()) {
    AccessibleBoard::install();
    m_menus.setupUi(this);
    m_foot = new FootLine(*this);
    m_mainPage = new MainPage(*m_state);
    m_boardPage = new BoardPage(*m_state);
    m_informationPage = new InformationPage;
    m_propertiesPage = new PropertiesPage(*m_state);
    // In the order of the page numbers.
    for (QWidget* page : {static_cast<QWidget*>(m_mainPage), static_cast<QWidget*>(m_boardPage),
                          static_cast<QWidget*>(m_informationPage), static_cast<QWidget*>(m_propertiesPage)})
        m_menus.pages->addWidget(page);
    auto* zoom = new Zoom(*m_menus.client, *new PageScale(*m_menus.pages));
    connect(m_menus.zoomin, &QAction::triggered, zoom, &Zoom::in);
    connect(m_menus.zoomout, &QAction::triggered, zoom, &Zoom::out);
    connect(m_menus.zoomfit, &QAction::triggered, zoom, &Zoom::fit);
    // The size that the window has when it isn't maximised.
    resize(PageScale::wholePage + QSize(0, menuBar()->sizeHint().height()));
    new SizeMenu(*m_state, m_menus, *m_mainPage, this);
    new Pages(*this);
    connect(m_menus.quit, &QAction::triggered, this, &MainWindow::quit_Click);
    qApp->installEventFilter(this);
}

MainWindow::~MainWindow() = default;

void MainWindow::present() {
    m_staysSmall = false;
    setWindowState(windowState() | Qt::WindowMaximized);
}

void MainWindow::showTitle(const std::string& title) {
    setWindowTitle(QString::fromStdString(title));
    // The toolkit doesn't tell; it is how a screen reader hears the score.
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
    if (!m_staysSmall)
        present();
}

void MainWindow::Form_Activate() {
    *m_state = ProgramState{};
    m_mainPage->showReadouts();
    m_mainPage->fitboard();
    Pages::show(*this, Page::main);
    m_mainPage->controls().Text2->setFocus();
    present();
    emit activated();
}

void MainWindow::Form_KeyDown(int keyCode, int) {
    if (keyCode == KeyCode::q)
        m_state->stopRequested = Request::stop;
}

void MainWindow::quit_Click() {
    close();
}

void MainWindow::Form_Unload() {
    // A running operation stops at its next yield; the event loop has been told to end by then.
    m_state->stopRequested = Request::stop;
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!m_activated) {
        m_activated = true;
        Form_Activate();
    }
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange)
        return;
    const Qt::WindowStates before = static_cast<QWindowStateChangeEvent*>(event)->oldState();
    const bool isSmall = !(windowState() & (Qt::WindowMaximized | Qt::WindowMinimized));
    m_staysSmall = m_staysSmall || (isSmall && before & Qt::WindowMaximized);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    Form_Unload();
    event->accept();
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    // Seen on the application, so that the key counts whichever control or menu has the keyboard. A dialog's
    // keys are its own: a file name may have a Q in it.
    if (event->type() == QEvent::KeyPress && QApplication::activeModalWidget() == nullptr) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        Form_KeyDown(keyCode(key), static_cast<int>(key.modifiers()));
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace quarvelle
