#include "ui/Fonts.h"

#include <QStringList>

namespace quarvelle {

namespace {

QFont sansSerif(int pixelSize) {
    QFont font;
    const QStringList families{
        "MS Sans Serif", "Microsoft Sans Serif", "Liberation Sans", "Arial", "Helvetica", "sans-serif"};
    font.setFamilies(families);
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(pixelSize);
    return font;
}

} // namespace

QFont controlFont() {
    return sansSerif(11);
}

QFont boardFont() {
    return sansSerif(13);
}

} // namespace quarvelle
