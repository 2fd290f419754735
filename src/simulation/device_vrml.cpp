#include "simulation/device_vrml.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "base/numbers.h"
#include "devices/kinds.h"
#include "macro/command_text.h"
#include "platform/files.h"
#include "platform/host_extensions.h"
#include "simulation/device_operations.h"

namespace vanzet::simulation {
namespace {

constexpr std::string_view kFacetIndent = "            ";

/// The longest text that fits into an item between the indent and the line end.
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

namespace vanzet {
namespace {

constexpr std::int32_t kVrmlSection = 1;

/// A jaw keeps its description as a tool holder where other devices keep their placement.
std::int32_t PlacementSection(std::int32_t type) {
  return devices::IsJaw(type) ? 3 : 2;
}

/// Reports a file of facets that the host has written and that cannot be read. A host that wrote none has
/// said why already.
void ReportUnreadable(const std::string& path) {
  std::error_code error;
  const std::filesystem::path file = platform::FileOf(path);
  if (!std::filesystem::exists(file, error)) return;
  platform::ReportFault({.text = "cannot be read", .file = file.string(), .kind = FaultKind::kSystem});
}

void StoreText(BilletVdm& definition, const std::string& path, double offset) {
  platform::LineReader file(path);
  if (!file.IsOpen()) return ReportUnreadable(path);
  const auto add = [&definition](const std::string& line) { definition.ItemAdd(line); };
  simulation::GiveVrmlHead(add);
  simulation::GiveFacets(file, add);
  simulation::GiveVrmlTail(offset, add);
  if (file.HasFailed()) ReportUnreadable(path);
}

}  // namespace

bool StoreDeviceVrml(BilletVdm& definition, bool isSub, bool subSpindleAvailable, std::int32_t type,
                     const std::string& path, double offset) {
  const auto* const operations = simulation::OperationsOf(type, subSpindleAvailable);
  if (operations == nullptr || !definition.OperationSelect(operations->Vrml(isSub))) return false;
  definition.SectionRewrite(kVrmlSection);
  StoreText(definition, path, offset);
  definition.SectionCommit();
  definition.SectionRewrite(PlacementSection(type));
  definition.ItemAdd(" 0 0 " + macro::FormatReal(offset) + "\n");
  definition.SectionCommit();
  return true;
}

}  // namespace vanzet
