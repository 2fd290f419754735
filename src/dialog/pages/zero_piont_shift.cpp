#include "dialog/pages/zero_piont_shift.h"

#include "dialog/data_exchange.h"
#include "dialog/pages/picks.h"
#include "host/message_ids.h"
#include "store/billet_records.h"
#include "view/ids.h"

namespace vanzet::dialog {
namespace {

// clang-format off
constexpr ControlTemplate kControls[] = {
    {.id = control::kHeader,               .kind = ControlKind::kLabel},
    {.id = control::kPicture,              .kind = ControlKind::kPicture, .bitmap = picture::kDatum},
    {.id = control::kMainTitle,            .kind = ControlKind::kLabel},
    {.id = control::kClampingOutMainLabel, .kind = ControlKind::kLabel},
    {.id = control::kClampingOutMain,      .kind = ControlKind::kEdit},
    {.id = control::kPickClampingOutMain,  .kind = ControlKind::kButton,  .text = ">>"},
    {.id = control::kOriginMainLabel,      .kind = ControlKind::kLabel},
    {.id = control::kOriginMain,           .kind = ControlKind::kEdit},
    {.id = control::kPickOriginMain,       .kind = ControlKind::kButton,  .text = ">>"},
    {.id = control::kSubTitle,             .kind = ControlKind::kLabel},
    {.id = control::kClampingOutSubLabel,  .kind = ControlKind::kLabel},
    {.id = control::kClampingOutSub,       .kind = ControlKind::kEdit},
    {.id = control::kPickClampingOutSub,   .kind = ControlKind::kButton,  .text = ">>"},
    {.id = control::kOriginSubLabel,       .kind = ControlKind::kLabel},
    {.id = control::kOriginSub,            .kind = ControlKind::kEdit},
    {.id = control::kPickOriginSub,        .kind = ControlKind::kButton,  .text = ">>"},
    {.id = control::kSelect,               .kind = ControlKind::kButton},
};

constexpr StartText kTexts[] = {
    {control::kHeader,               message::kRootDatum},
    {control::kMainTitle,            message::kMainSpindle, "*Mainspindle"},
    {control::kClampingOutMainLabel, message::kClampingOutMain},
    {control::kOriginMainLabel,      message::kOrigin},
    {control::kSubTitle,             message::kSubSpindle,  "*Subspindle"},
    {control::kClampingOutSubLabel,  message::kClampingOutSub},
    {control::kOriginSubLabel,       message::kOrigin},
    {control::kSelect,               message::kSelect},
};

constexpr Field<DatumRecord> kFields[] = {
    {control::kClampingOutMain, &DatumRecord::clampingOutMain},
    {control::kClampingOutSub,  &DatumRecord::clampingOutSub},
    {control::kOriginMain,      &DatumRecord::originMain},
    {control::kOriginSub,       &DatumRecord::originSub},
};
// clang-format on

constexpr PageTemplate kTemplate = {"CPageZeroPiontShift", page_template::kZeroPiontShift, kControls, kTexts};

}  // namespace

const Handler<CPageZeroPiontShift> CPageZeroPiontShift::kButtons[] = {
    {control::kPickClampingOutMain, &CPageZeroPiontShift::PickClampingOutMain},
    {control::kPickClampingOutSub, &CPageZeroPiontShift::PickClampingOutSub},
    {control::kPickOriginMain, &CPageZeroPiontShift::PickOriginMain},
    {control::kPickOriginSub, &CPageZeroPiontShift::PickOriginSub},
    {control::kSelect, &CPageZeroPiontShift::SelectDatum},
};

CPageZeroPiontShift::CPageZeroPiontShift(PageOwner& owner) : Page(owner, kTemplate) {}

void CPageZeroPiontShift::OnSetActive() {
  ReadDatum(owner_.SelectedSpur(), record_);
  FillControls();
}

void CPageZeroPiontShift::OnPress(std::int32_t button) {
  RunHandler<CPageZeroPiontShift>(*this, kButtons, button);
}

std::optional<std::int32_t> CPageZeroPiontShift::ReadControls() {
  return ReadRecord<DatumRecord>(controls_, kFields, record_);
}

void CPageZeroPiontShift::FillControls() {
  ShowRecord<DatumRecord>(controls_, kFields, record_);
}

void CPageZeroPiontShift::PickClampingOutMain() {
  PickClampingOut(&DatumRecord::clampingOutMain, &DatumRecord::originMain);
}

void CPageZeroPiontShift::PickClampingOutSub() {
  PickClampingOut(&DatumRecord::clampingOutSub, &DatumRecord::originSub);
}

void CPageZeroPiontShift::PickOriginMain() {
  PickOrigin(&DatumRecord::originMain);
}

void CPageZeroPiontShift::PickOriginSub() {
  PickOrigin(&DatumRecord::originSub);
}

void CPageZeroPiontShift::PickClampingOut(double DatumRecord::*clampingOut, double DatumRecord::*origin) {
  Pick([this, clampingOut, origin] {
    if (!PickPosition()) return;
    ReadPickedLength(record_.*clampingOut);
    record_.*clampingOut = WithoutSign(record_.*clampingOut - record_.*origin);
  });
}

void CPageZeroPiontShift::PickOrigin(double DatumRecord::*origin) {
  Pick([this, origin] {
    if (PickPosition()) ReadPickedLength(record_.*origin);
  });
}

void CPageZeroPiontShift::SelectDatum() {
  if (!UpdateData()) return;
  const std::int32_t spur = owner_.SelectedSpur();
  KeepIf(WriteDatum(spur, record_));
  owner_.Tree().MarkDatumNode(record_);
  // Both spindles, whatever the machine has.
  BilletRecord billet;
  ReadBillet(spur, 0, billet);
  DrawBillet(billet, 0, record_.originMain);
  ReadBillet(spur, 1, billet);
  DrawBillet(billet, 1, record_.originSub);
  DrawBilletOutMarks(record_, 0);
  DrawBilletOutMarks(record_, 1);
}

}  // namespace vanzet::dialog
