#include "dialog/page_bezel.h"

#include "dialog/data_exchange.h"
#include "dialog/dlg_main.h"

namespace vanzet::dialog {
namespace {

constexpr std::int32_t kSelect = 2015;

// clang-format off
constexpr ControlTemplate kControls[] = {
    {.id = 2147,    .kind = ControlKind::kPicture, .bitmap = 2047},
    {.id = 2019,    .kind = ControlKind::kCheck,   .text = "*L\xC3\xBCnette verwenden"},
    {.id = kSelect, .kind = ControlKind::kButton,  .text = "*Select"},
};

constexpr StartText kTexts[] = {
    {2019,    742, "Use bezel"},
    {kSelect, 724, "Select"},
};

constexpr Field<BezelRecord> kFields[] = {{2019, &BezelRecord::isUsed}};
// clang-format on

constexpr PageTemplate kTemplate = {"CPageBezel", 2161, kControls, kTexts};

}  // namespace

CPageBezel::CPageBezel(CDlgMain& dialog) : Page(dialog, kTemplate) {}

void CPageBezel::OnSetActive() {
  ReadBezel(dialog_.SelectedSpur(), record_);
  FillControls();
}

void CPageBezel::OnPress(std::int32_t button) {
  if (button == kSelect) SelectBezel();
}

std::optional<std::int32_t> CPageBezel::TakeControls() {
  return ReadRecord<BezelRecord>(controls_, kFields, record_);
}

void CPageBezel::FillControls() {
  ShowRecord<BezelRecord>(controls_, kFields, record_);
}

void CPageBezel::SelectBezel() {
  if (!UpdateData()) return;
  WriteBezel(dialog_.SelectedSpur(), record_);
  dialog_.Tree().MarkBezelNode(record_.isUsed);
}

}  // namespace vanzet::dialog
