#pragma once

#include <QColor>
#include <algorithm>
#include <cmath>

namespace vanzet::test {

/// The relative luminance of a colour, as contrasts are computed.
inline double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// From 1, which nobody sees, to 21, which is black on white.
inline double Contrast(const QColor& a, const QColor& b) {
  const double first = Luminance(a) + 0.05, second = Luminance(b) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

}  // namespace vanzet::test
