#include "host/door/exports.h"

#include <exception>
#include <optional>

#include "host/bridge.h"
#include "host/door/module_state.h"
#include "host/messages.h"
#include "machine/pp_def_ini.h"
#include "platform/message_box.h"
#include "store/billet_vdm.h"

namespace {

using namespace vanzet;

/// Runs an export's work inside the module's state. Nothing is thrown across to the host.
template <class Work>
void AtTheDoor(Work work) {
  std::optional<ModuleStateGuard> guard;
  try {
    guard.emplace();
    work();
  } catch (const std::exception& error) {
    platform::Show({"vanzet", error.what(), platform::box::kOk + platform::box::kExclamationIcon});
  }
}

void UpgradeEverySpur() {
  PpDefIni machine;
  machine.LocateIni();
  const std::int32_t spurs = machine.GetSpindleSpurCount();
  for (std::int32_t spur = 0; spur < spurs; ++spur) {
    BilletVdm definition(BilletVdm::VdmNumber(spur));
    definition.ReOrg([](BilletVdm&, bool) {});
  }
}

void TellThatThereIsNoDialog() {
  std::string caption;
  host::HostMessageBox(host::TextMessage(700, host::DefaultText(700), caption),
                       "The dialog is not part of this build.", platform::box::kOk);
}

}  // namespace

void mstart() {
  AtTheDoor(TellThatThereIsNoDialog);
}

void ReOrgVdm() {
  AtTheDoor(UpgradeEverySpur);
}
