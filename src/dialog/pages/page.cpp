#include "dialog/pages/page.h"

#include "dialog/dlg_main.h"
#include "dialog/texts.h"

namespace vanzet::dialog {

Page::Page(CDlgMain& dialog, const PageTemplate& page)
    : dialog_(dialog), controls_(page.controls), page_(page) {}

void Page::Activate() {
  if (!isMade_) OnInitDialog();
  isMade_ = true;
  OnSetActive();
}

void Page::OnInitDialog() {
  for (const StartText& row : page_.texts) controls_.SetText(row.control, Text(row.message, row.defaultText));
}

bool Page::UpdateData() {
  const std::optional<std::int32_t> refused = TakeControls();
  if (!refused) return true;
  dialog_.RefuseNumber(*refused);
  return false;
}

void Page::Pick(const std::function<void()>& interaction) {
  if (!UpdateData()) return;
  dialog_.SetVisible(false);
  interaction();
  FillControls();
  dialog_.SetVisible(true);
}

void Page::Refuse(const std::string& text, std::int32_t control) {
  Notice(text);
  dialog_.Focus(control, false);
}

}  // namespace vanzet::dialog
