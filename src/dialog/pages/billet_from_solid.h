#pragma once

#include "dialog/pages/billet.h"

namespace vanzet::dialog {

/// A billet that is a solid of the host.
class CPageBilletFromSolid final : public BilletPage {
 public:
  explicit CPageBilletFromSolid(PageOwner& owner);

  void OnPress(std::int32_t button) override;

 private:
  static const Handler<CPageBilletFromSolid> kButtons[];

  void PickTheSolid();
  void PickPartLength();
  void PickClampDiameter();
  void SelectSolid();

  void ReadBody(std::int32_t body);
};

}  // namespace vanzet::dialog
