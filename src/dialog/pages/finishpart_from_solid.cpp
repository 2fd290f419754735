#include "dialog/pages/finishpart_from_solid.h"

#include "dialog/pages/picks.h"
#include "dialog/spindle_header.h"
#include "dialog/texts.h"
#include "host/host_functions.h"
#include "host/message_ids.h"
#include "view/ids.h"

namespace vanzet::dialog {
namespace {

using host::hostFunctions;

// clang-format off
constexpr ControlTemplate kControls[] = {
    {.id = control::kHeader,     .kind = ControlKind::kLabel},
    {.id = control::kPicture,    .kind = ControlKind::kPicture, .bitmap = picture::kSolid},
    {.id = control::kSolidLabel, .kind = ControlKind::kLabel},
    {.id = control::kSolid,      .kind = ControlKind::kEdit},
    {.id = control::kPickSolid,  .kind = ControlKind::kButton,  .text = ">>"},
    {.id = control::kSelect,     .kind = ControlKind::kButton},
};

constexpr StartText kTexts[] = {
    {control::kHeader,     message::kFinishPartFromSolid, "Finishpart from solid"},
    {control::kSolidLabel, message::kSolid},
    {control::kSelect,     message::kSelect},
};
// clang-format on

constexpr Field<FinishPartRecord> kFields[] = {{control::kSolid, &FinishPartRecord::solidName}};

constexpr PageTemplate kTemplate = {"CPageFinishpartFromSolid", page_template::kFinishpartFromSolid,
                                    kControls, kTexts};

}  // namespace

const Handler<CPageFinishpartFromSolid> CPageFinishpartFromSolid::kButtons[] = {
    {control::kPickSolid, &CPageFinishpartFromSolid::PickFinishSolid},
    {control::kSelect, &CPageFinishpartFromSolid::SelectFinishSolid},
};

CPageFinishpartFromSolid::CPageFinishpartFromSolid(PageOwner& owner)
    : FinishpartPage(owner, kTemplate,
                     {finish_part_type::kFromSolid, message::kFinishPartFromSolid, kFields}) {}

void CPageFinishpartFromSolid::OnPress(std::int32_t button) {
  RunHandler<CPageFinishpartFromSolid>(*this, kButtons, button);
}

void CPageFinishpartFromSolid::PickFinishSolid() {
  Pick([this] {
    const std::int32_t body = PickSolid();
    if (body < 1) return Clear();
    record_.type = finish_part_type::kFromSolid;
    record_.solidName = hostFunctions.OrvoPsGetBodyNameFromNumber(body);
  });
}

void CPageFinishpartFromSolid::SelectFinishSolid() {
  if (!UpdateData()) return;
  // Without the name that the page of the billet puts in front.
  if (hostFunctions.OrvoPsGetBodyNumberFromName(record_.solidName) < 1)
    return Refuse(Text(message::kInvalidSolid), control::kSolid);
  record_.type = finish_part_type::kFromSolid;
  WriteFinishPart(owner_.SelectedSpur(), owner_.CurrentSpindle(), record_);
  owner_.Tree().MarkFinishPartNodes(owner_.CurrentSpindle(), record_.type);
}

}  // namespace vanzet::dialog
