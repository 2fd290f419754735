#include "dialog/pages/billet_from_figure.h"

#include "dialog/pages/picks.h"
#include "dialog/texts.h"
#include "host/message_ids.h"
#include "view/ids.h"

namespace vanzet::dialog {
namespace {

// clang-format off
constexpr ControlTemplate kControls[] = {
    {.id = control::kHeader,             .kind = ControlKind::kLabel},
    {.id = control::kPicture,            .kind = ControlKind::kPicture, .bitmap = picture::kFigure},
    {.id = control::kFigureOutsideLabel, .kind = ControlKind::kLabel},
    {.id = control::kFigureOutside,      .kind = ControlKind::kEdit},
    {.id = control::kPickFigureOutside,  .kind = ControlKind::kButton,  .text = ">>"},
    {.id = control::kFigureInsideLabel,  .kind = ControlKind::kLabel},
    {.id = control::kFigureInside,       .kind = ControlKind::kEdit},
    {.id = control::kPickFigureInside,   .kind = ControlKind::kButton,  .text = ">>"},
    {.id = control::kPartLengthLabel,    .kind = ControlKind::kLabel},
    {.id = control::kPartLength,         .kind = ControlKind::kEdit},
    {.id = control::kPickLengthOfFigure, .kind = ControlKind::kButton,  .text = ">>"},
    {.id = control::kSelect,             .kind = ControlKind::kButton},
};

constexpr StartText kTexts[] = {
    {control::kFigureOutsideLabel, message::kFigureOutside},
    {control::kFigureInsideLabel,  message::kFigureInside},
    {control::kSelect,             message::kSelect},
    {control::kPartLengthLabel,    message::kPartLength},
};

constexpr Field<BilletRecord> kFields[] = {
    {control::kFigureOutside, &BilletRecord::figureOutside},
    {control::kFigureInside,  &BilletRecord::figureInside},
    {control::kPartLength,    &BilletRecord::partLength},
};
// clang-format on

constexpr PageTemplate kTemplate = {"CPageBilletFromFigure", page_template::kBilletFromFigure, kControls,
                                    kTexts};

}  // namespace

const Handler<CPageBilletFromFigure> CPageBilletFromFigure::kButtons[] = {
    {control::kPickFigureOutside, &CPageBilletFromFigure::PickOutside},
    {control::kPickFigureInside, &CPageBilletFromFigure::PickInside},
    {control::kPickLengthOfFigure, &CPageBilletFromFigure::PickPartLength},
    {control::kSelect, &CPageBilletFromFigure::SelectFigure},
};

CPageBilletFromFigure::CPageBilletFromFigure(PageOwner& owner)
    : BilletPage(owner, kTemplate, {billet_type::kFromFigures, message::kBilletFromGeometry, kFields}) {}

void CPageBilletFromFigure::OnPress(std::int32_t button) {
  RunHandler<CPageBilletFromFigure>(*this, kButtons, button);
}

void CPageBilletFromFigure::PickOutside() {
  Pick([this] { PickFigure(record_.figureOutside); });
}

void CPageBilletFromFigure::PickInside() {
  Pick([this] { PickFigure(record_.figureInside); });
}

void CPageBilletFromFigure::PickPartLength() {
  PickLength();
}

void CPageBilletFromFigure::SelectFigure() {
  if (!UpdateData()) return;
  if (record_.figureOutside.empty()) return Refuse(Text(message::kNoFigure), control::kFigureOutside);
  record_.type = billet_type::kFromFigures;
  Store();
}

}  // namespace vanzet::dialog
