#pragma once

#include <cmath>
#include <functional>
#include <vector>

#include "geometry/kurveex.h"

/// Contours to be offset, of any count of spans; details are some millimetres in size whatever the count.
namespace vanzet::benchmarks {

using geometry::ACW;
using geometry::CW;
using geometry::KurveEx;
using geometry::LINEAR;
using geometry::Point;

constexpr double kDetail = 5.0;  ///< the length of a span, about, mm

inline Point Polar(double radius, double angle) {
  return {radius * std::cos(angle), radius * std::sin(angle)};
}

/// A ring of lines and arcs, all tangent, that winds outwards and inwards.
inline KurveEx SmoothRing(int spans) {
  const int corners = spans / 2;
  const double radius = corners * 2 * kDetail / (2 * geometry::PI);
  std::vector<Point> at(static_cast<std::size_t>(corners) + 2);
  for (int i = 0; i < corners + 2; ++i) {
    const int corner = i % corners;
    at[static_cast<std::size_t>(i)] =
        Polar(radius + (corner % 2 == 0 ? 2 : -2), 2 * geometry::PI * corner / corners);
  }
  const auto between = [](const Point& a, const Point& b, double f) {
    return a + geometry::Vector2d(a, b) * f;
  };
  KurveEx k;
  k.Start(between(at[0], at[1], 0.75));
  for (std::size_t i = 1; i + 1 < at.size(); ++i) {
    // A fillet that begins and ends a quarter of a side away from the corner.
    const Point begin = between(at[i - 1], at[i], 0.75);
    const Point end = between(at[i], at[i + 1], 1 - 0.75);
    const geometry::CLine in(at[i - 1], at[i]);
    const geometry::CLine out(at[i], at[i + 1]);
    const double turn = Cross(in.v, out.v);
    const double half = std::atan2(turn, Dot(in.v, out.v)) / 2;
    const Point centre = begin + in.v.LeftNormal() * (Dist(begin, at[i]) / std::tan(half));
    k.Add(turn > 0 ? ACW : CW, end, centre, false);
    k.Add(LINEAR, i + 2 < at.size() ? between(at[i], at[i + 1], 0.75) : k.Start(), Point(0, 0), false);
  }
  return k;
}

/// A gear: flanks are lines, tips and roots arcs about the centre.
inline KurveEx Gear(int spans) {
  const int teeth = spans / 4;
  const double pitch = 2 * geometry::PI / teeth;
  const double root = teeth * 3 * kDetail / (2 * geometry::PI);
  const Point centre(0, 0);
  KurveEx k;
  k.Start(Polar(root, 0));
  for (int i = 0; i < teeth; ++i) {
    const double angle = i * pitch;
    k.Add(LINEAR, Polar(root + kDetail, angle + 0.1 * pitch), centre);
    k.Add(ACW, Polar(root + kDetail, angle + 0.4 * pitch), centre);
    k.Add(LINEAR, Polar(root, angle + 0.5 * pitch), centre);
    k.Add(ACW, i + 1 == teeth ? k.Start() : Polar(root, angle + pitch), centre);
  }
  return k;
}

/// A pocket with a wavy border in lines; its waves turn more tightly than the offset, so each of them leaves
/// a loop.
inline KurveEx WavyPocket(int spans) {
  constexpr int kSpansOfAWave = 20;
  const double radius = spans * 0.6 / (2 * geometry::PI);
  KurveEx k;
  for (int i = 0; i <= spans; ++i) {
    const double wave = 2 * geometry::PI * (i % spans) / kSpansOfAWave;
    k.Add(LINEAR, Polar(radius + 4 * std::sin(wave), 2 * geometry::PI * (i % spans) / spans), Point(0, 0));
  }
  return k;
}

/// Half a turned part: shoulders and faces in steps, open.
inline KurveEx Staircase(int spans) {
  KurveEx k;
  k.Start(Point(0, 10));
  for (int i = 0; i < spans; ++i) {
    const Point end = k.End();
    const bool up = i / 2 % 20 < 10;
    k.Add(LINEAR,
          i % 2 == 0 ? Point(end.x - 2 * kDetail, end.y) : Point(end.x, end.y + (up ? kDetail : -kDetail)),
          Point(0, 0));
  }
  return k;
}

struct Kind {
  const char* name;
  KurveEx (*make)(int spans);
};

inline constexpr Kind kKinds[] = {
    {"smooth", SmoothRing},
    {"gear", Gear},
    {"pocket", WavyPocket},
    {"staircase", Staircase},
};

}  // namespace vanzet::benchmarks
