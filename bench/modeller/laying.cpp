#include "modeller/laying.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/number_text.h"
#include "base/numbers.h"
#include "geometry/matrix.h"
#include "geometry/numerics.h"

namespace vanzet::modeller {
namespace {

using geometry::Point3d;
using geometry::Vector3d;

/// A direction of a model, the turn that takes it to x, and the two coordinates across it.
struct DirectionRow {
  std::string_view word;
  Vector3d direction;
  Vector3d axis;
  double degrees;
  std::array<double Point3d::*, 2> across;
};
const DirectionRow kDirections[] = {
    {"x", {1, 0, 0}, {0, 0, 1}, 0, {&Point3d::y, &Point3d::z}},
    {"-x", {-1, 0, 0}, {0, 0, 1}, 180, {&Point3d::y, &Point3d::z}},
    {"y", {0, 1, 0}, {0, 0, 1}, -90, {&Point3d::x, &Point3d::z}},
    {"-y", {0, -1, 0}, {0, 0, 1}, 90, {&Point3d::x, &Point3d::z}},
    {"z", {0, 0, 1}, {0, 1, 0}, 90, {&Point3d::x, &Point3d::y}},
    {"-z", {0, 0, -1}, {0, 1, 0}, -90, {&Point3d::x, &Point3d::y}},
};

const DirectionRow* RowOf(const Vector3d& direction) {
  const auto* const row = std::ranges::find(kDirections, direction, &DirectionRow::direction);
  return row == std::end(kDirections) ? nullptr : row;
}

/// A turn about an axis through the origin.
struct Turning {
  Vector3d axis;
  double degrees;
};

Turning TurningToX(const Vector3d& direction) {
  if (const DirectionRow* const row = RowOf(direction)) return {row->axis, row->degrees};
  const Vector3d across = Cross(direction, Vector3d(1, 0, 0));
  const double angle = std::atan2(across.Magnitude(), direction.dx);
  const Vector3d axis = across.Magnitude() > 0 ? across : Vector3d(0, 0, 1);
  return {axis, angle / geometry::RADIANS_PER_DEGREE};
}

/// The part of a point that is across a direction, as it is after the turning.
Vector3d AcrossX(const Point3d& point, const Vector3d& looking) {
  const Turning turning = TurningToX(looking);
  const double radians = turning.degrees * geometry::RADIANS_PER_DEGREE;
  geometry::Matrix matrix;
  matrix.Rotate(std::sin(radians), std::cos(radians), turning.axis * (1 / turning.axis.Magnitude()));
  const Point3d turned = matrix.Transform(point);
  return {0, turned.y, turned.z};
}

/// A direction along an axis as exactly that: files have cosines with a rounded last digit.
Vector3d Settled(const Vector3d& direction) {
  constexpr double kNear = 1e-9;
  for (const DirectionRow& row : kDirections) {
    if ((direction - row.direction).Magnitude() < kNear) return row.direction;
  }
  return direction;
}

}  // namespace

const std::vector<std::string>& DirectionWords() {
  static const auto words = [] {
    std::vector<std::string> all;
    for (const DirectionRow& row : kDirections) all.emplace_back(row.word);
    return all;
  }();
  return words;
}

std::optional<Vector3d> DirectionNamed(std::string_view word) {
  for (const DirectionRow& row : kDirections) {
    if (row.word == word) return row.direction;
  }
  return std::nullopt;
}

std::string DirectionText(const Vector3d& direction) {
  if (const DirectionRow* const row = RowOf(direction)) return std::string(row->word);
  return ExactText(direction.dx) + ", " + ExactText(direction.dy) + ", " + ExactText(direction.dz);
}

std::optional<Point3d> AxisNamed(std::string_view text, const Vector3d& looking) {
  std::vector<double> numbers;
  while (true) {
    const auto number = RealPrefix(text);
    if (!number || !std::isfinite(number->value)) return std::nullopt;
    numbers.push_back(number->value);
    text.remove_prefix(number->used);
    while (text.starts_with(' ')) text.remove_prefix(1);
    if (text.empty()) break;
    if (!text.starts_with(',') || numbers.size() == 3) return std::nullopt;
    text.remove_prefix(1);
  }
  if (numbers.size() == 3) return Point3d(numbers[0], numbers[1], numbers[2]);
  const DirectionRow* const row = RowOf(looking);
  if (numbers.size() != 2 || row == nullptr) return std::nullopt;
  Point3d point(0, 0, 0);
  point.*row->across[0] = numbers[0];
  point.*row->across[1] = numbers[1];
  return point;
}

Laying LayingAt(const NamedPlace& place, double turn) {
  Laying laying;
  laying.looking = Settled(place.axis);
  laying.axis = place.origin;
  laying.face = Dot(Vector3d(Point3d(), place.origin), laying.looking) / laying.looking.Magnitude();
  const Vector3d up = AcrossX(Point3d() + place.upwards, laying.looking);
  laying.turn = turn - std::atan2(up.dz, up.dy) / geometry::RADIANS_PER_DEGREE;
  return laying;
}

Result<Body> LayBody(const Body& body, const Laying& laying) {
  Body laid = body;
  if (laying.unit != LengthUnit::kMillimetre) {
    VANZET_TRY(laid, ScaleFacets(laid, InMillimetres(1, laying.unit)));
  }
  const Turning turning = TurningToX(laying.looking);
  const Vector3d across = AcrossX(laying.axis, laying.looking);
  VANZET_TRY(laid, TurnBody(laid, {{0, 0, 0}, turning.axis}, turning.degrees));
  VANZET_TRY(laid, MoveBody(laid, {-laying.face, -across.dy, -across.dz}));
  if (laying.turn == 0) return laid;
  return TurnBody(laid, {{0, 0, 0}, {1, 0, 0}}, laying.turn);
}

Result<Body> LayAsFileSays(const Result<Body>& body, const std::filesystem::path& bodyFile) {
  if (!body) return body;
  VANZET_TRY(const auto laying, ReadLaying(bodyFile));
  if (!laying) return body;
  auto laid = LayBody(*body, *laying);
  if (laid) return laid;
  Fault fault = laid.fault();
  fault.file = LayingFileOf(bodyFile).string();
  return fault;
}

}  // namespace vanzet::modeller
