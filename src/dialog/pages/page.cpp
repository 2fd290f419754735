#include "dialog/pages/page.h"

#include "dialog/texts.h"

namespace vanzet::dialog {

Page::Page(PageOwner& owner, const PageTemplate& page)
    : owner_(owner), controls_(page.controls), page_(page) {}

void Page::Activate() {
  if (!isMade_) OnInitDialog();
  isMade_ = true;
  OnSetActive();
  controls_.Keep();
}

void Page::OnInitDialog() {
  for (const StartText& row : page_.texts) controls_.SetText(row.control, Text(row.message, row.defaultText));
}

bool Page::UpdateData() {
  const std::optional<std::int32_t> refused = ReadControls();
  if (!refused) return true;
  owner_.RefuseNumber(*refused);
  return false;
}

void Page::Pick(const std::function<void()>& interaction) {
  if (!UpdateData()) return;
  owner_.SetVisible(false);
  interaction();
  FillControls();
  owner_.SetVisible(true);
}

void Page::Refuse(const std::string& text, std::int32_t control) {
  Notice(text);
  owner_.Focus(control, false);
}

}  // namespace vanzet::dialog
