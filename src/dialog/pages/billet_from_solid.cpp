#include "dialog/pages/billet_from_solid.h"

#include "dialog/pages/picks.h"
#include "dialog/texts.h"
#include "host/host_functions.h"
#include "host/message_ids.h"
#include "view/ids.h"

namespace vanzet::dialog {
namespace {

using host::hostFunctions;

// clang-format off
constexpr ControlTemplate kControls[] = {
    {.id = control::kHeader,             .kind = ControlKind::kLabel},
    {.id = control::kPicture,            .kind = ControlKind::kPicture, .bitmap = picture::kSolid},
    {.id = control::kSolidLabel,         .kind = ControlKind::kLabel},
    {.id = control::kSolid,              .kind = ControlKind::kEdit},
    {.id = control::kPickSolid,          .kind = ControlKind::kButton,  .text = ">>"},
    {.id = control::kPartLengthLabel,    .kind = ControlKind::kLabel},
    {.id = control::kPartLength,         .kind = ControlKind::kEdit},
    {.id = control::kPickLengthOfSolid,  .kind = ControlKind::kButton,  .text = ">>"},
    {.id = control::kClampDiameterLabel, .kind = ControlKind::kLabel},
    {.id = control::kClampDiameter,      .kind = ControlKind::kEdit},
    {.id = control::kPickClampDiameter,  .kind = ControlKind::kButton,  .text = ">>"},
    {.id = control::kAngleLabel,         .kind = ControlKind::kLabel},
    {.id = control::kAngle,              .kind = ControlKind::kEdit},
    {.id = control::kSelect,             .kind = ControlKind::kButton},
};

constexpr StartText kTexts[] = {
    {control::kSolidLabel,         message::kSolid},
    {control::kPartLengthLabel,    message::kPartLength},
    {control::kClampDiameterLabel, message::kClampDiameter},
    {control::kAngleLabel,         message::kAngle},
    {control::kSelect,             message::kSelect},
};

constexpr Field<BilletRecord> kFields[] = {
    {control::kSolid,         &BilletRecord::solidName},
    {control::kPartLength,    &BilletRecord::partLength},
    {control::kClampDiameter, &BilletRecord::clampDiameter},
    {control::kAngle,         &BilletRecord::angle},
};
// clang-format on

constexpr PageTemplate kTemplate = {"CPageBilletFromSolid", page_template::kBilletFromSolid, kControls,
                                    kTexts};

}  // namespace

const Handler<CPageBilletFromSolid> CPageBilletFromSolid::kButtons[] = {
    {control::kPickSolid, &CPageBilletFromSolid::PickTheSolid},
    {control::kPickLengthOfSolid, &CPageBilletFromSolid::PickPartLength},
    {control::kPickClampDiameter, &CPageBilletFromSolid::PickClampDiameter},
    {control::kSelect, &CPageBilletFromSolid::SelectSolid},
};

CPageBilletFromSolid::CPageBilletFromSolid(PageOwner& owner)
    : BilletPage(owner, kTemplate, {billet_type::kFromSolid, message::kBilletFromSolid, kFields}) {}

void CPageBilletFromSolid::OnPress(std::int32_t button) {
  RunHandler<CPageBilletFromSolid>(*this, kButtons, button);
}

void CPageBilletFromSolid::PickTheSolid() {
  Pick([this] {
    const std::int32_t body = PickSolid();
    if (body < 1) {
      ClearBilletRecord(record_);
    } else {
      ReadBody(body);
    }
  });
}

void CPageBilletFromSolid::ReadBody(std::int32_t body) {
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
    return Refuse(record_.solidName + ": " + Text(message::kInvalidSolid), control::kSolid);
  }
  record_.type = billet_type::kFromSolid;
  Store();
}

}  // namespace vanzet::dialog
