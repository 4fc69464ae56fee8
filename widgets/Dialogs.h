#pragma once

class QDialog;
class QWidget;

namespace quarvelle {

/// Shows a dialog until it is answered, and returns its result (a `QDialog::DialogCode`, or what the class of
/// the dialog says). Meanwhile the window can't be used, but it can be closed, which rejects the dialog. Qt
/// would not let a window be closed under a modal dialog.
int answerTo(QDialog& dialog, QWidget& window);

} // namespace quarvelle
