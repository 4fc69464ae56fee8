#include "widgets/Dialogs.h"

#include <QDialog>
#include <QEvent>
#include <QEventLoop>

namespace quarvelle {

namespace {

class RejectedByClosing : public QObject {
public:
    explicit RejectedByClosing(QDialog& dialog) : m_dialog(dialog) {}

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Close)
            m_dialog.reject();
        return false;
    }

private:
    QDialog& m_dialog;
};

} // namespace

int answerTo(QDialog& dialog, QWidget& window) {
    QWidget* const keyboard = window.focusWidget();
    RejectedByClosing rejected(dialog);
    window.installEventFilter(&rejected);
    // Not the window, which would disable the dialog with it.
    QList<QWidget*> parts = window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    parts.removeIf([](const QWidget* part) { return part->isWindow() || !part->isEnabled(); });
    for (QWidget* part : parts)
        part->setEnabled(false);
    QEventLoop loop;
    QObject::connect(&dialog, &QDialog::finished, &loop, &QEventLoop::quit);
    dialog.show();
    loop.exec();
    for (QWidget* part : parts)
        part->setEnabled(true);
    if (keyboard != nullptr)
        keyboard->setFocus();
    return dialog.result();
}

} // namespace quarvelle
