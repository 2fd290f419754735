#include <dl_dxf.h>
#include <algorithm>
#include <map>
#include <set>
#include <sstream>
#include <utility>

#include "base/letter_case.h"
#include "base/numbers.h"
#include "base/quote.h"
#include "contour/contour_file.h"
#include "contour/drawing_pieces.h"
#include "contour/dxf_groups.h"
#include "contour/piece.h"

namespace vanzet::contour {
namespace {

struct Unit {
  int code;               ///< of $INSUNITS
  std::string_view name;  ///< on the command line; empty: only in drawings
  double millimetres;
};
constexpr Unit kUnits[] = {
    {0, "", 1},  // a drawing without a unit is in millimetres
    {1, "inch", 25.4}, {2, "", 304.8},  {4, "mm", 1},    {5, "", 10},
    {6, "m", 1000},    {9, "", 0.0254}, {13, "", 0.001}, {14, "", 100},
};

constexpr int kName = 2, kVariable = 9, kFlags = 70, kComment = 999;
constexpr std::size_t kMostGroups = 8 * kMostVertices;

/// Reads the groups of a drawing and passes those that contours are made of to the DXF library. The library
/// trusts counts and the order of groups, so both are checked first.
class DxfReader {
 public:
  DxfReader(std::istream& text, const std::string& name) : groups_(text, name), name_(name) {
    // Initialises the library's state before the first group.
    std::istringstream nothing;
    dxf_.in(nothing, &pieces_);
  }

  Result<void> Read();

  /// Requires for these: `Read` was done.
  int unit() const { return unit_; }
  std::vector<DrawingPieces::Entry>& entries() { return pieces_.entries(); }
  std::vector<std::string> Remarks() const;
  const TextLineReader& lines() const { return groups_.lines(); }

 private:
  Result<void> CheckBeginning(const DxfGroup& group) const;
  Result<void> TakeMark(const DxfGroup& group);
  Result<void> TakeGroup(const DxfGroup& group);
  Result<void> TakeHeaderGroup(const DxfGroup& group);
  Result<void> CheckSequence(const DxfGroup& group);
  Result<void> EndEntity();
  void BeginEntity(const DxfGroup& group);
  void Feed(const DxfEntity& entity);

