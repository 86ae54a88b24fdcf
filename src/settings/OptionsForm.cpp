#include "settings/OptionsForm.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// Twips of a screen pixel.
constexpr double kTwipsPerPixel = 15;

} // namespace

namespace OptionsForm {

Scale scaleFor(double screenWidthTwips, double screenHeightTwips) {
    return {screenWidthTwips / 9600 * 544.26, screenHeightTwips / 7200 * 507.41};
}

QString centimetres(double pixels, double cmTwips) {
    if (cmTwips <= 0)
        return u"0"_s;
    QString text = QString::number(pixels / (cmTwips / kTwipsPerPixel), 'f', 2);
    while (text.endsWith(u'0'))
        text.chop(1);
    if (text.endsWith(u'.'))
        text.chop(1);
    return text == u"-0"_s ? u"0"_s : text;
}

double pixels(double centimetres, double cmTwips) {
    return std::trunc(centimetres * (cmTwips / kTwipsPerPixel));
}

std::optional<Refusal> check(const Entries& e) {
    // Only sizes that are both too small or both too large are refused.
    if ((e.thumbHeight < 0.5 && e.thumbWidth < 0.5) || (e.thumbHeight > 5.5 && e.thumbWidth > 5.5))
        return Refusal{u"Invalid Sizes for ThumbNail Images"_s, 0};
    if (e.separatorPercent < 20 || e.separatorPercent > 80)
        return Refusal{u"Enter a Percentage between 20 and 80"_s, 6};
    if (e.searchInitial < 2500 || e.searchInitial > 10000)
        return Refusal{u"Enter a Number between 2,500 and 10,000"_s, 4};
    if (e.searchAdditional < 500 || e.searchAdditional > 2500)
        return Refusal{u"Enter a Percentage between 500 and 2500"_s, 5};
    return std::nullopt;
}

PaneShares sharesOf(int separatorPercent) {
    const double tree = separatorPercent / 100.0 - 0.005;
    return {tree, std::abs(1 - tree) - 0.005};
}

} // namespace OptionsForm
