#include "window/views/steps.h"

#include <cmath>

namespace vanzet::window {
namespace {

constexpr double kFineLine = 70;  // pixels between the fine lines of the grid at least

/// Divides by the whole number that a step below 1 is a part of: 7 steps of 0.1 are 0.7 to the last bit.
double Multiple(double count, double step) {
  return step < 1 ? count / std::round(1 / step) : count * step;
}

double RoundTo(double length, double step, LengthUnit unit) {
  return InMillimetres(Multiple(std::round(InUnit(length, unit) / step), step), unit);
}

}  // namespace

double RoundStep(double most) {
  const double power = std::pow(10, std::floor(std::log10(most)));
  for (const double digit : {5.0, 2.0}) {
    if (digit * power <= most) return digit * power;
  }
  return power;
}

double GridStep(double scale, LengthUnit unit) {
  return RoundStep(InUnit(kFineLine / scale, unit));
}

double PixelStep(double scale, LengthUnit unit) {
  return RoundStep(InUnit(1 / scale, unit));
}

geometry::Point RoundTo(const geometry::Point& point, double step, LengthUnit unit) {
  return {RoundTo(point.x, step, unit), RoundTo(point.y, step, unit)};
}

}  // namespace vanzet::window
