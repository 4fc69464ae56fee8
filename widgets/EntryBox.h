#pragma once

#include <QLineEdit>
#include <string>

namespace quarvelle {

/// A text box that emits `keyReleased` for each key released in it: once, however long the key was held. It
/// does so too for an edit without such a release: text pasted or dropped with the mouse, text set by
/// assistive technology, or a key still held down when the box loses the keyboard. It keeps Up and Down to
/// itself, and leaves letters pressed with Alt to the menus. Without the keyboard it shows the beginning of
/// its text, and a tooltip with all of a text that is too long. Typing hides the mouse pointer.
class EntryBox : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(int typedLimit READ typedLimit WRITE setTypedLimit)

public:
    explicit EntryBox(QWidget* parent = nullptr);

    /// How many characters a person may enter. Text that the program sets may be longer, and is kept whole.
    int typedLimit() const { return m_typedLimit; }
    void setTypedLimit(int characters);

    /// Replaces the text without a signal.
    void setProgramText(const std::string& text);

    /// The number that the text begins with; 0 if it begins with none.
    double number() const;

signals:
    /// `keyCode` is `KeyCode::none` for an edit without a key released.
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
    QString m_lastText;
    bool m_handlesKey = false;
    bool m_takesProgramText = false;
    bool m_editUntold = false;
};

} // namespace quarvelle
