#include "app/shared/qt_hint_colour.h"

#include <QApplication>
#include <QPalette>
#include <algorithm>
#include <cmath>

namespace mdlPLM {

namespace {

constexpr float Paleness = 0.6F;
/// Least contrast of large texts ("WCAG 2.1, success criterion 1.4.3").
constexpr double LeastContrast = 3.0;

double Linear(float part) {
    return part <= 0.04045F ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
           0.0722 * Linear(colour.blueF());
}

float Mixed(float over, float under, float alpha) { return over * alpha + under * (1 - alpha); }

QColor Over(const QColor& colour, const QColor& ground) {
    const float alpha = colour.alphaF();
    return QColor::fromRgbF(Mixed(colour.redF(), ground.redF(), alpha),
                            Mixed(colour.greenF(), ground.greenF(), alpha),
                            Mixed(colour.blueF(), ground.blueF(), alpha));
}

}  // namespace

bool HintsAreLegible(const QPalette& palette) {
    const QColor ground = palette.color(QPalette::Base);
    const double hint = Luminance(Over(palette.color(QPalette::PlaceholderText), ground));
    const double base = Luminance(ground);
    return (std::max(hint, base) + 0.05) / (std::min(hint, base) + 0.05) >= LeastContrast;
}

void MakeHintsLegible(QApplication& application) {
    const QPalette given = application.palette();
    if (HintsAreLegible(given)) return;
    QColor hint = given.color(QPalette::Text);
    hint.setAlphaF(hint.alphaF() * Paleness);
    QPalette legible = given;
    legible.setColor(QPalette::PlaceholderText, hint);
    QApplication::setPalette(legible);
}

}  // namespace mdlPLM
