#pragma once

#include <cstdint>
#include <deque>
#include <functional>

#include "catalogue/device_catalogue.h"
#include "dialog/controls.h"
#include "dialog/equipment_tree.h"
#include "dialog/pages/bezel.h"
#include "dialog/pages/billet_cylindric.h"
#include "dialog/pages/billet_from_figure.h"
#include "dialog/pages/billet_from_solid.h"
#include "dialog/pages/clamp_elem.h"
#include "dialog/pages/clamp_elem_new.h"
#include "dialog/pages/finishpart.h"
#include "dialog/pages/zero_piont_shift.h"
#include "dialog/tree_nodes.h"
#include "machine/pp_def_ini.h"
#include "view/dialog_view.h"

namespace vanzet::dialog {

/// The dialog "Equipment Definition": state, and events by the ids of its controls.
///
/// Story    The constructor starts it: texts, catalogue, machine, tree, marks. RunModalLoop then has a view
///          serve it until OK or the window frame ends it. The definitions' VDMs are the only copies: a page
///          reads its record when it becomes active and writes it when its Select button is pressed. Nothing
///          is undone, however the dialog ends; OK adds the simulation data
class CDlgMain final : public view::Dialog, public PageOwner {
 public:
  /// `parent` is the host's main window; `view` has to outlive the dialog.
  CDlgMain(void* parent, view::DialogView& view);
  ~CDlgMain() override = default;
  CDlgMain(const CDlgMain&) = delete;
  CDlgMain& operator=(const CDlgMain&) = delete;

  /// Has the view serve the dialog. Returns the result that it was closed with.
  std::int32_t RunModalLoop(std::int32_t flags);
  void EndModalLoop(std::int32_t result);
  void EndDialog(std::int32_t result);

  // The events of a view.
  const view::DialogState& State() override;
  bool IsOpen() const override { return isOpen_; }
  std::int32_t Result() const override { return result_; }
  void SelectNode(std::int32_t node) override;
  void ContextAt(std::int32_t node) override;
  void SetText(std::int32_t control, const std::string& text) override;
  void SetChecked(std::int32_t control, bool isChecked) override;
  void SetValue(std::int32_t control, std::int32_t value) override;
  void Choose(std::int32_t control, std::int32_t index) override;
  void Press(std::int32_t button) override;
  void Close() override;

  // The questions and requests of the pages.
  std::int32_t CurrentSpindle() const override { return currentSpindle_; }
  std::int32_t CurrentDeviceType() const override { return currentDeviceType_; }
  std::int32_t SelectedSpur() const override;
  PpDefIni& Machine() override { return machine_; }
  CDevice& Catalogue() override { return catalogue_; }
  EquipmentTree& Tree() override { return tree_; }
  void RefreshTreeMarks() override;
  void SetVisible(bool isVisible) override;
  void Focus(std::int32_t control, bool selectsAll) override;
  void RefuseNumber(std::int32_t edit) override;
  void* Window() override { return view_.Window(); }

 private:
  void OnInitDialog();
  void FillSpurs();

  /// Runs a handler and the commands that were posted meanwhile, has the host keep the work, and informs the
  /// view.
  void Dispatch(const std::function<void()>& handler);
  void KeepWork();
  void OnCommand(std::int32_t command);
  void End(std::int32_t result);

  void OnTreeSelection();
  void OnContextMenu(std::int32_t node);
  void OnSpurChange();
  void OnOK();
  void OnLoad();
  void OnHelp();

  Page& ActivePage() { return *pages_[static_cast<std::size_t>(activePage_)]; }
  Controls* ControlsWith(std::int32_t control);

  void* const parent_;
  view::DialogView& view_;

  CPageEmpty empty_{*this};
  CPageClampElem clampElem_{*this};
  CPageBezel bezel_{*this};
  CPageBilletCylindric billetCylindric_{*this};
  CPageBilletFromFigure billetFromFigure_{*this};
  CPageBilletFromSolid billetFromSolid_{*this};
  CPageFinishpartFromFigure finishpartFromFigure_{*this};
  CPageFinishpartFromSolid finishpartFromSolid_{*this};
  CPageZeroPiontShift zeroPiontShift_{*this};
  CPageClampElemNew clampElemNew_{*this};
  Page* const pages_[kPages] = {&empty_,
                                &clampElem_,
                                &bezel_,
                                &billetCylindric_,
                                &billetFromFigure_,
                                &billetFromSolid_,
                                &finishpartFromFigure_,
                                &finishpartFromSolid_,
                                &zeroPiontShift_,
                                &clampElemNew_};  ///< by PageId
  PageId activePage_ = PageId::kEmpty;

  PpDefIni machine_;
  Controls controls_;
  std::int32_t currentSpindle_ = 0;
  std::int32_t currentDeviceType_ = 0;
  CDevice catalogue_;
  EquipmentTree tree_;
  std::int32_t selectedNode_ = 0;  ///< 0: none

  std::string caption_;
  std::deque<std::int32_t> posted_;  ///< commands that wait for the handler's return
  bool isOpen_ = true;
  std::int32_t result_ = 0;
  view::DialogState state_;
};

}  // namespace vanzet::dialog
