#include "dialog/page_zero_piont_shift.h"

#include "dialog/data_exchange.h"
#include "dialog/dlg_main.h"
#include "dialog/picks.h"
#include "dialog/spindle_header.h"
#include "store/billet_records.h"

namespace vanzet::dialog {
namespace {

// clang-format off
constexpr ControlTemplate kControls[] = {
    {.id = kHeader, .kind = ControlKind::kLabel,   .text = "*Root Datum"},
    {.id = 2147,    .kind = ControlKind::kPicture, .bitmap = 2114},
    {.id = 2204,    .kind = ControlKind::kLabel,   .text = "*Mainspindle"},
    {.id = 2202,    .kind = ControlKind::kLabel,   .text = "*Ausspannmass"},
    {.id = 2203,    .kind = ControlKind::kEdit},
    {.id = 2201,    .kind = ControlKind::kButton,  .text = ">>"},
    {.id = 2205,    .kind = ControlKind::kLabel,   .text = "*Nullpunktverschiebung"},
    {.id = 2207,    .kind = ControlKind::kEdit},
    {.id = 2206,    .kind = ControlKind::kButton,  .text = ">>"},
    {.id = 2208,    .kind = ControlKind::kLabel,   .text = "*Subspindle"},
    {.id = 2210,    .kind = ControlKind::kLabel,   .text = "*Ausspannmass"},
    {.id = 2211,    .kind = ControlKind::kEdit},
    {.id = 2209,    .kind = ControlKind::kButton,  .text = ">>"},
    {.id = 2212,    .kind = ControlKind::kLabel,   .text = "*Nullpunktverschiebung"},
    {.id = 2214,    .kind = ControlKind::kEdit},
    {.id = 2213,    .kind = ControlKind::kButton,  .text = ">>"},
    {.id = 2015,    .kind = ControlKind::kButton,  .text = "*Select"},
};

constexpr StartText kTexts[] = {
    {kHeader,  718, "Root Datum"},
    {2204,     704, "*Mainspindle"},
    {2202,    1175, "*(A) Clamping out"},
    {2205,    1177, "*Origin Translation"},
    {2208,     710, "*Subspindle"},
    {2210,    1176, "*(B) Clamping out"},
    {2212,    1177, "*Origin Translation"},
    {2015,     724, "Select"},
};

constexpr Field<DatumRecord> kFields[] = {
    {2203, &DatumRecord::clampingOutMain},
    {2211, &DatumRecord::clampingOutSub},
    {2207, &DatumRecord::originMain},
    {2214, &DatumRecord::originSub},
};
// clang-format on

constexpr PageTemplate kTemplate = {"CPageZeroPiontShift", 2200, kControls, kTexts};

}  // namespace

const Handler<CPageZeroPiontShift> CPageZeroPiontShift::kButtons[] = {
    {2201, &CPageZeroPiontShift::PickClampingOutMain}, {2209, &CPageZeroPiontShift::PickClampingOutSub},
    {2206, &CPageZeroPiontShift::PickOriginMain},      {2213, &CPageZeroPiontShift::PickOriginSub},
    {2015, &CPageZeroPiontShift::SelectDatum},
};

CPageZeroPiontShift::CPageZeroPiontShift(CDlgMain& dialog) : Page(dialog, kTemplate) {}

void CPageZeroPiontShift::OnSetActive() {
  ReadDatum(dialog_.SelectedSpur(), record_);
  FillControls();
}

void CPageZeroPiontShift::OnPress(std::int32_t button) {
  RunHandler<CPageZeroPiontShift>(*this, kButtons, button);
}

std::optional<std::int32_t> CPageZeroPiontShift::TakeControls() {
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
  const std::int32_t spur = dialog_.SelectedSpur();
  WriteDatum(spur, record_);
  dialog_.Tree().MarkDatumNode(record_);
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
