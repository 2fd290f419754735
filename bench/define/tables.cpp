#include "define/tables.h"

#include "view/ids.h"

namespace vanzet::define {
namespace {

using scene::Billet;
using scene::FinishPart;
using scene::Spindle;

constexpr Quantity kNoNumber = {};
constexpr Quantity kJawCount = {devices::Unit::kNone, 3, 16};
constexpr bool kRequired = true;
constexpr bool kOfMainAlone = true;

// clang-format off
constexpr Field<Billet> kCylinder[] = {
    // key               member                   control
    {"outer_diameter",  &Billet::outerDiameter,  control::kOuterDiameter,  "Diameter of the raw part",                            kLengthAbove0, kRequired},
    {"part_length",     &Billet::partLength,     control::kCylinderLength, "Length of the part, without allowances",              kLengthAbove0, kRequired},
    {"front_allowance", &Billet::frontAllowance, control::kFrontAllowance, "Material before the front face",                      kPosition},
    {"rear_allowance",  &Billet::rearAllowance,  control::kRearAllowance,  "Material behind the rear face",                       kPosition},
    {"inner_diameter",  &Billet::innerDiameter,  control::kInnerDiameter,  "Diameter of the bore; 0: none",                       kLength},
    {"bar_length",      &Billet::barLength,      control::kBarLength,      "Length of the bar that the part is cut from; 0: none", kLength, !kRequired, kOfMainAlone},
    {"shown",           &Billet::isShown,        control::kHideBillet,     "Whether the drawing shows the raw part",              kNoNumber},
};

constexpr Field<Billet> kBilletFigures[] = {
    {"outside",     &Billet::outside,    control::kFigureOutside, "Figure of the outside",                       kNoNumber, kRequired},
    {"inside",      &Billet::inside,     control::kFigureInside,  "Figure of the inside",                        kNoNumber},
    {"part_length", &Billet::partLength, control::kPartLength,    "Length of the part",                          kLength},
};

// Lengths that are left out are those of the solid.
constexpr Field<Billet> kBilletSolid[] = {
    {"solid",          &Billet::solid,         control::kSolid,         "Name of the body",                             kNoNumber, kRequired},
    {"part_length",    &Billet::partLength,    control::kPartLength,    "Length of the part; left out: that of the body", kLength},
    {"clamp_diameter", &Billet::clampDiameter, control::kClampDiameter, "Diameter where it is clamped; left out: that of the body", kLength},
    {"angle",          &Billet::angle,         control::kAngle,         "Turn about the axis",                          kTurn},
};

constexpr Kind<Billet> kBillets[] = {
    // word       type                 nodes     button
    {"cylinder", scene::billet_type::kCylinder, kCylinder,      {node::kBilletCylindricMain, node::kBilletCylindricSub},   control::kSelectCylinder},
    {"figures",  scene::billet_type::kFigures,  kBilletFigures, {node::kBilletFromFigureMain, node::kBilletFromFigureSub}, control::kSelect},
    {"solid",    scene::billet_type::kSolid,    kBilletSolid,   {node::kBilletFromSolidMain, node::kBilletFromSolidSub},   control::kSelect},
};

constexpr Field<FinishPart> kFinishFigures[] = {
    {"outside", &FinishPart::outside, control::kFigureOutside, "Figure of the outside", kNoNumber, kRequired},
    {"inside",  &FinishPart::inside,  control::kFigureInside,  "Figure of the inside",  kNoNumber},
};

constexpr Field<FinishPart> kFinishSolid[] = {
    {"solid", &FinishPart::solid, control::kSolid, "Name of the body", kNoNumber, kRequired},
};

// The button of the page with figures stores nothing.
constexpr Kind<FinishPart> kFinishParts[] = {
    {"figures", scene::finish_part_type::kFigures, kFinishFigures, {node::kFinishPartFromFigureMain, node::kFinishPartFromFigureSub}, 0},
    {"solid",   scene::finish_part_type::kSolid,   kFinishSolid,   {node::kFinishPartFromSolidMain, node::kFinishPartFromSolidSub},   control::kSelect},
};

constexpr Field<Spindle> kJawFields[] = {
    {"count",  &Spindle::jaws,         control::kJawSpin,       "Number of jaws",                kJawCount},
    {"inside", &Spindle::clampsInside, control::kInnerChucking, "Whether they clamp from inside", kNoNumber},
};

constexpr Field<Spindle> kMainDatum[] = {
    {"clamping_out", &Spindle::clampingOut, control::kClampingOutMain, "How far the raw part is clamped out of the device", kPosition},
    {"origin",       &Spindle::origin,      control::kOriginMain,      "Position of the part's origin",                   kPosition},
};

constexpr Field<Spindle> kSubDatum[] = {
    {"clamping_out", &Spindle::clampingOut, control::kClampingOutSub, "How far the raw part is clamped out of the device", kPosition},
    {"origin",       &Spindle::origin,      control::kOriginSub,      "Position of the part's origin",                   kPosition},
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

Quantity QuantityOf(const devices::Letter& letter) {
  using devices::Drawn;
  const bool isAngle = letter.unit == devices::Unit::kDegree;
  switch (letter.drawn) {
    case Drawn::kAbove0:
    case Drawn::kNot0:
    case Drawn::kThickness: return isAngle ? kAngleAbove0 : kLengthAbove0;
    case Drawn::kFrom0: return kLength;
    case Drawn::kAny:
    case Drawn::kNever: break;
  }
  return isAngle ? kTurn : kPosition;
}

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
