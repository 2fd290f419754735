#pragma once

#include "dialog/pages/page.h"
#include "store/datum_records.h"

namespace vanzet::dialog {

/// Clamping out and origin translation of both spindles, on every machine.
class CPageZeroPiontShift final : public Page {
 public:
  explicit CPageZeroPiontShift(PageOwner& owner);

  void OnSetActive() override;
  void OnPress(std::int32_t button) override;

 private:
  static const Handler<CPageZeroPiontShift> kButtons[];

  std::optional<std::int32_t> ReadControls() override;
  void FillControls() override;

  void PickClampingOutMain();
  void PickClampingOutSub();
  void PickOriginMain();
  void PickOriginSub();
  void SelectDatum();

  /// Picks the distance of a position from the origin, without a sign.
  void PickClampingOut(double DatumRecord::*clampingOut, double DatumRecord::*origin);
  void PickOrigin(double DatumRecord::*origin);

  DatumRecord record_;
};

}  // namespace vanzet::dialog
