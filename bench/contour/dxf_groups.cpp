#include "contour/dxf_groups.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <utility>

#include "base/numbers.h"
#include "base/quote.h"

namespace vanzet::contour {
namespace {

constexpr int kLayer = 8, kFlags = 70, kVertexCount = 90, kX = 10, kY = 20, kBulge = 42;
constexpr int kNone = 0;

constexpr int kReals[] = {kX, 11, kY, 21, 30, 31, 38, 40, kBulge, 50, 51, 210, 220, 230};
constexpr int kIntegers[] = {66, 67, kFlags, kVertexCount};

/// The kinds of entity that contours are made of, with the groups that each must have.
struct Kind {
  std::string_view name;
  std::array<int, 5> required;  ///< the rest is `kNone`
};
constexpr Kind kKinds[] = {
    {"LINE", {kX, kY, 11, 21}},
    {"ARC", {kX, kY, 40, 50, 51}},
    {"CIRCLE", {kX, kY, 40}},
    {"LWPOLYLINE", {kVertexCount}},
    {"POLYLINE", {}},
    {"VERTEX", {kX, kY}},
    {"SEQEND", {}},
};

const Kind* KindOf(std::string_view name) {
  const Kind* const kind = std::ranges::find(kKinds, name, &Kind::name);
  return kind == std::end(kKinds) ? nullptr : kind;
}

bool Contains(const auto& codes, int code) {
  return std::ranges::find(codes, code) != std::end(codes);
}

std::string_view WithoutBlanks(std::string_view text) {
  while (!text.empty() && IsWhiteSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsWhiteSpace(text.back())) text.remove_suffix(1);
  return text;
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

Result<void> CheckVertices(const DxfEntity& entity, const TextLineReader& lines) {
  VertexOrder order;
  int declared = 0;
  for (const DxfGroup& group : entity.groups) {
    if (!order.Take(group)) {
      return lines.AtLine(group.line,
                          "group " + std::to_string(group.code) + " is out of order in LWPOLYLINE");
    }
    if (group.code == kVertexCount) declared = IntegerOrZero(group.value);
  }
  if (order.Whole() == declared) return {};
  return lines.AtLine(entity.line, "the LWPOLYLINE declares " + std::to_string(declared) +
                                       " vertices and has " + std::to_string(order.Whole()));
}

}  // namespace

bool DxfEntity::Has(int code) const {
  return std::ranges::find(groups, code, &DxfGroup::code) != groups.end();
}

Result<DxfGroup> DxfGroupReader::Next() {
  DxfGroup group;
  std::string code;
  for (std::string* const text : {&code, &group.value}) {
    VANZET_TRY(const bool more, lines_.Next(*text));
    if (!more) return lines_.At("the drawing is cut short: it does not end with the group '0 EOF'");
  }
  group.line = lines_.LineNumber();
  group.value = WithoutBlanks(group.value);
  const auto number = WholeInteger(code);
  if (!number) return lines_.AtLine(group.line - 1, "expected a group code, found " + Quoted(code));
  group.code = *number;
  return group;
}

bool IsTaken(std::string_view kind) {
  return KindOf(kind) != nullptr;
}

bool IsUsed(int code) {
  return code == kLayer || Contains(kReals, code) || Contains(kIntegers, code);
}

Result<void> CheckValue(const DxfGroup& group, const TextLineReader& lines) {
  constexpr std::size_t kLongestValue = 255;  // the DXF library stumbles over lines of more than 1000
  if (group.value.size() > kLongestValue) {
    return lines.AtLine(group.line, "the value is longer than " + std::to_string(kLongestValue) + " bytes");
  }
  const bool isNumber = Contains(kIntegers, group.code) ? WholeInteger(group.value).has_value()
                        : Contains(kReals, group.code)  ? WholeReal(group.value).has_value()
                                                        : true;
  if (isNumber) return {};
  return lines.AtLine(group.line, "expected a number, found " + Quoted(group.value));
}

Result<void> CheckEntity(const DxfEntity& entity, const TextLineReader& lines) {
  const Kind* const kind = KindOf(entity.kind);
  assert(kind != nullptr && "only entities that are taken are checked");
  for (const int code : kind->required) {
    if (code != kNone && !entity.Has(code)) {
      return lines.AtLine(entity.line, "the " + entity.kind + " has no group " + std::to_string(code));
    }
  }
  return entity.kind == "LWPOLYLINE" ? CheckVertices(entity, lines) : Result<void>();
}

}  // namespace vanzet::contour
