#pragma once

#include "dialog/pages/finishpart.h"

namespace vanzet::dialog {

/// The finished part as a solid of the host.
class CPageFinishpartFromSolid final : public FinishpartPage {
 public:
  explicit CPageFinishpartFromSolid(PageOwner& owner);

  void OnPress(std::int32_t button) override;

 private:
  static const Handler<CPageFinishpartFromSolid> kButtons[];

  void PickFinishSolid();
  void SelectFinishSolid();
};

}  // namespace vanzet::dialog
