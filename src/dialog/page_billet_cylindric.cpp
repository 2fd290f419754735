#include "dialog/page_billet_cylindric.h"

#include <cmath>

#include "base/numbers.h"
#include "dialog/dlg_main.h"
#include "dialog/number_text.h"
#include "dialog/picks.h"
#include "dialog/spindle_header.h"
#include "dialog/texts.h"
#include "host/bridge.h"
#include "host/macro_variables.h"

namespace vanzet::dialog {
namespace {

constexpr std::int32_t kPicture = 2147;
constexpr std::int32_t kInnerDiameter = 2026;
constexpr std::int32_t kBarLength = 2027;

// What the box 2138 says is the opposite of what its tick does; it is kept so.
// clang-format off
constexpr ControlTemplate kControls[] = {
    {.id = kHeader,        .kind = ControlKind::kLabel},
    {.id = kPicture,       .kind = ControlKind::kPicture},
    {.id = 2022,           .kind = ControlKind::kEdit,   .caption = "A"},
    {.id = 2005,           .kind = ControlKind::kButton, .text = ">>"},
    {.id = 2023,           .kind = ControlKind::kEdit,   .caption = "B"},
    {.id = 2006,           .kind = ControlKind::kButton, .text = ">>"},
    {.id = 2024,           .kind = ControlKind::kEdit,   .caption = "C"},
    {.id = 2025,           .kind = ControlKind::kEdit,   .caption = "D"},
    {.id = kInnerDiameter, .kind = ControlKind::kEdit,   .caption = "E"},
    {.id = 2009,           .kind = ControlKind::kButton, .text = ">>"},
    {.id = kBarLength,     .kind = ControlKind::kEdit,   .caption = "F"},
    {.id = 2018,           .kind = ControlKind::kButton, .text = "*Values from Solid >>"},
    {.id = 2138,           .kind = ControlKind::kCheck,  .text = "*Hide 2D-Billet in screen"},
    {.id = 2016,           .kind = ControlKind::kButton, .text = "*Select"},
};

constexpr StartText kTexts[] = {
    {2018, 725, "Values from Solid >>"},
    {2138, 739, "Hide 2D-Billet in screen"},
    {2016, 724, "Select"},
};

constexpr Field<BilletRecord> kFields[] = {
    {2022,           &BilletRecord::outerDiameter},
    {2023,           &BilletRecord::partLength},
    {2024,           &BilletRecord::frontAllowance},
    {2025,           &BilletRecord::rearAllowance},
    {kInnerDiameter, &BilletRecord::innerDiameter},
    {kBarLength,     &BilletRecord::barLength},
    {2138,           &BilletRecord::drawOnScreen},
};
// clang-format on

constexpr PageTemplate kTemplate = {"CPageBilletCylindric", 2162, kControls, kTexts};

/// How many decimals a billet's values have, as the host's setting says; 0 without one.
std::int32_t BilletDecimalPlaces() {
  host::SendCommand("env 'BilletDecimalPlaces' $_return");
  std::string places;
  OrvoApi::GetGlobalStrVar("$_return", places);
  return IntegerOrZero(places);
}

/// Rounded half up to decimals by their factor, a power of ten.
double Rounded(double value, double factor) {
  return std::floor(value * factor + 0.5) / factor;
}

}  // namespace

const Handler<CPageBilletCylindric> CPageBilletCylindric::kButtons[] = {
    {2005, &CPageBilletCylindric::PickOuterDiameter}, {2006, &CPageBilletCylindric::PickPartLength},
    {2009, &CPageBilletCylindric::PickInnerDiameter}, {2018, &CPageBilletCylindric::ValuesFromSolid},
    {2016, &CPageBilletCylindric::SelectCylindric},
};

CPageBilletCylindric::CPageBilletCylindric(CDlgMain& dialog)
    : BilletPage(dialog, kTemplate, {billet_type::kCylindric, 715, "Billet cylindrical", kFields}) {}

void CPageBilletCylindric::OnSetActive() {
  const bool isSub = dialog_.CurrentSpindle() == 1;
  controls_.SetPicture(kPicture, isSub ? 2049 : 2048);
  controls_.Enable(kBarLength, !isSub);
  BilletPage::OnSetActive();
}

void CPageBilletCylindric::OnPress(std::int32_t button) {
  RunHandler<CPageBilletCylindric>(*this, kButtons, button);
}

void CPageBilletCylindric::PickOuterDiameter() {
  PickDiameter(&BilletRecord::outerDiameter);
}

void CPageBilletCylindric::PickPartLength() {
  PickLength();
}

void CPageBilletCylindric::PickInnerDiameter() {
  PickDiameter(&BilletRecord::innerDiameter);
}

void CPageBilletCylindric::ValuesFromSolid() {
  Pick([this] {
    const std::int32_t body = PickBody();
    if (body <= 0) return;
    const double factor = std::pow(10.0, BilletDecimalPlaces());
    const BodyExtents extents = ExtentsOf(body);
    record_.outerDiameter = Rounded(extents.y, factor);
    record_.partLength = Rounded(extents.x, factor);
  });
}

void CPageBilletCylindric::SelectCylindric() {
  if (!UpdateData()) return;
  if (record_.partLength == 0 || record_.outerDiameter == 0) {
    record_.type = billet_type::kNone;
    Notice(Text(729));
  } else {
    record_.type = billet_type::kCylindric;
    CorrectBarLength();
    CorrectInnerDiameter();
  }
  Store();
}

void CPageBilletCylindric::CorrectBarLength() {
  const double least = record_.partLength + record_.frontAllowance + record_.rearAllowance;
  if (record_.barLength <= 0 || record_.barLength >= least) return;
  TakeBack(&BilletRecord::barLength, Replaced(Text(1168), "%g", ShortRealText(least)), kBarLength);
}

void CPageBilletCylindric::CorrectInnerDiameter() {
  if (record_.innerDiameter <= record_.outerDiameter) return;
  TakeBack(&BilletRecord::innerDiameter, Text(1169), kInnerDiameter);
}

void CPageBilletCylindric::TakeBack(double BilletRecord::*field, const std::string& text, std::int32_t edit) {
  Notice(text);
  record_.*field = 0;
  FillControls();
  dialog_.Focus(edit, true);
}

}  // namespace vanzet::dialog
