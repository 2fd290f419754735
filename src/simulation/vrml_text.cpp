#include "simulation/vrml_text.h"

#include <algorithm>
#include <array>

#include "base/numbers.h"
#include "macro/command_text.h"
#include "store/macro_vdm.h"

namespace vanzet::simulation {
namespace {

constexpr std::string_view kFacetIndent = "            ";

/// What fits into an item behind the indent and before the line end.
constexpr std::size_t kLongestFacetText = OrvoApi::kItemBytes - 1 - kFacetIndent.size() - 1;

std::string_view WithoutIndent(std::string_view line) {
  return {std::ranges::find_if_not(line, IsWhiteSpace), line.end()};
}

/// The text up to the last white space that leaves it short enough for an item; all of it when it is, or when
/// it has no such place.
std::string_view FirstPiece(std::string_view text) {
  if (text.size() <= kLongestFacetText) return text;
  const std::size_t blank = text.substr(0, kLongestFacetText).find_last_of(" \t");
  return text.substr(0, blank);
}

/// Gives the lines of facets, as items have them. It keeps room for one, of which a file may have millions.
class FacetLines {
 public:
  explicit FacetLines(const LineSink& sink) : sink_(sink) {}

  /// A line too long for an item is broken at white space, where a list of numbers may be broken.
  void Give(std::string_view line) {
    std::string_view rest = WithoutIndent(line);
    do {
      const std::string_view piece = FirstPiece(rest);
      item_.assign(kFacetIndent).append(piece).push_back('\n');
      sink_(item_);
      rest = WithoutIndent(rest.substr(piece.size()));
    } while (!rest.empty());
  }

 private:
  const LineSink& sink_;
  std::string item_;
};

}  // namespace

void GiveVrmlHead(const LineSink& sink) {
  GiveDeviceVrmlHead(sink);
}

void GiveFacets(platform::LineReader& file, const LineSink& sink) {
  FacetLines lines(sink);
  std::string_view line;
  do {
    if (!file.Next(line)) return;
  } while (line.find("coord Coordinate") == std::string_view::npos);
  lines.Give(line);
  for (const std::string_view lastOfStage : {"coordIndex", "]"}) {
    do {
      if (!file.Next(line)) return;
      lines.Give(line);
    } while (line.find(lastOfStage) == std::string_view::npos);
  }
}

void GiveVrmlTail(double offset, const LineSink& sink) {
  GiveDeviceVrmlTail(macro::FormatReal(-offset), macro::FormatReal(-offset - kVrmlMarkerLength), sink);
}

}  // namespace vanzet::simulation
