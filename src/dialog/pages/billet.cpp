#include "dialog/pages/billet.h"

#include "dialog/pages/picks.h"
#include "dialog/texts.h"
#include "store/datum_records.h"
#include "view/ids.h"

namespace vanzet::dialog {

BilletPage::BilletPage(PageOwner& owner, const PageTemplate& page, const Kind& kind)
    : Page(owner, page), kind_(kind) {}

void BilletPage::OnSetActive() {
  const std::int32_t spindle = owner_.CurrentSpindle();
  controls_.SetText(control::kHeader, SpindleHeader(spindle, kind_.title));
  ReadBillet(owner_.SelectedSpur(), spindle, record_);
  if (record_.type != kind_.billetType) ClearBilletRecord(record_);
  FillControls();
}

std::optional<std::int32_t> BilletPage::ReadControls() {
  return ReadRecord(controls_, kind_.fields, record_);
}

void BilletPage::FillControls() {
  ShowRecord(controls_, kind_.fields, record_);
}

void BilletPage::Store() {
  const std::int32_t spur = owner_.SelectedSpur();
  const std::int32_t spindle = owner_.CurrentSpindle();
  KeepIf(WriteBillet(spur, spindle, record_));
  owner_.Tree().MarkBilletNodes(spindle, record_);
  DatumRecord datum;
  ReadDatum(spur, datum);
  DrawBillet(record_, spindle, spindle == 1 ? datum.originSub : datum.originMain);
}

void BilletPage::PickLength() {
  Pick([this] {
    if (!PickPosition()) return;
    ReadPickedLength(record_.partLength);
    record_.partLength = WithoutSign(record_.partLength);
  });
}

void BilletPage::PickDiameter(double BilletRecord::*field) {
  Pick([this, field] {
    if (!PickPosition()) return;
    ReadPickedRadius(record_.*field);
    record_.*field *= 2;
  });
}

}  // namespace vanzet::dialog
