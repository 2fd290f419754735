#include "scene/defined_equipment.h"

#include "devices/kinds.h"
#include "simulation/rebuild.h"
#include "store/billet_records.h"
#include "store/billet_vdm.h"
#include "store/clamp_records.h"
#include "store/datum_records.h"
#include "store/finish_part_records.h"

namespace vanzet::test {
namespace {

constexpr std::int32_t kSpur = 0;

}  // namespace

void MakeDefinition() {
  BilletVdm(BilletVdm::VdmNumber(kSpur)).ReOrg([](BilletVdm&, bool) {});
}

void Clamp(std::int32_t spindle, const DeviceParams& device, const DeviceParams& jaw, std::int32_t jaws) {
  WriteClampDevice(kSpur, spindle, "device", device);
  WriteJaw(kSpur, spindle, "jaw", jaw);
  WriteClampOptions(kSpur, spindle, false, jaws);
  if (!devices::IsOwn(device.type)) BuildSpunDevice(kSpur, spindle, true, device);
  RebuildSimulation(kSpur, spindle);
}

void PutBillet(std::int32_t spindle, double diameter, double length, double bore) {
  BilletRecord billet;
  billet.type = billet_type::kCylindric;
  billet.outerDiameter = diameter;
  billet.partLength = length;
  billet.innerDiameter = bore;
  billet.drawOnScreen = true;
  WriteBillet(kSpur, spindle, billet);
}

void PutCenter(const DeviceParams& center, bool hasSubSpindle) {
  WriteCenter(kSpur, hasSubSpindle, "center", center);
  BuildSpunDevice(kSpur, 1, hasSubSpindle, center);
}

void PutDatum(const Datum& datum) {
  WriteDatum(kSpur, {datum.outMain, datum.outSub, datum.originMain, datum.originSub});
}

void DefineTwoSpindles() {
  MakeDefinition();
  Clamp(0, kChuck, kHardJaw);
  PutBillet(0, 60, 120);
  WriteFinishPart(kSpur, 0, {finish_part_type::kFromFigures, "shaft", "", ""});
  Clamp(1, kCollet, {});
  PutBillet(1, 30, 60);
  PutDatum({.outMain = 90, .outSub = 30, .originMain = 10, .originSub = 180});
}

void DefineWithCenter() {
  MakeDefinition();
  Clamp(0, kChuck, kHardJaw);
  PutBillet(0, 50, 220);
  PutCenter(kCenter, false);
  PutDatum({.outMain = 190});
}

}  // namespace vanzet::test