  DxfGroupReader groups_;
  std::string name_;
  std::string section_;   ///< empty: outside of sections, or the name is still to come
  std::string variable_;  ///< the variable of the header that is being read
  int unit_ = 0;
  DxfEntity entity_;  ///< the entity that is being read; its kind is empty when it is left out
  bool inPolyline_ = false;
  std::size_t groupCount_ = 0;
  std::map<std::string, int> leftOut_;
  DL_Dxf dxf_;
  DrawingPieces pieces_;
};

Result<void> DxfReader::Read() {
  for (bool begun = false;;) {
    VANZET_TRY(const DxfGroup group, groups_.Next());
    if (group.code == kComment) continue;
    if (!begun) VANZET_DO(CheckBeginning(group));
    begun = true;
    VANZET_DO(group.code == 0 ? TakeMark(group) : TakeGroup(group));
    if (group.code == 0 && group.value == "EOF") return {};
  }
}

Result<void> DxfReader::CheckBeginning(const DxfGroup& group) const {
  if (group.code == 0 && group.value == "SECTION") return {};
  return groups_.lines().AtLine(group.line, "not a DXF drawing: it does not begin with a section");
}

Result<void> DxfReader::TakeMark(const DxfGroup& group) {
  VANZET_DO(EndEntity());
  const bool isOfSections = group.value == "SECTION" || group.value == "ENDSEC" || group.value == "EOF";
  if (section_ == "ENTITIES") {
    VANZET_DO(CheckSequence(group));
    if (!isOfSections) BeginEntity(group);
  }
  if (!isOfSections) return {};
  section_.clear();
  Feed({group.value, group.line, {}});
  return {};
}

/// A POLYLINE is followed by its vertices and a SEQEND. A SEQEND may also end the attributes of an INSERT.
Result<void> DxfReader::CheckSequence(const DxfGroup& group) {
  const bool isVertex = group.value == "VERTEX";
  if (isVertex && !inPolyline_) return groups_.lines().At("the VERTEX has no POLYLINE");
  if (inPolyline_ && !isVertex && group.value != "SEQEND") {
    return groups_.lines().At("expected a VERTEX or the SEQEND of the POLYLINE, found " +
                              Quoted(group.value));
  }
  inPolyline_ = isVertex || group.value == "POLYLINE";
  return {};
}

void DxfReader::BeginEntity(const DxfGroup& group) {
  if (IsTaken(group.value)) {
    entity_ = {group.value, group.line, {}};
  } else {
    ++leftOut_[group.value];
  }
}

Result<void> DxfReader::EndEntity() {
  if (entity_.kind.empty()) return {};
  const DxfEntity entity = std::exchange(entity_, {});
  VANZET_DO(CheckEntity(entity, groups_.lines()));
  Feed(entity);
  return {};
}

/// Passes an entity to the library, which adds it when the next one begins.
void DxfReader::Feed(const DxfEntity& entity) {
  std::string text = "0\n" + entity.kind + "\n";
  for (const DxfGroup& group : entity.groups) text += std::to_string(group.code) + "\n" + group.value + "\n";
  std::istringstream stream(text);
  dxf_.readDxfGroups(stream, &pieces_);
  pieces_.SetLine(entity.line);
  for (std::size_t i = 0; i < entity.groups.size(); ++i) dxf_.readDxfGroups(stream, &pieces_);
}

Result<void> DxfReader::TakeGroup(const DxfGroup& group) {
  if (section_.empty()) {
    if (group.code == kName) section_ = group.value;
    return {};
  }
  if (section_ == "HEADER") return TakeHeaderGroup(group);
  if (entity_.kind.empty() || !IsUsed(group.code)) return {};
  VANZET_DO(CheckValue(group, groups_.lines()));
  if (++groupCount_ > kMostGroups) return groups_.lines().At("the drawing is too large");
  entity_.groups.push_back(group);
  return {};
}

Result<void> DxfReader::TakeHeaderGroup(const DxfGroup& group) {
  if (group.code == kVariable) variable_ = group.value;
  if (variable_ != "$INSUNITS" || group.code != kFlags) return {};
  const auto unit = WholeInteger(group.value);
  if (!unit) return groups_.lines().At("expected a number, found " + Quoted(group.value));
  unit_ = *unit;
  return {};
}

std::vector<std::string> DxfReader::Remarks() const {
  std::map<std::string, int> counts = leftOut_;
  for (const std::string& kind : pieces_.leftOut()) ++counts[kind];
  std::vector<std::string> remarks;
  remarks.reserve(counts.size());
  for (const auto& [kind, count] : counts) {
    remarks.push_back(name_ + ": left out " + std::to_string(count) + " " + kind);
  }
  return remarks;
}

/// The length of the drawing's unit in millimetres.
Result<double> Millimetres(int code, const std::string& wanted, const std::string& name) {
  const auto* const unit = wanted.empty() ? std::ranges::find(kUnits, code, &Unit::code)
                                          : std::ranges::find(kUnits, std::string_view(wanted), &Unit::name);
  if (unit != std::end(kUnits)) return unit->millimetres;
  if (!wanted.empty()) return Fault{"expected the unit mm, inch or m, found " + Quoted(wanted)};
  return Fault{"the drawing's unit, $INSUNITS " + std::to_string(code) + ", is unknown; give the unit", name};
}

/// The pieces that are on the layer, in millimetres.
Result<std::vector<Piece>> PiecesOn(const std::string& layer, std::vector<DrawingPieces::Entry>& entries,
                                    double unit, const TextLineReader& lines) {
  std::vector<Piece> pieces;
  for (DrawingPieces::Entry& entry : entries) {
    if (!layer.empty() && !EqualWithoutCase(entry.layer, layer)) continue;
    Piece& piece = entry.piece;
    piece.Scale(unit);
    if (const auto checked = CheckPiece(piece); !checked) {
      return lines.AtLine(piece.line, checked.fault().text);
    }
    pieces.push_back(std::move(piece));
  }
  return pieces;
}

/// "has no lines or arcs on the layer 'X', but on 'A', 'B'"
Fault NothingFound(const std::string& layer, const std::vector<DrawingPieces::Entry>& entries,
                   const std::string& name) {
  const std::string nothing = "has no lines or arcs";
  if (layer.empty() || entries.empty()) return {nothing, name};
  std::set<std::string> layers;
  for (const DrawingPieces::Entry& entry : entries) layers.insert(Quoted(entry.layer));
  std::string text = nothing + " on the layer " + Quoted(layer) + ", but on ";
  for (const std::string& other : layers) text += (other == *layers.begin() ? "" : ", ") + other;
  return {text, name};
}

Result<Contours> ContoursOf(const std::vector<Piece>& pieces, const TextLineReader& lines) {
  Contours contours;
  for (const Piece& piece : pieces) {
    const auto curve = CurveOf(piece);
    if (!curve) return lines.AtLine(piece.line, curve.fault().text);
    contours.push_back({static_cast<int>(contours.size()) + 1, *curve});
  }
  return contours;
}

}  // namespace

Result<DxfContent> ReadDxf(std::istream& text, const std::string& name, const DxfOptions& options) {
  DxfReader reader(text, name);
  VANZET_DO(reader.Read());
  VANZET_TRY(const double unit, Millimetres(reader.unit(), options.unit, name));
  VANZET_TRY(const std::vector<Piece> pieces,
             PiecesOn(options.layer, reader.entries(), unit, reader.lines()));
  if (pieces.empty()) return NothingFound(options.layer, reader.entries(), name);
  VANZET_TRY(Contours contours, ContoursOf(Join(pieces, options.join), reader.lines()));
  return DxfContent{std::move(contours), reader.Remarks()};
}

}  // namespace vanzet::contour
