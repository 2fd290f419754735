#include "contour/dxf/reader.h"

#include <utility>

#include "base/numbers.h"
#include "base/quote.h"
#include "contour/contour.h"

namespace vanzet::contour {
namespace {

constexpr int kName = 2, kVariable = 9, kFlags = 70, kComment = 999;
constexpr int kElsewhere = 4;
constexpr std::size_t kMostGroups = 8 * kMostVertices;

class DrawingReader {
 public:
  explicit DrawingReader(DxfGroups& groups) : groups_(groups) {}

  Result<DxfDrawing> Read();

 private:
  /// The drawing, if it may end here without its mark.
  Result<DxfDrawing> AtEnd();
  Result<void> TakeMark(const DxfGroup& group);
  Result<void> TakeGroup(DxfGroup group);
  Result<void> TakeHeaderGroup(const DxfGroup& group);
  Result<void> CheckSequence(const DxfGroup& group);
  Result<void> EndEntity();
  void EndBlock();
  bool HasEntities() const { return section_ == "ENTITIES" || section_ == "BLOCKS"; }

  DxfGroups& groups_;
  DxfDrawing drawing_;
  std::string section_;   ///< empty: outside of sections, or the name is still to come
  std::string variable_;  ///< the variable of the header that is being read
  int place_ = 0;         ///< of the group that was read last
  DxfEntity entity_;      ///< the one that is being read; its kind is empty when there is none
  bool inPolyline_ = false;
  DxfEntity polyline_;
  std::vector<DxfEntity> vertices_;
  DxfEntity block_;  ///< the block that is being read; its kind is empty outside of blocks
  std::vector<Item> blockItems_;
  std::size_t groupCount_ = 0;
  bool hasEntities_ = false;  ///< the section of the entities has ended
};

Result<DxfDrawing> DrawingReader::Read() {
  DxfGroup group;
  for (bool begun = false;;) {
    VANZET_TRY(const bool more, groups_.Next(group));
    place_ = group.place;
    if (!more) return AtEnd();
    if (group.code == kComment) continue;
    if (!begun && (group.code != 0 || group.value != "SECTION")) {
      return groups_.At(group.place, "not a DXF drawing: it does not begin with a section");
    }
    begun = true;
    VANZET_DO(group.code == 0 ? TakeMark(group) : TakeGroup(group));
    if (group.code == 0 && group.value == "EOF") return std::move(drawing_);
  }
}

Result<DxfDrawing> DrawingReader::AtEnd() {
  if (hasEntities_ && section_.empty() && entity_.kind.empty()) return std::move(drawing_);
  return groups_.At(place_, "the drawing is cut short: it does not end with the group '0 EOF'");
}

Result<void> DrawingReader::TakeMark(const DxfGroup& group) {
  VANZET_DO(EndEntity());
  const bool isOfSections = group.value == "SECTION" || group.value == "ENDSEC" || group.value == "EOF";
  if (HasEntities()) {
    VANZET_DO(CheckSequence(group));
    if (!isOfSections) entity_ = {group.value, group.place, {}};
  }
  if (!isOfSections) return {};
  hasEntities_ = hasEntities_ || section_ == "ENTITIES";
  EndBlock();
  section_.clear();
  return {};
}

/// A POLYLINE is followed by its vertices and a SEQEND. A SEQEND may also end the attributes of an INSERT.
Result<void> DrawingReader::CheckSequence(const DxfGroup& group) {
  const bool isVertex = group.value == "VERTEX";
  if (isVertex && !inPolyline_) return groups_.At(group.place, "the VERTEX has no POLYLINE");
  if (inPolyline_ && !isVertex && group.value != "SEQEND") {
    return groups_.At(group.place,
                      "expected a VERTEX or the SEQEND of the POLYLINE, found " + Quoted(group.value));
  }
  inPolyline_ = isVertex || group.value == "POLYLINE";
  return {};
}

Result<void> DrawingReader::EndEntity() {
  if (entity_.kind.empty()) return {};
  DxfEntity entity = std::exchange(entity_, {});
  VANZET_DO(CheckEntity(entity, groups_));
  std::vector<Item>& items = block_.kind.empty() ? drawing_.items : blockItems_;
  if (entity.kind == "BLOCK") {
    EndBlock();
    block_ = std::move(entity);
  } else if (entity.kind == "ENDBLK") {
    EndBlock();
  } else if (entity.kind == "POLYLINE") {
    polyline_ = std::move(entity);
  } else if (entity.kind == "VERTEX") {
    vertices_.push_back(std::move(entity));
  } else if (entity.kind == "SEQEND" && !polyline_.kind.empty()) {
    items.push_back(ItemOfPolyline(std::exchange(polyline_, {}), std::exchange(vertices_, {})));
  } else if (!DrawsNothing(entity.kind) && (section_ == "ENTITIES" || !block_.kind.empty())) {
    items.push_back(ItemOf(entity));
  }
  return {};
}

void DrawingReader::EndBlock() {
  if (block_.kind.empty()) return;
  Block& block = drawing_.blocks[block_.Text(kName)];
  block = {block_.Point(10), (block_.Integer(kFlags) & kElsewhere) != 0, std::exchange(blockItems_, {})};
  block_ = {};
}

Result<void> DrawingReader::TakeGroup(DxfGroup group) {
  if (section_.empty()) {
    if (group.code == kName) section_ = group.value;
    return {};
  }
  if (section_ == "HEADER") return TakeHeaderGroup(group);
  if (entity_.kind.empty()) return {};
  if (++groupCount_ > kMostGroups) return groups_.At(group.place, "the drawing is too large");
  return TakeInto(entity_, std::move(group), groups_);
}

Result<void> DrawingReader::TakeHeaderGroup(const DxfGroup& group) {
  if (group.code == kVariable) variable_ = group.value;
  if (variable_ != "$INSUNITS" || group.code != kFlags) return {};
  const auto unit = WholeInteger(group.value);
  if (!unit) return groups_.At(group.place, "expected a number, found " + Quoted(group.value));
  drawing_.unit = *unit;
  return {};
}

}  // namespace

Result<DxfDrawing> ReadDrawing(DxfGroups& groups) {
  return DrawingReader(groups).Read();
}

}  // namespace vanzet::contour
