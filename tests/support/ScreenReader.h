#pragma once

#include <QAccessible>
#include <map>

namespace quarvelle::testing {

/// What a screen reader knows that asks for a name when it first comes to a thing, and again only when it is
/// told that the name has changed.
class ScreenReader {
public:
    ScreenReader() {
        s_listening = this;
        QAccessible::installUpdateHandler(
            [](QAccessibleEvent* event) { s_listening->hear(event->type(), event->accessibleInterface()); });
    }
    ~ScreenReader() { QAccessible::installUpdateHandler(nullptr); }

    QString news;
    QAccessibleInterface* focus = nullptr; ///< what was said last to have the keyboard, menus apart

    QString nameOf(QAccessibleInterface* about) {
        return m_names.try_emplace(about, about->text(QAccessible::Name)).first->second;
    }

private:
    void hear(QAccessible::Event event, QAccessibleInterface* about) {
        if (event == QAccessible::TableModelChanged)
            m_names.clear();
        else if (event == QAccessible::NameChanged)
            m_names.erase(about);
        else if (event == QAccessible::Focus && about->role() != QAccessible::MenuItem)
            focus = about;
        else if (event == QAccessible::ObjectShow && about->role() == QAccessible::Notification)
            news = about->text(QAccessible::Name);
    }

    static inline ScreenReader* s_listening = nullptr;
    std::map<QAccessibleInterface*, QString> m_names;
};

} // namespace quarvelle::testing
