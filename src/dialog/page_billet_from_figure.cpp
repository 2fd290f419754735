#include "dialog/page_billet_from_figure.h"

#include "dialog/picks.h"
#include "dialog/spindle_header.h"
#include "dialog/texts.h"

namespace vanzet::dialog {
namespace {

constexpr std::int32_t kOutside = 2039;

// clang-format off
constexpr ControlTemplate kControls[] = {
    {.id = kHeader,  .kind = ControlKind::kLabel},
    {.id = 2147,     .kind = ControlKind::kPicture, .bitmap = 2050},
    {.id = 2132,     .kind = ControlKind::kLabel,   .text = "*Figure Outside F1"},
    {.id = kOutside, .kind = ControlKind::kEdit},
    {.id = 2010,     .kind = ControlKind::kButton,  .text = ">>"},
    {.id = 2133,     .kind = ControlKind::kLabel,   .text = "*Figure Inside F2"},
    {.id = 2040,     .kind = ControlKind::kEdit},
    {.id = 2011,     .kind = ControlKind::kButton,  .text = ">>"},
    {.id = 2145,     .kind = ControlKind::kLabel,   .text = "*Partlength"},
    {.id = 2045,     .kind = ControlKind::kEdit},
    {.id = 2013,     .kind = ControlKind::kButton,  .text = ">>"},
    {.id = 2015,     .kind = ControlKind::kButton,  .text = "*Select"},
};

constexpr StartText kTexts[] = {
    {2132,  726, "Figure outside F1"},
    {2133,  727, "Figure inside F2"},
    {2015,  724, "Select"},
    {2145, 1164, "Partlength"},
};

constexpr Field<BilletRecord> kFields[] = {
    {kOutside, &BilletRecord::figureOutside},
    {2040,     &BilletRecord::figureInside},
    {2045,     &BilletRecord::partLength},
};
// clang-format on

constexpr PageTemplate kTemplate = {"CPageBilletFromFigure", 2163, kControls, kTexts};

}  // namespace

const Handler<CPageBilletFromFigure> CPageBilletFromFigure::kButtons[] = {
    {2010, &CPageBilletFromFigure::PickOutside},
    {2011, &CPageBilletFromFigure::PickInside},
    {2013, &CPageBilletFromFigure::PickPartLength},
    {2015, &CPageBilletFromFigure::SelectFigure},
};

CPageBilletFromFigure::CPageBilletFromFigure(CDlgMain& dialog)
    : BilletPage(dialog, kTemplate, {billet_type::kFromFigures, 717, "Billet from Geometry", kFields}) {}

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
  if (record_.figureOutside.empty()) return Refuse(Text(731), kOutside);
  record_.type = billet_type::kFromFigures;
  Store();
}

}  // namespace vanzet::dialog
