// Fonts for boxes of fixed size, see fitted_font.h.
#include "qt/widgets/fitted_font.h"

#include <QFontMetrics>
#include <algorithm>
#include <cmath>

namespace zirvo::widgets {
namespace {

constexpr int FullWidth = 100;  // of a letter [percent]
constexpr int NarrowestWidth = 50;
constexpr int SmallestSize = 6;  // [pixels]

bool Fits(const QFont& font, const TextInBox& text) {
    const QFontMetrics metrics(font);
    if (!text.Wrapped) {
        return metrics.horizontalAdvance(text.Text) <= text.Room.width();
    }
    constexpr int anyHeight = 100000;
    const QRect needed = metrics.boundingRect(QRect(0, 0, std::max(1, text.Room.width()), anyHeight),
                                              Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, text.Text);
    // A box a little lower than its line cuts off nothing: letters do not fill the line.
    const int slack = metrics.height() / 4;
    const bool highEnough = needed.height() <= std::max(metrics.lineSpacing(), text.Room.height() + slack);
    return highEnough && needed.width() <= text.Room.width();
}

QFont Narrowed(QFont font, int percent) {
    font.setStretch(percent);
    return font;
}

/// The widest letters in which the text fits. Whole percents, found by halves: a narrower text always fits better.
QFont Condensed(const QFont& font, const TextInBox& text) {
    int fits = NarrowestWidth;
    int fails = FullWidth;
    while (fails - fits > 1) {
        const int middle = (fits + fails) / 2;
        (Fits(Narrowed(font, middle), text) ? fits : fails) = middle;
    }
    return Narrowed(font, fits);
}

}  // namespace

QFont FontThatFits(const QFont& told, const TextInBox& text) {
    if (text.Text.isEmpty() || text.Room.isEmpty() || Fits(told, text)) {
        return told;
    }
    QFont font = told;
    while (!Fits(Narrowed(font, NarrowestWidth), text) && font.pixelSize() > SmallestSize) {
        font.setPixelSize(font.pixelSize() - 1);
    }
    return Condensed(font, text);
}

QFont LargestFontThatFits(const QFont& told, const QFont& scaled, const TextInBox& text) {
    constexpr int littleNarrower = 85;  // [percent]
    for (QFont font = scaled; font.pixelSize() > told.pixelSize(); font.setPixelSize(font.pixelSize() - 1)) {
        if (Fits(Narrowed(font, littleNarrower), text)) {
            return FontThatFits(font, text);
        }
    }
    return FontThatFits(scaled.pixelSize() < told.pixelSize() ? scaled : told, text);
}

QFont ScaledFont(const QFont& told, double scale, int roomHigh) {
    if (scale == 1) {
        return told;
    }
    QFont font = told;
    font.setPixelSize(std::max(SmallestSize, static_cast<int>(std::lround(told.pixelSize() * scale))));
    const int highest = std::max(roomHigh, QFontMetrics(told).height());
    while (QFontMetrics(font).height() > highest && font.pixelSize() > SmallestSize) {
        font.setPixelSize(font.pixelSize() - 1);
    }
    return font;
}

}  // namespace zirvo::widgets
