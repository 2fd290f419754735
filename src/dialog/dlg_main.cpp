#include "dialog/dlg_main.h"

#include <algorithm>

#include "catalogue/catalogue_work.h"
#include "dialog/catalogue_names.h"
#include "dialog/configuration.h"
#include "dialog/record_deletion.h"
#include "dialog/texts.h"
#include "host/bridge.h"
#include "host/message_ids.h"
#include "platform/host_extensions.h"
#include "platform/message_box.h"
#include "view/ids.h"

namespace vanzet::dialog {
namespace {

// The combo is visible when there are spurs to choose from. The label marks the place of the pages. Cancel is
// never visible: the window frame cancels.
constexpr ControlTemplate kControls[] = {
    {.id = control::kSpurs, .kind = ControlKind::kCombo, .isVisible = false, .isList = true},
    {.id = control::kPageArea, .kind = ControlKind::kLabel, .isVisible = false},
    {.id = control::kLoad, .kind = ControlKind::kButton},
    {.id = control::kSave, .kind = ControlKind::kButton},
    {.id = control::kOk, .kind = ControlKind::kButton},
    {.id = control::kCancel, .kind = ControlKind::kButton, .text = "Cancel", .isVisible = false},
    {.id = control::kHelp, .kind = ControlKind::kButton},
};

constexpr StartText kStartTexts[] = {
    {control::kOk, message::kOk},
    {control::kHelp, message::kHelp},
    {control::kLoad, message::kLoadConfiguration},
    {control::kSave, message::kSaveConfiguration},
};

}  // namespace

CDlgMain::CDlgMain(void* parent, view::DialogView& view)
    : parent_(parent), view_(view), controls_(kControls) {
  OnInitDialog();
}

void CDlgMain::OnInitDialog() {
  caption_ = Text(message::kEquipmentDefinition);
  for (const StartText& row : kStartTexts) controls_.SetText(row.control, Text(row.message, row.defaultText));
  ActivePage().Activate();
  ReadCatalogueAtStart(catalogue_, Window());
  machine_.ReadAll();
  FillSpurs();
  tree_.Fill(machine_);
  RefreshTreeMarks();
}

void CDlgMain::FillSpurs() {
  const std::int32_t spurs = machine_.GetSpindleSpurCount();
  if (spurs < 2) return;
  std::vector<std::string> entries;
  const std::string spindle = Text(message::kSpindle);
  for (std::int32_t spur = 1; spur <= spurs; ++spur) entries.push_back(spindle + " " + std::to_string(spur));
  controls_.Show(control::kSpurs, true);
  controls_.AddEntries(control::kSpurs, entries);
  controls_.Select(control::kSpurs, 0);
}

std::int32_t CDlgMain::RunModalLoop(std::int32_t flags) {
  platform::KeepWorkOfEvent();
  view_.StateChanged(State());
  return view_.Serve(*this, parent_, flags);
}

void CDlgMain::EndModalLoop(std::int32_t result) {
  End(result);
}

void CDlgMain::EndDialog(std::int32_t result) {
  End(result);
}

void CDlgMain::End(std::int32_t result) {
  isOpen_ = false;
  result_ = result;
}

const view::DialogState& CDlgMain::State() {
  state_.caption = caption_;
  state_.page = ActivePage().Name();
  state_.spindle = currentSpindle_;
  state_.deviceType = currentDeviceType_;
  state_.spur = SelectedSpur();
  state_.selectedNode = selectedNode_;
  state_.tree = tree_.Nodes();
  state_.dialog = controls_.All();
  state_.controls = ActivePage().TheControls().All();
  state_.unstored = ActivePage().Unstored();
  return state_;
}

void CDlgMain::SelectNode(std::int32_t node) {
  Dispatch([&] {
    if (!tree_.Has(node)) return;
    selectedNode_ = node;
    OnTreeSelection();
  });
}

void CDlgMain::ContextAt(std::int32_t node) {
  Dispatch([&] { OnContextMenu(node); });
}

void CDlgMain::SetText(std::int32_t control, const std::string& text) {
  if (Controls* const controls = ControlsWith(control)) controls->Type(control, text);
}

void CDlgMain::SetChecked(std::int32_t control, bool isChecked) {
  if (Controls* const controls = ControlsWith(control)) controls->Check(control, isChecked);
}

void CDlgMain::SetValue(std::int32_t control, std::int32_t value) {
  if (Controls* const controls = ControlsWith(control)) controls->SetSpin(control, value);
}

void CDlgMain::Choose(std::int32_t control, std::int32_t index) {
  Dispatch([&] {
    Controls* const controls = ControlsWith(control);
    if (controls == nullptr) return;
    controls->Select(control, index);
    if (control == control::kSpurs) {
      OnSpurChange();
    } else {
      ActivePage().OnChoose(control);
    }
  });
}

void CDlgMain::Press(std::int32_t button) {
  Dispatch([&] {
    if (controls_.Has(button)) {
      OnCommand(button);
    } else {
      ActivePage().OnPress(button);
    }
  });
}

void CDlgMain::Close() {
  Dispatch([&] { End(view::kClosedByFrame); });
}

void CDlgMain::Dispatch(const std::function<void()>& handler) {
  if (!isOpen_) return;
  const auto run = [](const std::function<void()>& work) {
    try {
      work();
    } catch (const OddCatalogue&) {
      // The lists stay as far as they were filled.
    }
  };
  run(handler);
  while (isOpen_ && !posted_.empty()) {
    const std::int32_t command = posted_.front();
    posted_.pop_front();
    run([&] { OnCommand(command); });
  }
  KeepWork();
  view_.StateChanged(State());
}

/// An OK whose work the host could not keep leaves the dialog open, so that its user can try again.
void CDlgMain::KeepWork() {
  if (platform::KeepWorkOfEvent() || isOpen_ || result_ != view::kClosedByOk) return;
  isOpen_ = true;
  result_ = 0;
}

void CDlgMain::OnTreeSelection() {
  if (selectedNode_ == 0) return;
  const TreeNodeRow& row = TreeNodeOf(selectedNode_);
  currentSpindle_ = row.spindle;
  currentDeviceType_ = row.deviceType;
  activePage_ = row.page;
  ActivePage().Activate();
  Focus(control::kTree, false);
}

void CDlgMain::OnContextMenu(std::int32_t node) {
  if (!tree_.Has(node) || !CanDeleteAt(node)) return;
  const auto chosen = view_.Popup(node, {{command::kDeleteRecord, Text(message::kDeleteRecord)}});
  if (chosen) posted_.push_back(*chosen);
  selectedNode_ = node;
  OnTreeSelection();
}

void CDlgMain::OnSpurChange() {
  RefreshTreeMarks();
  ActivePage().Activate();
}

void CDlgMain::RefreshTreeMarks() {
  tree_.MarkRecords(SelectedSpur(), machine_);
}

void CDlgMain::OnCommand(std::int32_t command) {
  switch (command) {
    case command::kDeleteRecord: return DeleteRecordAt(selectedNode_, SelectedSpur(), currentSpindle_, tree_);
    case control::kOk: return OnOK();
    case control::kLoad: return OnLoad();
    case control::kSave: return SaveConfiguration(Window());
    case control::kHelp: return OnHelp();
    default: return;
  }
}

Controls* CDlgMain::ControlsWith(std::int32_t control) {
  if (controls_.Has(control)) return &controls_;
  Controls& ofPage = ActivePage().TheControls();
  return ofPage.Has(control) ? &ofPage : nullptr;
}

std::int32_t CDlgMain::SelectedSpur() const {
  return controls_.Of(control::kSpurs).selected;
}

void CDlgMain::OnOK() {
  CommitDefinitions(machine_);
  End(view::kClosedByOk);
}

void CDlgMain::OnLoad() {
  if (!LoadConfiguration(Window())) return;
  RefreshTreeMarks();
  DrawLoadedBillets(SelectedSpur(), currentSpindle_, machine_);
}

void CDlgMain::OnHelp() {
  host::SetHelpTopic();
  host::RunMacro("loadhelp", "");
}

void CDlgMain::SetVisible(bool isVisible) {
  view_.StateChanged(State());
  view_.SetVisible(isVisible);
}

void CDlgMain::Focus(std::int32_t control, bool selectsAll) {
  view_.StateChanged(State());
  view_.Focus(control, selectsAll);
}

void CDlgMain::RefuseNumber(std::int32_t edit) {
  host::HostMessageBox(caption_, "Please enter a number.", platform::box::kOk);
  Focus(edit, false);
}

}  // namespace vanzet::dialog
