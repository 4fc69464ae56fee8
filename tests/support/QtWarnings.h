#pragma once

#include <QString>
#include <QtGlobal>
#include <functional>

namespace quarvelle::testing {

/// Tells `tell` of every warning of the toolkit, but for what the offscreen platform can't do.
inline void onQtWarning(std::function<void(const QString&)> tell) {
    static std::function<void(const QString&)> listener;
    listener = std::move(tell);
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type != QtDebugMsg && type != QtInfoMsg && !text.startsWith("This plugin does not support"))
            listener(text);
    });
}

} // namespace quarvelle::testing
