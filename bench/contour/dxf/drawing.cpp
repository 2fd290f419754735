#include <algorithm>
#include <utility>

#include "base/number_text.h"
#include "base/quote.h"
#include "contour/contour_file.h"
#include "contour/dxf/doubles.h"
#include "contour/dxf/gaps.h"
#include "contour/dxf/layout.h"
#include "contour/dxf/overlaps.h"
#include "contour/dxf/reader.h"

/// The contours of a drawing in DXF, from its bytes on.
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

/// The length of the drawing's unit in millimetres.
Result<double> Millimetres(int code, const std::string& wanted, const std::string& name) {
  const auto* const unit = wanted.empty() ? std::ranges::find(kUnits, code, &Unit::code)
                                          : std::ranges::find(kUnits, std::string_view(wanted), &Unit::name);
  if (unit != std::end(kUnits)) return unit->millimetres;
  if (!wanted.empty()) return Fault{"expected the unit mm, inch or m, found " + Quoted(wanted)};
  return Fault{"the drawing's unit, $INSUNITS " + std::to_string(code) + ", is unknown; give the unit", name};
}

/// "2 LINE, 1 TEXT"
std::string CountsText(const std::map<std::string, int>& counts) {
  std::string text;
  for (const auto& [kind, count] : counts) {
    text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + kind;
  }
  return text;
}

std::string CountText(int count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

/// "has no lines or arcs on the layer 'X', but on 'A', 'B'; left out 1 TEXT"
Fault NothingFound(const DxfLayout& layout, const std::string& layer, const std::string& name) {
  std::string text = "has no lines or arcs";
  if (!layer.empty() && !layout.layers.empty()) {
    text += " on the layer " + Quoted(layer) + ", but on ";
    for (const std::string& other : layout.layers) {
      text += (other == *layout.layers.begin() ? "" : ", ") + Quoted(other);
    }
  }
  if (!layout.leftOut.empty()) text += "; left out " + CountsText(layout.leftOut);
  return {text, name};
}

/// The lines about a drawing that was read.
class Remarks {
 public:
  explicit Remarks(const std::string& name) : name_(name) {}

  void AddLosses(const DxfLayout& layout) {
    if (!layout.leftOut.empty()) Add("left out " + CountsText(layout.leftOut), true);
    if (!layout.notLevel.empty()) {
      Add("not parallel to the drawing's plane, and read as seen from above: " + CountsText(layout.notLevel),
          true);
    }
  }

  void AddDoubles(std::map<std::string, int> counts, int contours) {
    if (contours > 0) counts["joined contour" + std::string(contours == 1 ? "" : "s")] = contours;
    if (!counts.empty()) Add("dropped what is there twice: " + CountsText(counts), false);
  }

  void AddOverlaps(const Overlaps& overlaps) {
    constexpr int kDigits = 6;
    if (overlaps.lines == 0) return;
    const geometry::Point& at = overlaps.place;
    Add(CountText(overlaps.lines, "line") + (overlaps.lines == 1 ? " overlaps" : " overlap") +
            " another one; the first begins at " + NumberText(at.x, kDigits) + ", " +
            NumberText(at.y, kDigits),
        false);
  }

  void AddGaps(const Gaps& gaps) {
    constexpr int kDigits = 3;
    if (gaps.nearest == 0) return;
    Add(CountText(gaps.open, "open contour") + "; nearest ends " + NumberText(gaps.nearest, kDigits) +
            " mm apart, try --join " + NumberText(JoinFor(gaps.nearest), kDigits),
        false);
  }

  std::vector<Remark> remarks;

 private:
  void Add(const std::string& text, bool isLoss) { remarks.push_back({name_ + ": " + text, isLoss}); }

  const std::string& name_;
};

std::vector<Piece> PiecesOf(std::vector<PlacedPiece> placed) {
  std::vector<Piece> pieces;
  pieces.reserve(placed.size());
  for (PlacedPiece& piece : placed) pieces.push_back(std::move(piece.piece));
  return pieces;
}

Result<Contours> ContoursOf(const std::vector<Piece>& pieces, const DxfGroups& groups) {
  Contours contours;
  for (const Piece& piece : pieces) {
    auto contour = ContourOf(static_cast<int>(contours.size()) + 1, piece);
    if (!contour) return groups.At(piece.line, contour.fault().text);
    contours.push_back(std::move(*contour));
  }
  return contours;
}

Result<void> CheckPieces(const std::vector<PlacedPiece>& pieces, const DxfGroups& groups) {
  for (const PlacedPiece& placed : pieces) {
    const auto checked = CheckPiece(placed.piece);
    if (!checked) return groups.At(placed.piece.line, checked.fault().text);
  }
  return {};
}

Result<DxfLayout> LayOutIn(const DxfDrawing& drawing, const LayoutOptions& options, const DxfGroups& groups) {
  int place = 0;
  auto layout = LayOut(drawing, options, place);
  if (!layout) return groups.At(place, layout.fault().text);
  return layout;
}

}  // namespace

Result<DxfContent> ReadDxf(std::istream& bytes, const std::string& name, const DxfOptions& options) {
  VANZET_TRY(const auto groups, DxfGroups::Open(bytes, name));
  VANZET_TRY(const DxfDrawing drawing, ReadDrawing(*groups));
  VANZET_TRY(const double unit, Millimetres(drawing.unit, options.unit, name));
  VANZET_TRY(DxfLayout layout,
             LayOutIn(drawing, {options.layer, unit, ArcBudget(options.tolerance)}, *groups));
  VANZET_DO(CheckPieces(layout.pieces, *groups));
  if (layout.pieces.empty()) return NothingFound(layout, options.layer, name);
  Remarks remarks(name);
  remarks.AddLosses(layout);
  auto doubles = DropDoubles(layout.pieces);
  std::vector<Piece> joined = Join(PiecesOf(std::move(layout.pieces)), options.join);
  remarks.AddDoubles(std::move(doubles), DropDoubles(joined));
  remarks.AddOverlaps(OverlapsOf(joined));
  remarks.AddGaps(GapsOf(joined, options.join));
  VANZET_TRY(Contours contours, ContoursOf(joined, *groups));
  return DxfContent{std::move(contours), std::move(remarks.remarks), true};
}

}  // namespace vanzet::contour
