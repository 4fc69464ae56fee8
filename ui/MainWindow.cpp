#include "ui/MainWindow.h"

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QWindowStateChangeEvent>

#include "board/AccessibleBoard.h"
#include "board/BoardGeometry.h"
#include "board/BoardPage.h"
#include "ui/InformationPage.h"
#include "ui/MainPage.h"
#include "ui/OptionMenus.h"
#include "ui/Pages.h"
#include "ui/PropertiesPage.h"
#include "ui/SizeMenu.h"
#include "ui_MainWindow.h"
#include "widgets/FootLine.h"
#include "widgets/KeyCodes.h"
#include "widgets/PageScale.h"
#include "widgets/Zoom.h"

namespace quarvelle {

MainWindow::MainWindow()
    : m_state(std::make_unique<ProgramState>()), m_controls(std::make_unique<Ui::MagicSquare2>()) {
    AccessibleBoard::install();
    m_controls->setupUi(this);
    m_foot = new FootLine(*this);
    m_mainPage = new MainPage(*m_state);
    m_boardPage = new BoardPage(*m_state);
    m_informationPage = new InformationPage;
    m_propertiesPage = new PropertiesPage(*m_state);
    addPages();
    // The size that the window has when it isn't maximised.
    resize(PageScale::wholePage + QSize(0, menuBar()->sizeHint().height()));
    m_sizeMenu = std::make_unique<SizeMenu>(*m_state, *m_controls, *m_mainPage);
    m_optionMenus = std::make_unique<OptionMenus>(*m_state, *m_controls);
    m_pages = std::make_unique<Pages>(*m_state, *m_controls, *m_foot, *m_mainPage, *m_informationPage,
                                      *m_propertiesPage);
    connect(m_controls->quit, &QAction::triggered, this, &MainWindow::quit_Click);
    qApp->installEventFilter(this);
}

MainWindow::~MainWindow() = default;

/// The board has a zoom of its own, since it is looked at for longer and is as large as the square asks for.
void MainWindow::addPages() {
    PageArea& client = *m_controls->client;
    const auto settings = std::make_shared<Zoom>(
        *new PageScale({m_mainPage, m_informationPage, m_propertiesPage}, &client), Zoom::Fitting{});
    constexpr int leastRows = 8;
    const Zoom::Fitting boardFitting{true, leastRows * rowHeight};
    const auto board = std::make_shared<Zoom>(*new PageScale({m_boardPage}, &client), boardFitting);
    // In the order of the page numbers.
    client.addPage(*m_mainPage, settings);
    client.addPage(*m_boardPage, board);
    client.addPage(*m_informationPage, settings);
    client.addPage(*m_propertiesPage, settings);
    // The board again, which shows the sheets of a batch as large as they fit, whatever was chosen in
    // practice.
    client.addPage(*m_boardPage, std::make_shared<Zoom>(board->scale(), boardFitting));
    // Where plus is the shifted equals sign, nobody holds Shift for it.
    m_controls->zoomin->setShortcuts({m_controls->zoomin->shortcut(), Qt::CTRL | Qt::Key_Equal});
    connect(m_controls->zoomin, &QAction::triggered, &client, &PageArea::zoomIn);
    connect(m_controls->zoomout, &QAction::triggered, &client, &PageArea::zoomOut);
    connect(m_controls->zoomfit, &QAction::triggered, &client, &PageArea::zoomToFit);
}

QAction& MainWindow::command(const QString& name) const {
    auto* action = findChild<QAction*>(name);
    if (action == nullptr)
        qFatal("There is no menu item %s.", qPrintable(name));
    return *action;
}

void MainWindow::scrollTo(const QWidget& widget, const QRect& area) {
    m_controls->client->scrollTo(widget, area);
}

void MainWindow::tell(const QString& shown, const QString& heard) {
    m_boardPage->announce(heard);
    m_foot->say(shown);
}

void MainWindow::present() {
    m_staysSmall = false;
    setWindowState(windowState() | Qt::WindowMaximized);
}

void MainWindow::showTitle(const std::string& title) {
    setWindowTitle(QString::fromStdString(title));
    // Qt doesn't report a new title, and the score is in it.
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
    if (!m_staysSmall)
        present();
}

void MainWindow::Form_Activate() {
    *m_state = ProgramState{};
    m_mainPage->showReadouts();
    m_mainPage->fitboard();
    m_pages->show(Page::main);
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
    // A run that is going on stops after its next yield; the event loop has been told to end by then.
    m_state->stopRequested = Request::stop;
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    m_controls->client->setFootRoom(m_foot->sizeHint().height());
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

/// The filter is on the application, so a key counts whichever control or menu has the keyboard. Dialogs keep
/// their keys: a file name may have a Q in it. In practice `PracticeKeys` reads Q.
bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    const auto* receiver = qobject_cast<const QWidget*>(watched);
    if (event->type() != QEvent::KeyPress || !receiver || qobject_cast<const QDialog*>(receiver->window()))
        return QMainWindow::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (m_state->practising != 1)
        Form_KeyDown(keyCode(key), static_cast<int>(key.modifiers()));
    // Qt knows the shortcuts by their letters only.
    return receiver->window() == this && latinKey(key) != key.key() &&
           m_controls->menubar->choose(QKeyCombination(key.modifiers(), latinKey(key)), key.isAutoRepeat());
}

} // namespace quarvelle
