#pragma once

#include "dialog/pages/finishpart.h"

namespace vanzet::dialog {

/// The finished part as figures. Figures can be picked, but the button that would store them has no handler:
/// that is required so.
class CPageFinishpartFromFigure final : public FinishpartPage {
 public:
  explicit CPageFinishpartFromFigure(PageOwner& owner);

  void OnPress(std::int32_t button) override;

 private:
  static const Handler<CPageFinishpartFromFigure> kButtons[];

  void PickOutside();
  void PickInside();
};

}  // namespace vanzet::dialog
