#include "dialog/pages/bezel.h"

#include "dialog/data_exchange.h"
#include "host/message_ids.h"
#include "view/ids.h"

namespace vanzet::dialog {
namespace {

// clang-format off
constexpr ControlTemplate kControls[] = {
    {.id = control::kPicture,  .kind = ControlKind::kPicture, .bitmap = picture::kBezel},
    {.id = control::kUseBezel, .kind = ControlKind::kCheck},
    {.id = control::kSelect,   .kind = ControlKind::kButton},
};

constexpr StartText kTexts[] = {
    {control::kUseBezel, message::kUseBezel},
    {control::kSelect,   message::kSelect},
};

constexpr Field<BezelRecord> kFields[] = {{control::kUseBezel, &BezelRecord::isUsed}};
// clang-format on

constexpr PageTemplate kTemplate = {"CPageBezel", page_template::kBezel, kControls, kTexts};

}  // namespace

CPageBezel::CPageBezel(PageOwner& owner) : Page(owner, kTemplate) {}

void CPageBezel::OnSetActive() {
  ReadBezel(owner_.SelectedSpur(), record_);
  FillControls();
}

void CPageBezel::OnPress(std::int32_t button) {
  if (button == control::kSelect) SelectBezel();
}

std::optional<std::int32_t> CPageBezel::ReadControls() {
  return ReadRecord<BezelRecord>(controls_, kFields, record_);
}

void CPageBezel::FillControls() {
  ShowRecord<BezelRecord>(controls_, kFields, record_);
}

void CPageBezel::SelectBezel() {
  if (!UpdateData()) return;
  KeepIf(WriteBezel(owner_.SelectedSpur(), record_));
  owner_.Tree().MarkBezelNode(record_.isUsed);
}

}  // namespace vanzet::dialog
