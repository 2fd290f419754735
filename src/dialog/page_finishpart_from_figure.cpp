#include "dialog/page_finishpart_from_figure.h"

#include "dialog/picks.h"
#include "dialog/spindle_header.h"

namespace vanzet::dialog {
namespace {

// clang-format off
constexpr ControlTemplate kControls[] = {
    {.id = kHeader, .kind = ControlKind::kLabel},
    {.id = 2147,    .kind = ControlKind::kPicture, .bitmap = 2050},
    {.id = 2132,    .kind = ControlKind::kLabel,   .text = "*Figure Outside F1"},
    {.id = 2039,    .kind = ControlKind::kEdit},
    {.id = 2010,    .kind = ControlKind::kButton,  .text = ">>"},
    {.id = 2133,    .kind = ControlKind::kLabel,   .text = "*Figure Inside F2"},
    {.id = 2040,    .kind = ControlKind::kEdit},
    {.id = 2011,    .kind = ControlKind::kButton,  .text = ">>"},
    {.id = 2015,    .kind = ControlKind::kButton,  .text = "*Select"},
};

constexpr StartText kTexts[] = {
    {2132, 726, "Figure outside F1"},
    {2133, 727, "Figure inside F2"},
    {2015, 724, "Select"},
};

constexpr Field<FinishPartRecord> kFields[] = {
    {2039, &FinishPartRecord::figureOutside},
    {2040, &FinishPartRecord::figureInside},
};
// clang-format on

constexpr PageTemplate kTemplate = {"CPageFinishpartFromFigure", 2169, kControls, kTexts};

}  // namespace

const Handler<CPageFinishpartFromFigure> CPageFinishpartFromFigure::kButtons[] = {
    {2010, &CPageFinishpartFromFigure::PickOutside},
    {2011, &CPageFinishpartFromFigure::PickInside},
};

CPageFinishpartFromFigure::CPageFinishpartFromFigure(CDlgMain& dialog)
    : FinishpartPage(dialog, kTemplate,
                     {finish_part_type::kFromFigures, 1172, "Finishpart from Geometry", kFields}) {}

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
