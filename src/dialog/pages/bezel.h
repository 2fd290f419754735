#pragma once

#include "dialog/pages/page.h"
#include "store/datum_records.h"

namespace vanzet::dialog {

/// Whether the steady rest is used.
class CPageBezel final : public Page {
 public:
  explicit CPageBezel(PageOwner& owner);

  void OnSetActive() override;
  void OnPress(std::int32_t button) override;

 private:
  std::optional<std::int32_t> ReadControls() override;
  void FillControls() override;
  void SelectBezel();

  BezelRecord record_;
};

}  // namespace vanzet::dialog
