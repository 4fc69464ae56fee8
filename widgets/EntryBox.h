#pragma once

#include <QLineEdit>
#include <string>

namespace quarvelle {

/// A text box that tells of each key released in it, once however long the key was held, and of edits that no
/// release in it will tell of (pasting or dropping with the mouse, leaving the box with the
/// key still down). Up and Down are its own, whatever is around it. While it hasn't the keyboard it shows how
/// its text begins, and the whole of a longer one as its tooltip. The mouse pointer hides from the typing.
class EntryBox : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(int typedLimit READ typedLimit WRITE setTypedLimit)

public:
    explicit EntryBox(QWidget* parent = nullptr);

    /// How many characters a person may enter. Text that the program sets may be longer and stays whole.
    int typedLimit() const { return m_typedLimit; }
    void setTypedLimit(int characters);

    /// Replaces the text; nothing is told.
    void setProgramText(const std::string& text);

    /// The number that the text begins with; 0 where there is none.
    double number() const;

signals:
    /// With `KeyCode::none` for an edit without a key.
    void keyReleased(int keyCode);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool showsWholeText() const;
    void allow(qsizetype characters);
    void tellEdit();

    int m_typedLimit;
    bool m_handlesKey = false;
    bool m_editUntold = false;
};

} // namespace quarvelle
