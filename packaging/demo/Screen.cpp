#include "packaging/demo/Screen.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QThread>
#include <QTransform>
#include <cstdlib>
#include <utility>

namespace quarvelle::demo {

namespace {

/// Whether a column of `band` stands out from the background, which its first pixel shows.
bool hasInk(const QImage& band, int x) {
    constexpr int contrast = 48;
    const int background = qGray(band.pixel(0, 0));
    for (int y = 0; y < band.height(); ++y)
        if (std::abs(qGray(band.pixel(x, y)) - background) > contrast)
            return true;
    return false;
}

bool isAbout(QRgb seen, QRgb wanted) {
    constexpr int tolerance = 40;
    return std::abs(qRed(seen) - qRed(wanted)) < tolerance &&
           std::abs(qGreen(seen) - qGreen(wanted)) < tolerance &&
           std::abs(qBlue(seen) - qBlue(wanted)) < tolerance;
}

} // namespace

QImage screenPicture() {
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage().convertToFormat(QImage::Format_RGB32);
}

QImage stillScreenPicture() {
    constexpr int mostPictures = 20;
    QImage before;
    QImage now = screenPicture();
    for (int taken = 1; taken < mostPictures && now != before; ++taken) {
        QThread::msleep(100);
        before = std::exchange(now, screenPicture());
    }
    return now;
}

QRect boundsOf(const QImage& picture, const QColor& color) {
    QRect bounds;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (isAbout(picture.pixel(x, y), color.rgb()))
                bounds |= QRect(x, y, 1, 1);
    return bounds;
}

std::vector<QPoint> captions(const QImage& picture, const QRect& strip, bool across) {
    // Wider than the space between two words, narrower than the one between two captions.
    const int gap = across ? 9 : 3;
    const QTransform transposition(0, 1, 1, 0, 0, 0);
    const QImage band = across ? picture.copy(strip) : picture.copy(strip).transformed(transposition);
    std::vector<QPoint> centres;
    int first = -1;
    int last = -1;
    for (int x = 0; x < band.width() + gap; ++x) {
        if (x < band.width() && hasInk(band, x)) {
            last = x;
            if (first < 0)
                first = x;
        }
        if (first >= 0 && x - last >= gap) {
            const QPoint centre((first + last) / 2, band.height() / 2);
            centres.push_back(strip.topLeft() + (across ? centre : centre.transposed()));
            first = -1;
        }
    }
    return centres;
}

} // namespace quarvelle::demo
