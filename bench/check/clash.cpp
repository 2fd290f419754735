#include "check/clash.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "check/facet_depth.h"
#include "check/region_measures.h"

namespace vanzet::check {
namespace {

using geometry::Point;
using geometry::Region;

constexpr int kPlanes = 48;             // of a full turn
constexpr std::size_t kMostPlaces = 8;  // of the deepest ones that half sections are made through

/// The angles of half sections that show all of two bodies: one when both are the same at every angle, that
/// of a jaw where one is a jaw, else even ones of which one is given.
std::vector<double> AnglesFor(const HalfSection& a, const HalfSection& b, double first) {
  if (a.IsTurned() && b.IsTurned()) return {0};
  if (a.IsJaw()) return {a.Angle()};
  if (b.IsJaw()) return {b.Angle()};
  std::vector<double> angles;
  angles.reserve(kPlanes);
  for (int i = 0; i < kPlanes; ++i) angles.push_back(first + i * 360.0 / kPlanes);
  return angles;
}

double AngleOf(const geometry::Point3d& place) {
  return std::atan2(place.z, place.y) * 180 / std::numbers::pi;
}

Point InTurningPlane(const geometry::Point3d& place) {
  return {place.x, std::hypot(place.y, place.z)};
}

/// A disc about a deep place, as large as the depth.
Area DiscAt(const DeepPlace& deep) {
  const Point middle = InTurningPlane(deep.place);
  const double radius = deep.depth / 2;
  geometry::KurveEx disc;
  disc.Start(Point(middle.x - radius, middle.y));
  disc.Add(geometry::ACW, Point(middle.x + radius, middle.y), middle, false);
  disc.Add(geometry::ACW, Point(middle.x - radius, middle.y), middle, false);
  return {AngleOf(deep.place), geometry::Clean(disc)};
}

/// The deepest clash of the half sections at these angles.
std::optional<Clash> DeepestOf(const HalfSection& a, const HalfSection& b,
                               const std::vector<double>& angles) {
  std::optional<Clash> deepest;
  for (const double angle : angles) {
    Region common = geometry::Intersect(a.At(angle), b.At(angle));
    const double least = deepest ? deepest->depth : SectionTolerance(a, b);
    const auto thickness = ThickestOf(common, least);
    if (!thickness || (deepest && thickness->width <= deepest->depth)) continue;
    deepest = Clash{thickness->width, thickness->place, {angle, std::move(common)}};
  }
  return deepest;
}

/// The facets of both bodies; null where one has none that can be made.
struct BothFacets {
  const FacetTree* a = nullptr;
  const FacetTree* b = nullptr;
};
BothFacets FacetsOf(const HalfSection& a, const HalfSection& b) {
  const auto first = a.Facets(), second = b.Facets();
  if (!first || !second) return {};
  return {*first, *second};
}

/// The angles of the deepest places, each once.
std::vector<double> AnglesOf(const std::vector<DeepPlace>& places) {
  constexpr double kSame = 1;  // degree
  std::vector<double> angles;
  for (const DeepPlace& each : places) {
    const double angle = AngleOf(each.place);
    const auto isSame = [&](double other) { return std::fabs(angle - other) < kSame; };
    if (std::ranges::none_of(angles, isSame)) angles.push_back(angle);
    if (angles.size() == kMostPlaces) break;
  }
  return angles;
}

bool AreApart(const HalfSection& a, const HalfSection& b) {
  return a.box().Outside(b.box());
}

/// Jaws are wider in space than their middle planes, but no longer.
bool AreApartAlongAxis(const HalfSection& a, const HalfSection& b) {
  return a.box().min.x > b.box().max.x || b.box().min.x > a.box().max.x;
}

/// The volume of a part outside of a billet: half sections at even angles share a full turn.
double VolumeOutside(const HalfSection& part, const HalfSection& billet, double firstAngle) {
  const std::vector<double> angles = AnglesFor(part, billet, firstAngle);
  double volume = 0;
  for (const double angle : angles)
    volume += SpunVolume(geometry::Subtract(part.At(angle), billet.At(angle)));
  return volume / static_cast<double>(angles.size());
}

std::optional<Excess> ExcessOfSections(const HalfSection& part, const HalfSection& billet,
                                       double firstAngle) {
  std::optional<Excess> excess;
  double deepest = SectionTolerance(part, billet);
  for (const double angle : AnglesFor(part, billet, firstAngle)) {
    Region outside = geometry::Subtract(part.At(angle), billet.At(angle));
    const auto thickness = ThickestOf(outside, deepest);
    if (!thickness) continue;
    deepest = thickness->width;
    excess = Excess{0, deepest, thickness->place, {angle, std::move(outside)}};
  }
  if (excess) excess->volume = VolumeOutside(part, billet, firstAngle);
  return excess;
}

}  // namespace

double SectionTolerance(const HalfSection& a, const HalfSection& b) {
  return kTolerance + a.Error() + b.Error();
}

double FacetTolerance(const HalfSection& a, const HalfSection& b) {
  return kTolerance + a.FacetError() + b.FacetError();
}

std::optional<Clash> ClashOfSections(const HalfSection& a, const HalfSection& b) {
  return DeepestOf(a, b, AnglesFor(a, b, 0));
}

std::optional<Clash> ClashOfFacets(const HalfSection& a, const HalfSection& b) {
  const auto [body, solid] = FacetsOf(a, b);
  if (body == nullptr) return ClashOfSections(a, b);
  // A body that is not closed is only asked for its facets.
  const auto places = a.IsClosed() && !b.IsClosed()
                          ? FindDeeper(*solid, *body, Side::kInside, FacetTolerance(a, b))
                          : FindDeeper(*body, *solid, Side::kInside, FacetTolerance(a, b));
  if (places.empty()) return {};
  if (auto deepest = DeepestOf(a, b, AnglesOf(places))) return deepest;
  const DeepPlace& place = places.front();
  return Clash{place.depth, InTurningPlane(place.place), DiscAt(place)};
}

std::optional<Clash> DeepestClash(const HalfSection* a, const HalfSection* b) {
  if (a == nullptr || b == nullptr || AreApart(*a, *b)) return {};
  const bool isFlat = a->IsJaw() || b->IsJaw();
  if (isFlat || (a->IsTurned() && b->IsTurned())) return ClashOfSections(*a, *b);
  return ClashOfFacets(*a, *b);
}

std::optional<Clash> DeepestClashInSpace(const HalfSection* a, const HalfSection* b) {
  if (a == nullptr || b == nullptr || AreApartAlongAxis(*a, *b)) return {};
  return a->IsJaw() || b->IsJaw() ? ClashOfFacets(*a, *b) : DeepestClash(a, b);
}

std::optional<Excess> ExcessOf(const HalfSection& part, const HalfSection& billet) {
  if (part.IsTurned() && billet.IsTurned()) return ExcessOfSections(part, billet, 0);
  const auto [body, solid] = FacetsOf(part, billet);
  if (body == nullptr) return ExcessOfSections(part, billet, 0);
  const auto places = FindDeeper(*body, *solid, Side::kOutside, FacetTolerance(part, billet));
  if (places.empty()) return {};
  const DeepPlace& deepest = places.front();
  const double angle = AngleOf(deepest.place);
  if (auto excess = ExcessOfSections(part, billet, angle)) return excess;
  return Excess{VolumeOutside(part, billet, angle), deepest.depth, InTurningPlane(deepest.place),
                DiscAt(deepest)};
}

std::optional<double> GapBetween(const HalfSection& a, const HalfSection& b) {
  double gap = 0, tolerance = SectionTolerance(a, b);
  const auto [one, other] = a.IsTurned() && b.IsTurned() ? BothFacets() : FacetsOf(a, b);
  if (one != nullptr) {
    tolerance = FacetTolerance(a, b);
    gap = DistanceBetween(*one, *other, tolerance);
  } else {
    gap = DistanceBetween(a.Own(), b.Own());
  }
  if (gap <= tolerance) return {};
  return gap;
}

}  // namespace vanzet::check
