#include "widgets/Fonts.h"

#include <QStringList>

namespace quarvelle {

namespace {

QFont sansSerif(int pixelSize) {
    QFont font;
    // Outlines only: the bitmap font that has the first one's look can be neither enlarged nor printed.
    font.setFamilies({"Microsoft Sans Serif", "Liberation Sans", "Arial", "Helvetica", "sans-serif"});
    font.setStyleHint(QFont::SansSerif);
    // Sharp from top to bottom, and of the outline's own width: on some systems any other text is laid out in
    // fractions of a pixel and drawn at whole ones, so that words run together.
    font.setHintingPreference(QFont::PreferVerticalHinting);
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

QFont enlarged(QFont font, double factor) {
    font.setPixelSize(qRound(font.pixelSize() * factor));
    return font;
}

QFont noteFont() {
    return sansSerif(10);
}

} // namespace quarvelle
