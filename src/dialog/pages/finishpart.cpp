#include "dialog/pages/finishpart.h"

#include "dialog/pages/picks.h"
#include "dialog/texts.h"
#include "host/host_functions.h"
#include "host/message_ids.h"
#include "view/ids.h"

namespace vanzet::dialog {
namespace {

using host::hostFunctions;

// The two pages of the finished part: from figures, then from a solid.
// clang-format off
constexpr ControlTemplate kControlsOfFigure[] = {
    {.id = control::kHeader,             .kind = ControlKind::kLabel},
    {.id = control::kPicture,            .kind = ControlKind::kPicture, .bitmap = picture::kFigure},
    {.id = control::kFigureOutsideLabel, .kind = ControlKind::kLabel},
    {.id = control::kFigureOutside,      .kind = ControlKind::kEdit},
    {.id = control::kPickFigureOutside,  .kind = ControlKind::kButton,  .text = ">>"},
    {.id = control::kFigureInsideLabel,  .kind = ControlKind::kLabel},
    {.id = control::kFigureInside,       .kind = ControlKind::kEdit},
    {.id = control::kPickFigureInside,   .kind = ControlKind::kButton,  .text = ">>"},
    {.id = control::kSelect,             .kind = ControlKind::kButton},
};

constexpr StartText kTextsOfFigure[] = {
    {control::kFigureOutsideLabel, message::kFigureOutside},
    {control::kFigureInsideLabel,  message::kFigureInside},
    {control::kSelect,             message::kSelect},
};

constexpr Field<FinishPartRecord> kFieldsOfFigure[] = {
    {control::kFigureOutside, &FinishPartRecord::figureOutside},
    {control::kFigureInside,  &FinishPartRecord::figureInside},
};
// clang-format on

constexpr PageTemplate kTemplateOfFigure = {"CPageFinishpartFromFigure", page_template::kFinishpartFromFigure,
                                            kControlsOfFigure, kTextsOfFigure};

// clang-format off
constexpr ControlTemplate kControlsOfSolid[] = {
    {.id = control::kHeader,     .kind = ControlKind::kLabel},
    {.id = control::kPicture,    .kind = ControlKind::kPicture, .bitmap = picture::kSolid},
    {.id = control::kSolidLabel, .kind = ControlKind::kLabel},
    {.id = control::kSolid,      .kind = ControlKind::kEdit},
    {.id = control::kPickSolid,  .kind = ControlKind::kButton,  .text = ">>"},
    {.id = control::kSelect,     .kind = ControlKind::kButton},
};

constexpr StartText kTextsOfSolid[] = {
    {control::kHeader,     message::kFinishPartFromSolid, "Finishpart from solid"},
    {control::kSolidLabel, message::kSolid},
    {control::kSelect,     message::kSelect},
};
// clang-format on

constexpr Field<FinishPartRecord> kFieldsOfSolid[] = {{control::kSolid, &FinishPartRecord::solidName}};

constexpr PageTemplate kTemplateOfSolid = {"CPageFinishpartFromSolid", page_template::kFinishpartFromSolid,
                                           kControlsOfSolid, kTextsOfSolid};

}  // namespace

FinishpartPage::FinishpartPage(PageOwner& owner, const PageTemplate& page, const Kind& kind)
    : Page(owner, page), kind_(kind) {}

void FinishpartPage::OnSetActive() {
  const std::int32_t spindle = owner_.CurrentSpindle();
  controls_.SetText(control::kHeader, SpindleHeader(spindle, kind_.title));
  ReadFinishPart(owner_.SelectedSpur(), spindle, record_);
  if (record_.type != kind_.finishPartType) Clear();
  FillControls();
}

std::optional<std::int32_t> FinishpartPage::ReadControls() {
  return ReadRecord(controls_, kind_.fields, record_);
}

void FinishpartPage::FillControls() {
  ShowRecord(controls_, kind_.fields, record_);
}

void FinishpartPage::Clear() {
  record_.type = finish_part_type::kNone;
  record_.figureInside.clear();
  record_.solidName.clear();
}

const Handler<CPageFinishpartFromFigure> CPageFinishpartFromFigure::kButtons[] = {
    {control::kPickFigureOutside, &CPageFinishpartFromFigure::PickOutside},
    {control::kPickFigureInside, &CPageFinishpartFromFigure::PickInside},
};

CPageFinishpartFromFigure::CPageFinishpartFromFigure(PageOwner& owner)
    : FinishpartPage(owner, kTemplateOfFigure,
                     {finish_part_type::kFromFigures, message::kFinishPartFromGeometry, kFieldsOfFigure}) {}

void CPageFinishpartFromFigure::OnPress(std::int32_t button) {
  RunHandler<CPageFinishpartFromFigure>(*this, kButtons, button);
}

void CPageFinishpartFromFigure::PickOutside() {
  Pick([this] { PickFigure(record_.figureOutside); });
}

void CPageFinishpartFromFigure::PickInside() {
  Pick([this] { PickFigure(record_.figureInside); });
}

const Handler<CPageFinishpartFromSolid> CPageFinishpartFromSolid::kButtons[] = {
    {control::kPickSolid, &CPageFinishpartFromSolid::PickFinishSolid},
    {control::kSelect, &CPageFinishpartFromSolid::SelectFinishSolid},
};

CPageFinishpartFromSolid::CPageFinishpartFromSolid(PageOwner& owner)
    : FinishpartPage(owner, kTemplateOfSolid,
                     {finish_part_type::kFromSolid, message::kFinishPartFromSolid, kFieldsOfSolid}) {}

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
  // The page of the billet puts the name in front; this one does not.
  if (hostFunctions.OrvoPsGetBodyNumberFromName(record_.solidName) < 1) {
    return Refuse(Text(message::kInvalidSolid), control::kSolid);
  }
  record_.type = finish_part_type::kFromSolid;
  KeepIf(WriteFinishPart(owner_.SelectedSpur(), owner_.CurrentSpindle(), record_));
  owner_.Tree().MarkFinishPartNodes(owner_.CurrentSpindle(), record_);
}

}  // namespace vanzet::dialog
