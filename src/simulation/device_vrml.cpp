#include "simulation/device_vrml.h"

#include "devices/kinds.h"
#include "macro/command_text.h"
#include "platform/line_reader.h"
#include "simulation/device_operations.h"
#include "simulation/vrml_text.h"

namespace vanzet {
namespace {

constexpr std::int32_t kVrmlSection = 1;

/// A jaw keeps its description as a tool holder where other devices keep their placement.
std::int32_t PlacementSection(std::int32_t type) {
  return devices::IsJaw(type) ? 3 : 2;
}

void StoreText(BilletVdm& definition, const std::string& path, double offset) {
  platform::LineReader file(path);
  if (!file.IsOpen()) return;
  const auto add = [&definition](const std::string& line) { definition.ItemAdd(line); };
  simulation::GiveVrmlHead(add);
  simulation::GiveFacets(file, add);
  simulation::GiveVrmlTail(offset, add);
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
