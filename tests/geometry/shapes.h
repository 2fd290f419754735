#pragma once

#include <algorithm>
#include <cmath>

#include "geometry/kurveex.h"
#include "geometry/support.h"

/// Contours drawn by lot that are the same with every compiler: numbers are drawn in braces, one after the
/// other. Lengths are in millimetres; `k.Scale` brings them to another unit.
namespace geometry::testing {

/// Points anywhere, in lines and arcs that bulge at will; some points repeat. Half of them are closed.
inline KurveEx DrawTangle(int count, Random& random) {
  KurveEx k;
  k.Start(Point{random.Between(-20, 20), random.Between(-20, 20)});
  const auto add = [&](const Point& to) {
    const int kind = random.Below(4);
    const Vector2d half = Vector2d(k.End(), to) * 0.5;
    const Point centre = k.End() + half + half.LeftNormal() * random.Between(-2, 2);
    const bool arc = kind < 2 && Dist(k.End(), to) > 0.1;
    k.Add(arc ? spVertex(kind == 0 ? ACW : CW, to, centre) : spVertex(LINEAR, to, Point(0, 0)), true);
  };
  for (int i = 1; i < count; ++i) {
    const Point to{random.Between(-20, 20), random.Between(-20, 20)};
    add(random.Below(12) == 0 ? k.End() : to);
  }
  if (random.Below(2) == 0) add(k.Start());
  return k;
}

/// A closed ring of steps of about 4 mm with a wall that wanders by `depth`, in lines, flat arcs and arcs of
/// nearly half a turn; some corners lie within a few tolerances of each other.
inline KurveEx DrawRing(int count, double depth, Random& random) {
  const double radius = 4 * count / (2 * kPi);
  const int bulge = random.Below(3);
  const auto corner = [&](int i) {
    const double angle = 2 * kPi * (i + random.Between(-0.3, 0.3)) / count;
    const double r = radius + random.Between(0, depth);
    return Point(r * std::cos(angle), r * std::sin(angle));
  };
  KurveEx k;
  k.Start(corner(0));
  for (int i = 1; i <= count; ++i) {
    const Point from = k.End();
    Point to = i == count ? k.Start() : corner(i);
    if (i < count && random.Below(40) == 0)
      to = from + Vector2d{random.Between(0, 0.03), random.Between(0, 0.03)};
    const Vector2d half = Vector2d(from, to) * 0.5;
    const int dir = random.Below(3) - 1;
    const double far = bulge == 0 ? random.Between(0, 0.2) : random.Between(0.2, 20);
    k.Add(spVertex(dir, to, dir == LINEAR ? Point(0, 0) : from + half + half.LeftNormal() * (dir * far)),
          true);
  }
  return k;
}

/// A chain of lines with a tangent arc in each corner, open or closed; arcs of small radius vanish early.
inline KurveEx DrawFilleted(int count, Random& random) {
  const int corners = std::max(3, count / 2);
  const double depth = random.Between(0.5, 3);
  const bool closed = random.Below(3) != 0;
  std::vector<Point> at;
  for (int i = 0; i < corners; ++i) {
    const double r = corners * 8 / (2 * kPi) + (i % 2 == 0 ? depth : -depth);
    at.emplace_back(r * std::cos(2 * kPi * i / corners), r * std::sin(2 * kPi * i / corners));
  }
  KurveEx k;
  k.Start(at[0] + Vector2d(at[0], at[1]) * 0.5);
  for (int i = 1; i <= corners; ++i) {
    const auto corner = [&](int n) { return at[static_cast<std::size_t>(n % corners)]; };
    const double share = random.Between(0.05, 0.45);
    const Vector2d in = Vector2d(corner(i - 1), corner(i));
    const Vector2d out = Vector2d(corner(i), corner(i + 1));
    const double reach = share * std::min(std::sqrt(Dot(in, in)), std::sqrt(Dot(out, out)));
    const Point begin = corner(i) - in * (reach / std::sqrt(Dot(in, in)));
    const Point end = corner(i) + out * (reach / std::sqrt(Dot(out, out)));
    const double turn = Cross(in, out);
    const double half = std::atan2(turn, Dot(in, out)) / 2;
    Vector2d along = in;
    along.Normalise();
    k.Add(LINEAR, begin, Point(0, 0), false);
    k.Add(turn > 0 ? ACW : CW, end, begin + along.LeftNormal() * (reach / std::tan(half)), false);
    if (i == corners && closed) k.Add(LINEAR, k.Start(), Point(0, 0), false);
  }
  return k;
}

/// A gear; its flanks are lines, its tips and roots arcs about the centre, or it is a wall of waves in lines.
inline KurveEx DrawGear(int count, Random& random) {
  const bool waves = random.Below(2) == 0;
  const double radius = count * (waves ? 0.6 : 4) / (2 * kPi) + 5;
  const double depth = random.Between(0.5, 5);
  KurveEx k;
  for (int i = 0; i <= count; ++i) {
    const int n = i % count;
    const double angle = 2 * kPi * n / count;
    const double r = radius + depth * (waves ? std::sin(angle * (count / 20.0)) : n / 2 % 2);
    const bool tip = !waves && i > 0 && (i - 1) % 2 == 0 && count % 4 == 0;
    const Point to(r * std::cos(angle), r * std::sin(angle));
    k.Add(tip ? spVertex(ACW, to, Point(0, 0)) : spVertex(LINEAR, to, Point(0, 0)), true);
  }
  return k;
}

/// The half section of a turned part, open: shoulders, faces and fillets in steps of a few tolerances or of
/// millimetres.
inline KurveEx DrawTurned(int count, Random& random) {
  const double step = random.Below(4) == 0 ? 0.02 : 4;
  KurveEx k;
  k.Start(Point(0, 10));
  for (int i = 0; i < count; ++i) {
    const Point from = k.End();
    const double length = step * random.Between(0.2, 1);
    const double rise = i / 20 % 2 == 0 ? length : -length;
    switch (random.Below(4)) {
      case 0: k.Add(LINEAR, Point(from.x - length, from.y), Point(0, 0)); break;
      case 1: k.Add(LINEAR, Point(from.x, from.y + rise), Point(0, 0)); break;
      case 2: k.Add(CW, Point(from.x - length, from.y + rise), Point(from.x, from.y + rise)); break;
      default: k.Add(ACW, Point(from.x - length, from.y + rise), Point(from.x - length, from.y)); break;
    }
  }
  return k;
}

/// One of all, by lot. Nearly all have up to 60 spans, some up to 3000.
inline KurveEx DrawAny(Random& random) {
  const int most = random.Below(50) == 0 ? 3000 : random.Below(5) == 0 ? 300 : 60;
  const int count = 3 + random.Below(most - 2);
  switch (random.Below(6)) {
    case 0: return DrawTangle(std::min(count, 300), random);
    case 1: return DrawRing(count, random.Between(0, 8), random);
    case 2: return DrawRing(count, random.Between(0, 1), random);
    case 3: return DrawFilleted(count, random);
    case 4: return DrawGear(count, random);
    default: return DrawTurned(count, random);
  }
}

}  // namespace geometry::testing
