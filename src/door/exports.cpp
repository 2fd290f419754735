#include "door/exports.h"

#include <exception>
#include <optional>

#include "dialog/dlg_main.h"
#include "door/module_state.h"
#include "host/bridge.h"
#include "host/host_functions.h"
#include "host/message_ids.h"
#include "host/messages.h"
#include "machine/pp_def_ini.h"
#include "platform/message_box.h"
#include "simulation/rebuild.h"

namespace {

using namespace vanzet;

void TellThrown(const char* what) {
  platform::Show({"vanzet", what, platform::box::kOk + platform::box::kExclamationIcon});
}

/// Runs an export's work inside the module's state. Nothing is thrown across to the host.
template <class Work>
void AtTheDoor(Work work) {
  std::optional<ModuleStateGuard> guard;
  try {
    guard.emplace();
    work(*guard);
  } catch (const std::exception& error) {
    TellThrown(error.what());
  } catch (...) {
    TellThrown("something unexpected was thrown");
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

/// What is read of a structure of the host's; the rest of it is the host's business.
struct DLLVARSXX {
  void* unused;
  void* mainWindow;
};

/// The host's main window as it was at the first call; a later change is not seen.
void* MainWindow(const void* variables) {
  static void* const MainParentWindow =
      variables == nullptr ? nullptr : static_cast<const DLLVARSXX*>(variables)->mainWindow;
  return MainParentWindow;
}

void TellThatThereIsNoDisplay() {
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
  if (view == nullptr) return TellThatThereIsNoDisplay();
  dialog::CDlgMain dialog(parent, *view);
  dialog.EndModalLoop(dialog.RunModalLoop(kNoIdleMessages));
  dialog.EndDialog(0);
}

}  // namespace

void mstart() {
  AtTheDoor(RunDialog);
}

void ReOrgVdm() {
  AtTheDoor(UpgradeEverySpur);
}
