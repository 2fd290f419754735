#pragma once

#include "dialog/pages/billet.h"

namespace vanzet::dialog {

/// A billet drawn as figures.
class CPageBilletFromFigure final : public BilletPage {
 public:
  explicit CPageBilletFromFigure(PageOwner& owner);

  void OnPress(std::int32_t button) override;

 private:
  static const Handler<CPageBilletFromFigure> kButtons[];

  void PickOutside();
  void PickInside();
  void PickPartLength();
  void SelectFigure();
};

}  // namespace vanzet::dialog
