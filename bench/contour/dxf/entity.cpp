#include "contour/dxf/entity.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/numbers.h"
#include "base/quote.h"

namespace vanzet::contour {
namespace {

constexpr int kName = 2, kLayer = 8, kOnPaper = 67, kVertexCount = 90, kX = 10, kY = 20, kBulge = 42;
constexpr int kNone = 0;

constexpr int kReals[] = {kX, 11, 12, 13,     kY, 21, 22, 23, 30, 31,  32,  33,
                          38, 40, 41, kBulge, 43, 44, 45, 50, 51, 210, 220, 230};
constexpr int kIntegers[] = {66, kOnPaper, 70, 71, 72, 73, 74, 75, kVertexCount, 91, 92, 93, 94, 95, 96, 97};
constexpr int kTexts[] = {kName, kLayer};

/// The kinds of entity that contours are made of, with the groups that each must have.
struct Kind {
  std::string_view name;
  std::array<int, 5> required;  ///< the rest is `kNone`
};
constexpr Kind kKinds[] = {
    {"LINE", {kX, kY, 11, 21}},
    {"ARC", {kX, kY, 40, 50, 51}},
    {"CIRCLE", {kX, kY, 40}},
    {"ELLIPSE", {kX, kY, 11, 21, 40}},
    {"SPLINE", {71}},
    {"HATCH", {91}},
    {"INSERT", {kName}},
    {"LWPOLYLINE", {kVertexCount}},
    {"POLYLINE", {}},
    {"VERTEX", {kX, kY}},
    {"SEQEND", {}},
    {"BLOCK", {kName}},
};

constexpr std::string_view kSilent[] = {"SEQEND", "ATTRIB", "VIEWPORT", "ENDBLK"};

bool Contains(const auto& rows, const auto& value) {
  return std::ranges::find(rows, value) != std::end(rows);
}

/// The order of groups in an LWPOLYLINE: the count of vertices, then for each an x, a y and at most one
/// bulge.
class VertexOrder {
 public:
  /// Returns false when the group is out of order.
  bool Take(const DxfGroup& group) {
    switch (group.code) {
      case kVertexCount: return !std::exchange(hasCount_, true);
      case kX:
        if (!hasCount_ || !hasY_) return false;
        hasY_ = hasBulge_ = false;
        ++vertices_;
        return true;
      case kY: return vertices_ > 0 && !std::exchange(hasY_, true);
      case kBulge: return vertices_ > 0 && !std::exchange(hasBulge_, true);
      default: return true;
    }
  }

  /// The number of complete vertices.
  int Whole() const { return hasY_ ? vertices_ : vertices_ - 1; }

 private:
  bool hasCount_ = false, hasY_ = true, hasBulge_ = true;
  int vertices_ = 0;
};

Result<void> CheckVertices(const DxfEntity& entity, const DxfGroups& groups) {
  VertexOrder order;
  for (const DxfGroup& group : entity.groups) {
    if (!order.Take(group)) {
      return groups.At(group.place, "group " + std::to_string(group.code) + " is out of order in LWPOLYLINE");
    }
  }
  const int declared = entity.Integer(kVertexCount);
  if (order.Whole() == declared) return {};
  return groups.At(entity.place, "the LWPOLYLINE declares " + std::to_string(declared) +
                                     " vertices and has " + std::to_string(order.Whole()));
}

}  // namespace

const DxfGroup* DxfEntity::Find(int code) const {
  const auto group = std::ranges::find(groups, code, &DxfGroup::code);
  return group == groups.end() ? nullptr : &*group;
}

double DxfEntity::Real(int code, double otherwise) const {
  const DxfGroup* const group = Find(code);
  return group == nullptr ? otherwise : group->number;
}

int DxfEntity::Integer(int code, int otherwise) const {
  return static_cast<int>(Real(code, otherwise));
}

std::string DxfEntity::Text(int code) const {
  const DxfGroup* const group = Find(code);
  return group == nullptr ? "" : group->value;
}

Space DxfEntity::Point(int code, const Space& otherwise) const {
  return {Real(code, otherwise.x), Real(code + 10, otherwise.y), Real(code + 20, otherwise.z)};
}

std::vector<double> DxfEntity::Reals(int code) const {
  std::vector<double> numbers;
  for (const DxfGroup& group : groups) {
    if (group.code == code) numbers.push_back(group.number);
  }
  return numbers;
}

std::vector<Space> DxfEntity::Points(int code) const {
  std::vector<Space> points;
  for (const DxfGroup& group : groups) {
    if (group.code == code) points.push_back({group.number, 0, 0});
    if (group.code == code + 10 && !points.empty()) points.back().y = group.number;
    if (group.code == code + 20 && !points.empty()) points.back().z = group.number;
  }
  return points;
}

bool IsRead(std::string_view kind) {
  return std::ranges::find(kKinds, kind, &Kind::name) != std::end(kKinds);
}

bool DrawsNothing(std::string_view kind) {
  return Contains(kSilent, kind);
}

Result<void> TakeInto(DxfEntity& entity, DxfGroup group, const DxfGroups& groups) {
  const bool isInteger = Contains(kIntegers, group.code), isReal = Contains(kReals, group.code);
  if (!isInteger && !isReal && !Contains(kTexts, group.code)) return {};
  const bool isRead = IsRead(entity.kind);
  if (!isRead && group.code != kLayer && group.code != kOnPaper) return {};
  std::optional<double> number = 0;
  if (isInteger) number = WholeInteger(group.value);
  if (isReal) number = WholeReal(group.value);
  if (!number && isRead) return groups.At(group.place, "expected a number, found " + Quoted(group.value));
  group.number = number.value_or(0);
  if (isInteger || isReal) group.value.clear();
  entity.groups.push_back(std::move(group));
  return {};
}

Result<void> CheckEntity(const DxfEntity& entity, const DxfGroups& groups) {
  const Kind* const kind = std::ranges::find(kKinds, entity.kind, &Kind::name);
  if (kind == std::end(kKinds)) return {};
  for (const int code : kind->required) {
    if (code != kNone && !entity.Has(code)) {
      return groups.At(entity.place, "the " + entity.kind + " has no group " + std::to_string(code));
    }
  }
  return entity.kind == "LWPOLYLINE" ? CheckVertices(entity, groups) : Result<void>();
}

}  // namespace vanzet::contour
