#include "dialog/pages/billet_cylindric.h"

#include <cmath>

#include "base/number_text.h"
#include "base/numbers.h"
#include "devices/page_rules.h"
#include "dialog/pages/picks.h"
#include "dialog/texts.h"
#include "host/bridge.h"
#include "host/macro_variables.h"
#include "host/message_ids.h"
#include "view/ids.h"

namespace vanzet::dialog {
namespace {

// The text of kHideBillet says the opposite of what its tick does; that is required.
// clang-format off
constexpr ControlTemplate kControls[] = {
    {.id = control::kHeader,             .kind = ControlKind::kLabel},
    {.id = control::kPicture,            .kind = ControlKind::kPicture},
    {.id = control::kOuterDiameter,      .kind = ControlKind::kEdit,   .caption = "A"},
    {.id = control::kPickOuterDiameter,  .kind = ControlKind::kButton, .text = ">>"},
    {.id = control::kCylinderLength,     .kind = ControlKind::kEdit,   .caption = "B"},
    {.id = control::kPickCylinderLength, .kind = ControlKind::kButton, .text = ">>"},
    {.id = control::kFrontAllowance,     .kind = ControlKind::kEdit,   .caption = "C"},
    {.id = control::kRearAllowance,      .kind = ControlKind::kEdit,   .caption = "D"},
    {.id = control::kInnerDiameter,      .kind = ControlKind::kEdit,   .caption = "E"},
    {.id = control::kPickInnerDiameter,  .kind = ControlKind::kButton, .text = ">>"},
    {.id = control::kBarLength,          .kind = ControlKind::kEdit,   .caption = "F"},
    {.id = control::kPickSolid,          .kind = ControlKind::kButton},
    {.id = control::kHideBillet,         .kind = ControlKind::kCheck},
    {.id = control::kSelectCylinder,     .kind = ControlKind::kButton},
};

constexpr StartText kTexts[] = {
    {control::kPickSolid,      message::kValuesFromSolid},
    {control::kHideBillet,     message::kHideBillet},
    {control::kSelectCylinder, message::kSelect},
};

constexpr Field<BilletRecord> kFields[] = {
    {control::kOuterDiameter,  &BilletRecord::outerDiameter},
    {control::kCylinderLength, &BilletRecord::partLength},
    {control::kFrontAllowance, &BilletRecord::frontAllowance},
    {control::kRearAllowance,  &BilletRecord::rearAllowance},
    {control::kInnerDiameter,  &BilletRecord::innerDiameter},
    {control::kBarLength,      &BilletRecord::barLength},
    {control::kHideBillet,     &BilletRecord::drawOnScreen},
};
// clang-format on

constexpr PageTemplate kTemplate = {"CPageBilletCylindric", page_template::kBilletCylindric, kControls,
                                    kTexts};

/// The digits of a number that replaces "%g" in a text.
constexpr int kShortDigits = 6;

devices::BilletSizes SizesOf(const BilletRecord& record) {
  return {.outer = record.outerDiameter,
          .length = record.partLength,
          .front = record.frontAllowance,
          .rear = record.rearAllowance,
          .inner = record.innerDiameter,
          .bar = record.barLength};
}

/// How many decimals a billet's values have, as the host's setting says; 0 without one.
std::int32_t BilletDecimalPlaces() {
  host::SendCommand("env 'BilletDecimalPlaces' $_return");
  std::string places;
  OrvoApi::GetGlobalStrVar("$_return", places);
  return IntegerOrZero(places);
}

/// Rounds to the decimals of `factor`, a power of ten.
double RoundHalfUp(double value, double factor) {
  return std::floor(value * factor + 0.5) / factor;
}

}  // namespace

const Handler<CPageBilletCylindric> CPageBilletCylindric::kButtons[] = {
    {control::kPickOuterDiameter, &CPageBilletCylindric::PickOuterDiameter},
    {control::kPickCylinderLength, &CPageBilletCylindric::PickPartLength},
    {control::kPickInnerDiameter, &CPageBilletCylindric::PickInnerDiameter},
    {control::kPickSolid, &CPageBilletCylindric::ValuesFromSolid},
    {control::kSelectCylinder, &CPageBilletCylindric::SelectCylindric},
};

CPageBilletCylindric::CPageBilletCylindric(PageOwner& owner)
    : BilletPage(owner, kTemplate, {billet_type::kCylindric, message::kBilletCylindric, kFields}) {}

void CPageBilletCylindric::OnSetActive() {
  const bool isSub = owner_.CurrentSpindle() == 1;
  controls_.SetPicture(control::kPicture, isSub ? picture::kBilletSub : picture::kBilletMain);
  controls_.Enable(control::kBarLength, !isSub);
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
    record_.outerDiameter = RoundHalfUp(extents.y, factor);
    record_.partLength = RoundHalfUp(extents.x, factor);
  });
}

void CPageBilletCylindric::SelectCylindric() {
  if (!UpdateData()) return;
  if (!SizesOf(record_).AreOfABillet()) {
    record_.type = billet_type::kNone;
    Notice(Text(message::kRemoveBillet));
  } else {
    record_.type = billet_type::kCylindric;
    CorrectBarLength();
    CorrectInnerDiameter();
  }
  Store();
}

void CPageBilletCylindric::CorrectBarLength() {
  const devices::BilletSizes sizes = SizesOf(record_);
  if (!sizes.IsBarTooShort()) return;
  ResetValue(&BilletRecord::barLength,
             ReplaceAll(Text(message::kBarTooShort), "%g", GeneralText(sizes.LeastBar(), kShortDigits)),
             control::kBarLength);
}

void CPageBilletCylindric::CorrectInnerDiameter() {
  if (!SizesOf(record_).IsBoreTooWide()) return;
  ResetValue(&BilletRecord::innerDiameter, Text(message::kBoreTooWide), control::kInnerDiameter);
}

void CPageBilletCylindric::ResetValue(double BilletRecord::*field, const std::string& text,
                                      std::int32_t edit) {
  Notice(text);
  record_.*field = 0;
  FillControls();
  owner_.Focus(edit, true);
}

}  // namespace vanzet::dialog
