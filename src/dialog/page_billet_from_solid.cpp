#include "dialog/page_billet_from_solid.h"

#include "dialog/picks.h"
#include "dialog/spindle_header.h"
#include "dialog/texts.h"
#include "host/host_functions.h"

namespace vanzet::dialog {
namespace {

using host::hostFunctions;

constexpr std::int32_t kSolid = 2046;

// clang-format off
constexpr ControlTemplate kControls[] = {
    {.id = kHeader, .kind = ControlKind::kLabel},
    {.id = 2147,    .kind = ControlKind::kPicture, .bitmap = 2051},
    {.id = 2156,    .kind = ControlKind::kLabel,   .text = "*Solid"},
    {.id = kSolid,  .kind = ControlKind::kEdit},
    {.id = 2018,    .kind = ControlKind::kButton,  .text = ">>"},
    {.id = 2145,    .kind = ControlKind::kLabel,   .text = "*Partlength"},
    {.id = 2045,    .kind = ControlKind::kEdit},
    {.id = 2014,    .kind = ControlKind::kButton,  .text = ">>"},
    {.id = 2122,    .kind = ControlKind::kLabel,   .text = "*Clampdiameter"},
    {.id = 2035,    .kind = ControlKind::kEdit},
    {.id = 2008,    .kind = ControlKind::kButton,  .text = ">>"},
    {.id = 2117,    .kind = ControlKind::kLabel,   .text = "*Angle"},
    {.id = 2032,    .kind = ControlKind::kEdit},
    {.id = 2015,    .kind = ControlKind::kButton,  .text = "*Select"},
};

constexpr StartText kTexts[] = {
    {2156,  406, "Solid"},
    {2145, 1164, "Partlength"},
    {2122, 1166, "Clamp diameter"},
    {2117, 1167, "Angle"},
    {2015,  724, "Select"},
};

constexpr Field<BilletRecord> kFields[] = {
    {kSolid, &BilletRecord::solidName},
    {2045,   &BilletRecord::partLength},
    {2035,   &BilletRecord::clampDiameter},
    {2032,   &BilletRecord::angle},
};
// clang-format on

constexpr PageTemplate kTemplate = {"CPageBilletFromSolid", 2164, kControls, kTexts};

}  // namespace

const Handler<CPageBilletFromSolid> CPageBilletFromSolid::kButtons[] = {
    {2018, &CPageBilletFromSolid::PickTheSolid},
    {2014, &CPageBilletFromSolid::PickPartLength},
    {2008, &CPageBilletFromSolid::PickClampDiameter},
    {2015, &CPageBilletFromSolid::SelectSolid},
};

CPageBilletFromSolid::CPageBilletFromSolid(CDlgMain& dialog)
    : BilletPage(dialog, kTemplate, {billet_type::kFromSolid, 1160, "Billet from Solid", kFields}) {}

void CPageBilletFromSolid::OnPress(std::int32_t button) {
  RunHandler<CPageBilletFromSolid>(*this, kButtons, button);
}

void CPageBilletFromSolid::PickTheSolid() {
  Pick([this] {
    const std::int32_t body = PickSolid();
    if (body < 1) {
      ClearBilletRecord(record_);
    } else {
      TakeBody(body);
    }
  });
}

void CPageBilletFromSolid::TakeBody(std::int32_t body) {
  record_.type = billet_type::kFromSolid;
  record_.solidName = hostFunctions.OrvoPsGetBodyNameFromNumber(body);
  // A mesh has no extents.
  const bool isMesh = hostFunctions.OrvoIsBodyAnSTLObject(body) != 0;
  const BodyExtents extents = isMesh ? BodyExtents() : ExtentsOf(body);
  record_.partLength = extents.x;
  record_.outerDiameter = record_.clampDiameter = extents.y;
}

void CPageBilletFromSolid::PickPartLength() {
  PickLength();
}

void CPageBilletFromSolid::PickClampDiameter() {
  PickDiameter(&BilletRecord::clampDiameter);
}

void CPageBilletFromSolid::SelectSolid() {
  if (!UpdateData()) return;
  if (hostFunctions.OrvoPsGetBodyNumberFromName(record_.solidName) < 1) {
    return Refuse(record_.solidName + ": " + Text(1162), kSolid);
  }
  record_.type = billet_type::kFromSolid;
  Store();
}

}  // namespace vanzet::dialog
