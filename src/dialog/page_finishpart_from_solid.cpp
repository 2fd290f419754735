#include "dialog/page_finishpart_from_solid.h"

#include "dialog/dlg_main.h"
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
    {.id = kHeader, .kind = ControlKind::kLabel,   .text = "*Finishpart from solid"},
    {.id = 2147,    .kind = ControlKind::kPicture, .bitmap = 2051},
    {.id = 2156,    .kind = ControlKind::kLabel,   .text = "*Solid"},
    {.id = kSolid,  .kind = ControlKind::kEdit},
    {.id = 2018,    .kind = ControlKind::kButton,  .text = ">>"},
    {.id = 2015,    .kind = ControlKind::kButton,  .text = "*Select"},
};

constexpr StartText kTexts[] = {
    {kHeader, 1173, "Finishpart from solid"},
    {2156,     406, "Solid"},
    {2015,     724, "Select"},
};
// clang-format on

constexpr Field<FinishPartRecord> kFields[] = {{kSolid, &FinishPartRecord::solidName}};

constexpr PageTemplate kTemplate = {"CPageFinishpartFromSolid", 2170, kControls, kTexts};

}  // namespace

const Handler<CPageFinishpartFromSolid> CPageFinishpartFromSolid::kButtons[] = {
    {2018, &CPageFinishpartFromSolid::PickFinishSolid},
    {2015, &CPageFinishpartFromSolid::SelectFinishSolid},
};

CPageFinishpartFromSolid::CPageFinishpartFromSolid(CDlgMain& dialog)
    : FinishpartPage(dialog, kTemplate,
                     {finish_part_type::kFromSolid, 1173, "Finishpart from Solid", kFields}) {}

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
  if (hostFunctions.OrvoPsGetBodyNumberFromName(record_.solidName) < 1) return Refuse(Text(1162), kSolid);
  record_.type = finish_part_type::kFromSolid;
  WriteFinishPart(dialog_.SelectedSpur(), dialog_.CurrentSpindle(), record_);
  dialog_.Tree().MarkFinishPartNodes(dialog_.CurrentSpindle(), record_.type);
}

}  // namespace vanzet::dialog
