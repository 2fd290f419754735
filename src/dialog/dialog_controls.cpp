#include "dialog/dialog_controls.h"

#include "view/ids.h"

namespace vanzet::dialog {
namespace {

// The combo shows when there are spurs to choose from. The label marks where the pages go. Cancel stands
// behind Help: the window frame cancels.
constexpr ControlTemplate kControls[] = {
    {.id = control::kSpurs, .kind = ControlKind::kCombo, .isVisible = false, .isList = true},
    {.id = control::kPageArea, .kind = ControlKind::kLabel, .isVisible = false},
    {.id = control::kLoad, .kind = ControlKind::kButton},
    {.id = control::kSave, .kind = ControlKind::kButton},
    {.id = control::kOk, .kind = ControlKind::kButton},
    {.id = control::kCancel, .kind = ControlKind::kButton, .text = "Cancel", .isVisible = false},
    {.id = control::kHelp, .kind = ControlKind::kButton},
};

}  // namespace

std::span<const ControlTemplate> DialogTemplate() {
  return kControls;
}

}  // namespace vanzet::dialog
