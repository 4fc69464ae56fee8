#include "widgets/Fonts.h"

#include <QStringList>

namespace quarvelle {

namespace {

QFont sansSerif(int pixelSize) {
    QFont font;
    // Outline fonts only: the bitmap font that looks like the first can be neither enlarged nor printed.
    font.setFamilies({"Microsoft Sans Serif", "Liberation Sans", "Arial", "Helvetica", "sans-serif"});
    font.setStyleHint(QFont::SansSerif);
    // Hinted in height only, so that letters keep the width of their outlines: with any other hinting, some
    // systems lay text out in fractions of a pixel but draw it at whole ones, and words run together.
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
    // Digits line up because all have the same width; kerning would pull the ones of 11 and 111 together.
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
