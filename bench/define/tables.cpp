#include "define/tables.h"

#include "view/ids.h"

namespace vanzet::define {
namespace {

using scene::Billet;
using scene::FinishPart;
using scene::Spindle;

constexpr Range kJaws = {3, 16};

// clang-format off
constexpr Field<Billet> kCylinder[] = {
    // key               member                   control
    {"outer_diameter",  &Billet::outerDiameter,  control::kOuterDiameter,  Need::kNonzero},
    {"part_length",     &Billet::partLength,     control::kCylinderLength, Need::kNonzero},
    {"front_allowance", &Billet::frontAllowance, control::kFrontAllowance},
    {"rear_allowance",  &Billet::rearAllowance,  control::kRearAllowance},
    {"inner_diameter",  &Billet::innerDiameter,  control::kInnerDiameter},
    {"bar_length",      &Billet::barLength,      control::kBarLength,      Need::kNone, {}, true},
    {"shown",           &Billet::isShown,        control::kHideBillet},
};

constexpr Field<Billet> kBilletFigures[] = {
    {"outside",     &Billet::outside,    control::kFigureOutside, Need::kGiven},
    {"inside",      &Billet::inside,     control::kFigureInside},
    {"part_length", &Billet::partLength, control::kPartLength},
};

// Lengths that are left out are those of the solid.
constexpr Field<Billet> kBilletSolid[] = {
    {"solid",          &Billet::solid,         control::kSolid, Need::kGiven},
    {"part_length",    &Billet::partLength,    control::kPartLength},
    {"clamp_diameter", &Billet::clampDiameter, control::kClampDiameter},
    {"angle",          &Billet::angle,         control::kAngle},
};

constexpr Kind<Billet> kBillets[] = {
    // word       type                 nodes     button
    {"cylinder", scene::billet_type::kCylinder, kCylinder,      {node::kBilletCylindricMain, node::kBilletCylindricSub},   control::kSelectCylinder},
    {"figures",  scene::billet_type::kFigures,  kBilletFigures, {node::kBilletFromFigureMain, node::kBilletFromFigureSub}, control::kSelect},
    {"solid",    scene::billet_type::kSolid,    kBilletSolid,   {node::kBilletFromSolidMain, node::kBilletFromSolidSub},   control::kSelect},
};

constexpr Field<FinishPart> kFinishFigures[] = {
    {"outside", &FinishPart::outside, control::kFigureOutside, Need::kGiven},
    {"inside",  &FinishPart::inside,  control::kFigureInside},
};

constexpr Field<FinishPart> kFinishSolid[] = {
    {"solid", &FinishPart::solid, control::kSolid, Need::kGiven},
};

// The button of the page with figures stores nothing.
constexpr Kind<FinishPart> kFinishParts[] = {
    {"figures", scene::finish_part_type::kFigures, kFinishFigures, {node::kFinishPartFromFigureMain, node::kFinishPartFromFigureSub}, 0},
    {"solid",   scene::finish_part_type::kSolid,   kFinishSolid,   {node::kFinishPartFromSolidMain, node::kFinishPartFromSolidSub},   control::kSelect},
};

constexpr Field<Spindle> kJawFields[] = {
    {"count",  &Spindle::jaws,         control::kJawSpin, Need::kNone, kJaws},
    {"inside", &Spindle::clampsInside, control::kInnerChucking},
};

constexpr Field<Spindle> kMainDatum[] = {
    {"clamping_out", &Spindle::clampingOut, control::kClampingOutMain},
    {"origin",       &Spindle::origin,      control::kOriginMain},
};

constexpr Field<Spindle> kSubDatum[] = {
    {"clamping_out", &Spindle::clampingOut, control::kClampingOutSub},
    {"origin",       &Spindle::origin,      control::kOriginSub},
};

constexpr DeviceRow kClamps[] = {
    {&devices::kChuck,      {node::kChuckMain, node::kChuckSub}},
    {&devices::kCollet,     {node::kColletMain, node::kColletSub}},
    {&devices::kMandrel,    {node::kMandrelMain, node::kMandrelSub}},
    {&devices::kFaceDriver, {node::kFaceDriverMain, node::kFaceDriverSub}},
};
constexpr DeviceRow kJaw =    {&devices::kJaw,    {node::kJawMain, node::kJawSub}};
constexpr DeviceRow kCenter = {&devices::kCenter, {node::kCenter, node::kCenter}};
// clang-format on

constexpr Part<Billet> kBilletPart = {
    "billet", &Spindle::billet, kBillets, true, {node::kBilletMain, node::kBilletSub}};
constexpr Part<FinishPart> kFinishedPart = {"finished_part",
                                            &Spindle::finishPart,
                                            kFinishParts,
                                            false,
                                            {node::kFinishPartMain, node::kFinishPartSub}};

}  // namespace

const Part<Billet>& BilletPart() {
  return kBilletPart;
}

const Part<FinishPart>& FinishedPart() {
  return kFinishedPart;
}

std::span<const Field<Spindle>> JawFields() {
  return kJawFields;
}

std::span<const Field<Spindle>> DatumFields(std::size_t spindle) {
  return spindle == 0 ? std::span(kMainDatum) : std::span(kSubDatum);
}

std::span<const DeviceRow> ClampRows() {
  return kClamps;
}

const DeviceRow& JawRow() {
  return kJaw;
}

const DeviceRow& CenterRow() {
  return kCenter;
}

}  // namespace vanzet::define
