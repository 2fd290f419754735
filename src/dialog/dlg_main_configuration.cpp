#include "dialog/commit_spur.h"
#include "dialog/dlg_main.h"
#include "dialog/texts.h"
#include "host/bridge.h"
#include "host/host_functions.h"
#include "host/macro_variables.h"
#include "host/message_ids.h"
#include "macro/billet_drawing.h"
#include "platform/file_dialog.h"
#include "platform/files.h"
#include "platform/message_box.h"
#include "store/billet_records.h"
#include "store/datum_records.h"

// What the dialog does with whole definitions: OK, save, load.

namespace vanzet::dialog {
namespace {

using host::hostFunctions;

/// Lies in the installation; a saved definition begins as a copy of it.
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

void CDlgMain::OnOK() {
  const std::int32_t spurs = machine_.GetSpindleSpurCount();
  for (std::int32_t spur = 0; spur < spurs; ++spur) CommitSpur(spur, machine_);
  End(view::kClosedByOk);
}

void CDlgMain::SaveConfiguration() {
  const auto path = platform::AskForFile(AskForVdm(platform::FileQuestion::Kind::kSave, Window()));
  if (!path) return;
  std::string root;
  OrvoApi::GetGlobalStrVar("$_root_dir", root);
  // A template that cannot be copied leaves the work to the host alone.
  platform::CopyWholeFile(root + kTemplate, *path);
  // The definition of spur 0, whichever spur is shown.
  host::SendCommand("vdm save '" + *path + "' i_ret i_billet_vdm");
}

void CDlgMain::LoadConfiguration() {
  const auto path = platform::AskForFile(AskForVdm(platform::FileQuestion::Kind::kOpen, Window()));
  if (!path) return;
  const auto vdm = static_cast<std::uint32_t>(OrvoApi::GetGlobalIntVar("i_billet_vdm"));
  if (hostFunctions.OrvoMacroVdmExists(vdm) != 0 &&
      platform::Show({"", Text(message::kOverwriteDefinition), platform::box::kYesNo, Window()}) !=
          platform::answer::kYes) {
    return;
  }
  hostFunctions.OrvoMacroVdmDelete(vdm);
  host::SendCommand("vdm load '" + *path + "' i_ret i_billet_vdm");
  RefreshTreeMarks();
  DrawLoadedBillets();
}

void CDlgMain::DrawLoadedBillets() {
  BilletRecord billet;
  DatumRecord datum;
  ReadBillet(SelectedSpur(), 0, billet);
  ReadDatum(SelectedSpur(), datum);
  DrawBillet(billet, 0, datum.originMain);
  DrawBilletOutMarks(datum, 0);
  if (!machine_.IsSubSpindleAvailable()) return;
  // For the sub spindle the datum plays no part, and its billet goes where the tree's selection is: required
  // so.
  ReadBillet(SelectedSpur(), 1, billet);
  DrawBillet(billet, currentSpindle_, 0.0);
  DrawBilletOutMarks({}, 1);
}

}  // namespace vanzet::dialog
