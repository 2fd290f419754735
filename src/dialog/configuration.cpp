#include "dialog/configuration.h"

#include <string>

#include "devices/kinds.h"
#include "dialog/texts.h"
#include "host/bridge.h"
#include "host/host_functions.h"
#include "host/macro_variables.h"
#include "host/message_ids.h"
#include "macro/billet_drawing.h"
#include "platform/file_dialog.h"
#include "platform/files.h"
#include "platform/message_box.h"
#include "simulation/rebuild.h"
#include "store/billet_records.h"
#include "store/clamp_records.h"
#include "store/datum_records.h"

namespace vanzet::dialog {
namespace {

using host::hostFunctions;

constexpr std::int32_t kCenterPass = 2;

DeviceParams DeviceOfPass(std::int32_t pass, std::int32_t spur, bool isSubAvailable) {
  std::string name;
  DeviceParams device;
  if (pass == kCenterPass) {
    ReadCenter(spur, isSubAvailable, name, device);
  } else {
    ReadClampDevice(spur, pass, name, device);
  }
  return device;
}

void CommitSpur(std::int32_t spur, PpDefIni& machine) {
  const bool isSubAvailable = machine.IsSubSpindleAvailable();
  const std::int32_t passes = isSubAvailable && machine.IsTailStockAvailable() ? 3 : 2;
  for (std::int32_t pass = 0; pass < passes; ++pass) {
    const std::int32_t spindle = pass == 0 ? 0 : 1;
    const DeviceParams device = DeviceOfPass(pass, spur, isSubAvailable);
    // A device from a VDM brought its data with it.
    if (device.type != 0 && !devices::IsOwn(device.type)) {
      BuildSpunDevice(spur, spindle, isSubAvailable, device);
    }
    RebuildSimulation(spur, spindle);
  }
}

/// A file of the installation; a saved definition begins as a copy of it.
constexpr const char* kTemplate = "support\\Turn_Multiax\\utils\\template.vdm";

platform::FileQuestion AskForVdm(platform::FileQuestion::Kind kind, void* owner) {
  platform::FileQuestion question;
  question.kind = kind;
  question.filter = "VDM Files (*.vdm)|*.vdm||";
  question.defaultExtension = "vdm";
  question.promptsOverwrite = true;
  question.owner = owner;
  return question;
}

}  // namespace

void CommitDefinitions(PpDefIni& machine) {
  const std::int32_t spurs = machine.GetSpindleSpurCount();
  for (std::int32_t spur = 0; spur < spurs; ++spur) CommitSpur(spur, machine);
}

void SaveConfiguration(void* window) {
  const auto path = platform::AskForFile(AskForVdm(platform::FileQuestion::Kind::kSave, window));
  if (!path) return;
  std::string root;
  OrvoApi::GetGlobalStrVar("$_root_dir", root);
  // Without the template the host saves alone.
  platform::CopyWholeFile(root + kTemplate, *path);
  // The definition of spur 0, whichever spur is shown.
  host::SendCommand("vdm save '" + *path + "' i_ret i_billet_vdm");
}

bool LoadConfiguration(void* window) {
  const auto path = platform::AskForFile(AskForVdm(platform::FileQuestion::Kind::kOpen, window));
  if (!path) return false;
  const auto vdm = static_cast<std::uint32_t>(OrvoApi::GetGlobalIntVar("i_billet_vdm"));
  if (hostFunctions.OrvoMacroVdmExists(vdm) != 0 &&
      platform::Show({"", Text(message::kOverwriteDefinition), platform::box::kYesNo, window}) !=
          platform::answer::kYes) {
    return false;
  }
  hostFunctions.OrvoMacroVdmDelete(vdm);
  host::SendCommand("vdm load '" + *path + "' i_ret i_billet_vdm");
  return true;
}

void DrawLoadedBillets(std::int32_t spur, std::int32_t currentSpindle, PpDefIni& machine) {
  BilletRecord billet;
  DatumRecord datum;
  ReadBillet(spur, 0, billet);
  ReadDatum(spur, datum);
  DrawBillet(billet, 0, datum.originMain);
  DrawBilletOutMarks(datum, 0);
  if (!machine.IsSubSpindleAvailable()) return;
  // Required: for the sub spindle the datum is ignored, and the billet goes to the spindle of the selection.
  ReadBillet(spur, 1, billet);
  DrawBillet(billet, currentSpindle, 0.0);
  DrawBilletOutMarks({}, 1);
}

}  // namespace vanzet::dialog
