#include "dialog/pages/finishpart_from_figure.h"

#include "dialog/pages/picks.h"
#include "dialog/spindle_header.h"
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
    {.id = control::kSelect,             .kind = ControlKind::kButton},
};

constexpr StartText kTexts[] = {
    {control::kFigureOutsideLabel, message::kFigureOutside},
    {control::kFigureInsideLabel,  message::kFigureInside},
    {control::kSelect,             message::kSelect},
};

constexpr Field<FinishPartRecord> kFields[] = {
    {control::kFigureOutside, &FinishPartRecord::figureOutside},
    {control::kFigureInside,  &FinishPartRecord::figureInside},
};
// clang-format on

constexpr PageTemplate kTemplate = {"CPageFinishpartFromFigure", page_template::kFinishpartFromFigure,
                                    kControls, kTexts};

}  // namespace

const Handler<CPageFinishpartFromFigure> CPageFinishpartFromFigure::kButtons[] = {
    {control::kPickFigureOutside, &CPageFinishpartFromFigure::PickOutside},
    {control::kPickFigureInside, &CPageFinishpartFromFigure::PickInside},
};

CPageFinishpartFromFigure::CPageFinishpartFromFigure(PageOwner& owner)
    : FinishpartPage(owner, kTemplate,
                     {finish_part_type::kFromFigures, message::kFinishPartFromGeometry, kFields}) {}

void CPageFinishpartFromFigure::OnPress(std::int32_t button) {
  RunHandler<CPageFinishpartFromFigure>(*this, kButtons, button);
}

void CPageFinishpartFromFigure::PickOutside() {
  Pick([this] { PickFigure(record_.figureOutside); });
}

void CPageFinishpartFromFigure::PickInside() {
  Pick([this] { PickFigure(record_.figureInside); });
}

}  // namespace vanzet::dialog
