#include "devices/solid_check.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

#include "base/number_text.h"
#include "devices/formula.h"
#include "devices/kinds.h"
#include "devices/outline.h"

namespace vanzet::devices {
namespace {

using Vertices = std::vector<OutlineVertex>;

/// Parts of an outline that are closer to each other touch, and nothing is thinner. The modeller of the host
/// has the same limit.
constexpr double kTouch = 1e-3;

double Length(OutlineVertex v) {
  return std::hypot(v.x, v.y);
}

OutlineVertex operator-(OutlineVertex a, OutlineVertex b) {
  return {a.x - b.x, a.y - b.y};
}

double Cross(OutlineVertex a, OutlineVertex b) {
  return a.x * b.y - a.y * b.x;
}

struct Side {
  OutlineVertex from, to;
};

double Distance(OutlineVertex point, const Side& side) {
  const OutlineVertex along = side.to - side.from, reach = point - side.from;
  const double square = along.x * along.x + along.y * along.y;
  const double part = std::clamp((along.x * reach.x + along.y * reach.y) / square, 0.0, 1.0);
  return Length({reach.x - along.x * part, reach.y - along.y * part});
}

bool AreOnBothSides(OutlineVertex a, OutlineVertex b, const Side& side) {
  const OutlineVertex along = side.to - side.from;
  return Cross(along, a - side.from) * Cross(along, b - side.from) < 0;
}

bool Meet(const Side& a, const Side& b) {
  if (AreOnBothSides(a.from, a.to, b) && AreOnBothSides(b.from, b.to, a)) return true;
  return std::min({Distance(a.from, b), Distance(a.to, b), Distance(b.from, a), Distance(b.to, a)}) < kTouch;
}

/// True when the second of two neighbours returns on the first.
bool FoldsBack(const Side& a, const Side& b) {
  return Distance(a.from, b) < kTouch || Distance(b.to, a) < kTouch;
}

/// The sides of an outline, but for those that equal letters leave without a length.
std::vector<Side> SidesOf(const Vertices& outline) {
  std::vector<Side> sides;
  for (const OutlineVertex& to : outline) {
    const OutlineVertex from = sides.empty() ? outline.back() : sides.back().to;
    if (Length(to - from) >= kTouch) sides.push_back({from, to});
  }
  return sides;
}

bool IsSimple(const std::vector<Side>& sides) {
  for (std::size_t i = 0; i < sides.size(); ++i) {
    const std::size_t next = (i + 1) % sides.size();
    if (FoldsBack(sides[i], sides[next])) return false;
    for (std::size_t j = i + 2; j < sides.size(); ++j) {
      const bool areNeighbours = (j + 1) % sides.size() == i;
      if (!areNeighbours && Meet(sides[i], sides[j])) return false;
    }
  }
  return sides.size() >= 3;
}

double DoubleArea(const Vertices& outline) {
  double area = Cross(outline.back(), outline.front());
  for (std::size_t i = 1; i < outline.size(); ++i) area += Cross(outline[i - 1], outline[i]);
  return area;
}

/// The outline of a spun device is above the axis.
bool IsAboveAxis(const Vertices& outline) {
  return std::ranges::all_of(outline, [](OutlineVertex vertex) { return vertex.y > -kTouch; });
}

/// True when three corners in a row are on a line: the lines of the host that should meet there are parallel.
/// Corners that are equal do not count.
bool HasCornerWithoutTurn(const Vertices& outline) {
  const std::size_t count = outline.size();
  for (std::size_t i = 0; i < count; ++i) {
    const Side to = {outline[i], outline[(i + 1) % count]};
    const Side from = {to.to, outline[(i + 2) % count]};
    if (Length(to.to - to.from) < kTouch || Length(from.to - from.from) < kTouch) continue;
    if (Distance(to.to, {to.from, from.to}) < kTouch) return true;
  }
  return false;
}

/// The reason for refusing an outline, or null.
const char* FindOutlineFault(const Device& device, const Vertices& outline) {
  const auto isFinite = [](OutlineVertex vertex) {
    return std::isfinite(vertex.x) && std::isfinite(vertex.y);
  };
  if (!std::ranges::all_of(outline, isFinite)) return "these values make no outline";
  if (!IsSimple(SidesOf(outline))) return "these values make an outline that crosses or touches itself";
  if (!IsJaw(device.code) && !IsAboveAxis(outline))
    return "these values make an outline that crosses the axis";
  if (HasCornerWithoutTurn(outline)) return "these values make an outline with a corner that does not turn";
  const bool isInsideOut = DoubleArea(outline) * DoubleArea(OutlineOf(device.example)) <= 0;
  return isInsideOut ? "these values turn the outline inside out" : nullptr;
}

std::string Text(double value) {
  return ShortDecimalText(value, 6);
}

std::string LettersIn(std::string_view formula) {
  std::string letters;
  std::ranges::copy_if(formula, std::back_inserter(letters), [](char c) { return c >= 'A' && c <= 'J'; });
  return letters;
}

bool IsConstant(std::string_view formula) {
  return LettersIn(formula).empty();
}

std::string TextOf(std::string_view formula, const DeviceParams& params) {
  if (IsConstant(formula)) return std::string(formula);
  return std::string(formula) + " (" + Text(Evaluate(formula, params)) + ")";
}

std::optional<SolidFault> Broken(const Rule& rule, const DeviceParams& params, const DeviceParams& shown) {
  if (Evaluate(rule.less, params) < Evaluate(rule.greater, params)) return std::nullopt;
  return SolidFault{LettersIn(rule.less) + LettersIn(rule.greater),
                    TextOf(rule.less, shown) + " must be less than " + TextOf(rule.greater, shown)};
}

std::optional<SolidFault> FaultOf(const Letter& letter, const DeviceParams& params,
                                  const DeviceParams& shown) {
  const double value = ValueOf(params, letter.letter);
  const auto refused = [&](const std::string& demand) {
    const std::string name(1, letter.letter);
    return SolidFault{name, name + " (" + Text(ValueOf(shown, letter.letter)) + ") must " + demand};
  };
  switch (letter.drawn) {
    case Drawn::kAbove0:
    case Drawn::kThickness:
      if (value < kTouch) return refused(value > 0 ? "be at least 0.001 mm" : "be above 0");
      return std::nullopt;
    case Drawn::kNot0:
      if (std::abs(value) < kTouch) return refused("not be 0");
      return std::nullopt;
    case Drawn::kFrom0:
      if (value < 0) return refused("not be below 0");
      return std::nullopt;
    case Drawn::kAny:
    case Drawn::kNever: break;
  }
  return std::nullopt;
}

/// A rule that compares with a number, such as that of an angle, holds whatever the outline is.
std::optional<SolidFault> FindBeyondLimit(const Device& device, const DeviceParams& params,
                                          const DeviceParams& shown) {
  for (const Letter& letter : device.letters) {
    if (auto fault = FaultOf(letter, params, shown)) return fault;
  }
  for (const Rule& rule : device.rules) {
    if (!IsConstant(rule.less) && !IsConstant(rule.greater)) continue;
    if (auto fault = Broken(rule, params, shown)) return fault;
  }
  return std::nullopt;
}

}  // namespace

std::optional<SolidFault> FindSolidFault(const DeviceParams& params, const DeviceParams& shown) {
  const Device* const device = Find(params.type);
  if (device == nullptr || device->outlines.empty()) return std::nullopt;
  if (auto fault = FindBeyondLimit(*device, params, shown)) return fault;
  const char* const reason = FindOutlineFault(*device, OutlineOf(params));
  if (reason == nullptr) return std::nullopt;
  for (const Rule& rule : device->rules) {
    if (auto fault = Broken(rule, params, shown)) return fault;
  }
  return SolidFault{"", reason};
}

}  // namespace vanzet::devices
