#include "dialog/pages/finishpart.h"

#include "dialog/spindle_header.h"
#include "view/ids.h"

namespace vanzet::dialog {

FinishpartPage::FinishpartPage(PageOwner& owner, const PageTemplate& page, const Kind& kind)
    : Page(owner, page), kind_(kind) {}

void FinishpartPage::OnSetActive() {
  const std::int32_t spindle = owner_.CurrentSpindle();
  controls_.SetText(control::kHeader, SpindleHeader(spindle, kind_.title));
  ReadFinishPart(owner_.SelectedSpur(), spindle, record_);
  if (record_.type != kind_.finishPartType) Clear();
  FillControls();
}

std::optional<std::int32_t> FinishpartPage::TakeControls() {
  return ReadRecord(controls_, kind_.fields, record_);
}

void FinishpartPage::FillControls() {
  ShowRecord(controls_, kind_.fields, record_);
}

void FinishpartPage::Clear() {
  record_.type = finish_part_type::kNone;
  record_.figureInside.clear();
  record_.solidName.clear();
}

}  // namespace vanzet::dialog
