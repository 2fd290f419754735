#pragma once

#include "dialog/pages/billet.h"

namespace vanzet::dialog {

/// A bar or a blank given by numbers.
class CPageBilletCylindric final : public BilletPage {
 public:
  explicit CPageBilletCylindric(PageOwner& owner);

  void OnSetActive() override;
  void OnPress(std::int32_t button) override;

 private:
  static const Handler<CPageBilletCylindric> kButtons[];

  void PickOuterDiameter();
  void PickPartLength();
  void PickInnerDiameter();
  void ValuesFromSolid();
  void SelectCylindric();

  /// Resets a value that is impossible, and says so. The record is stored all the same.
  void CorrectBarLength();
  void CorrectInnerDiameter();
  void ResetValue(double BilletRecord::*field, const std::string& text, std::int32_t edit);
};

}  // namespace vanzet::dialog
