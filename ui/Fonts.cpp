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
    QFont font = sansSerif(13);
    // Digits of one width line up; kerning would pull the ones in 11 and 111 together.
    font.setKerning(false);
    return font;
}

QFont noteFont() {
    return sansSerif(10);
}

} // namespace quarvelle
