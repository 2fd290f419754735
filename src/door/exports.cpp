#include "door/exports.h"

#include <optional>
#include <string>

#include "base/exception_fault.h"
#include "dialog/dlg_main.h"
#include "door/module_state.h"
#include "host/bridge.h"
#include "host/host_functions.h"
#include "host/message_ids.h"
#include "host/messages.h"
#include "machine/pp_def_ini.h"
#include "platform/host_extensions.h"
#include "platform/message_box.h"
#include "platform/symbols.h"
#include "simulation/rebuild.h"

namespace vanzet {

// These two are set up in this order when the module is loaded.
CvanzetApp theApp;
extern const std::string attributeMark;
/// Part of the module's start-up values; unused.
const std::string attributeMark = "#ATTRIB#";

}  // namespace vanzet

namespace {

using namespace vanzet;

/// Shows the exception that ended an export, and reports it to the host, for which the call has failed.
/// Nothing is thrown.
void ReportException(ModuleStateGuard* guard) {
  try {
    Fault fault = FaultOfException();
    platform::Show({"vanzet", fault.text, platform::box::kOk + platform::box::kExclamationIcon});
    // Without a view that has a dialog the box was a line on standard error: the host need not repeat it.
    if (guard == nullptr || guard->ViewForDialog() == nullptr) fault.kind = FaultKind::kReported;
    platform::ReportFault(fault);
  } catch (...) {
    platform::ReportFault({.text = "out of memory", .kind = FaultKind::kSystem});
  }
}

/// Runs the work of an export inside the module's state. No exception reaches the host.
template <class Work>
void RunExport(Work work) {
  std::optional<ModuleStateGuard> guard;
  platform::KeepLoaded();
  try {
    guard.emplace();
    work(*guard);
  } catch (...) {
    ReportException(guard ? &*guard : nullptr);
  }
}

void UpgradeEverySpur(ModuleStateGuard& /*guard*/) {
  PpDefIni machine;
  machine.LocateIni();
  const std::int32_t spurs = machine.GetSpindleSpurCount();
  for (std::int32_t spur = 0; spur < spurs; ++spur) {
    BilletVdm definition(BilletVdm::VdmNumber(spur));
    definition.ReOrg(RebuildJawSimulation);
  }
}

/// The beginning of a structure of the host's, as far as it is read here.
struct DLLVARSXX {
  void* unused;
  void* mainWindow;
};

/// The host's main window at the first call. A later change has no effect.
void* MainWindow(const void* variables) {
  static void* const MainParentWindow =
      variables == nullptr ? nullptr : static_cast<const DLLVARSXX*>(variables)->mainWindow;
  return MainParentWindow;
}

void ReportMissingDisplay() {
  std::string caption;
  host::HostMessageBox(host::TextMessage(message::kEquipmentDefinition,
                                         host::DefaultText(message::kEquipmentDefinition), caption),
                       "There is no display to show the dialog on.", platform::box::kOk);
}

/// The dialog needs no idle messages while it is up.
constexpr std::int32_t kNoIdleMessages = 4;

void RunDialog(ModuleStateGuard& guard) {
  void* const parent = MainWindow(host::hostFunctions.OrvoGetStructPtr("DLLVARSXX"));
  view::DialogView* const view = guard.ViewForDialog();
  if (view == nullptr) return ReportMissingDisplay();
  dialog::CDlgMain dialog(parent, *view);
  dialog.EndModalLoop(dialog.RunModalLoop(kNoIdleMessages));
  dialog.EndDialog(0);
}

}  // namespace

void mstart() {
  RunExport(RunDialog);
}

void ReOrgVdm() {
  RunExport(UpgradeEverySpur);
}
