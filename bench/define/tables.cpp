#include "define/tables.h"

#include "devices/device_types.h"

namespace vanzet::define {
namespace {

using scene::Billet;
using scene::DeviceClass;
using scene::FinishPart;
using scene::Spindle;

constexpr Range kJaws = {3, 16};

// clang-format off
constexpr Field<Billet> kCylinder[] = {
    // key               member                   control
    {"outer_diameter",  &Billet::outerDiameter,  2022, Need::kNonzero},
    {"part_length",     &Billet::partLength,     2023, Need::kNonzero},
    {"front_allowance", &Billet::frontAllowance, 2024},
    {"rear_allowance",  &Billet::rearAllowance,  2025},
    {"inner_diameter",  &Billet::innerDiameter,  2026},
    {"bar_length",      &Billet::barLength,      2027, Need::kNone, {}, true},
    {"shown",           &Billet::isShown,        2138},
};

constexpr Field<Billet> kBilletFigures[] = {
    {"outside",     &Billet::outside,    2039, Need::kGiven},
    {"inside",      &Billet::inside,     2040},
    {"part_length", &Billet::partLength, 2045},
};

// Lengths that are left out are those of the solid.
constexpr Field<Billet> kBilletSolid[] = {
    {"solid",          &Billet::solid,         2046, Need::kGiven},
    {"part_length",    &Billet::partLength,    2045},
    {"clamp_diameter", &Billet::clampDiameter, 2035},
    {"angle",          &Billet::angle,         2032},
};

constexpr Kind<Billet> kBillets[] = {
    // word       type                 nodes     button
    {"cylinder", 1, kCylinder,      {19, 23}, 2016},
    {"figures",  2, kBilletFigures, {20, 24}, 2015},
    {"solid",    3, kBilletSolid,   {21, 25}, 2015},
};

constexpr Field<FinishPart> kFinishFigures[] = {
    {"outside", &FinishPart::outside, 2039, Need::kGiven},
    {"inside",  &FinishPart::inside,  2040},
};

constexpr Field<FinishPart> kFinishSolid[] = {
    {"solid", &FinishPart::solid, 2046, Need::kGiven},
};

// The button of the page with figures stores nothing.
constexpr Kind<FinishPart> kFinishParts[] = {
    {"figures", 1, kFinishFigures, {28, 31}, 0},
    {"solid",   2, kFinishSolid,   {29, 32}, 2015},
};

constexpr Field<Spindle> kJawFields[] = {
    {"count",  &Spindle::jaws,         2181, Need::kNone, kJaws},
    {"inside", &Spindle::clampsInside, 2141},
};

constexpr Field<Spindle> kMainDatum[] = {
    {"clamping_out", &Spindle::clampingOut, 2203},
    {"origin",       &Spindle::origin,      2207},
};

constexpr Field<Spindle> kSubDatum[] = {
    {"clamping_out", &Spindle::clampingOut, 2211},
    {"origin",       &Spindle::origin,      2214},
};

constexpr DeviceRow kClamps[] = {
    // key           types   own  class                nodes
    {"chuck",        1,  1,  103, DeviceClass::kChuck, {3,  9}},
    {"collet",       2,  2,  105, DeviceClass::kChuck, {5, 11}},
    {"mandrel",      3,  3,  106, DeviceClass::kChuck, {6, 12}},
    {"face_driver",  4,  4,  107, DeviceClass::kChuck, {7, 13}},
};
constexpr DeviceRow kJaw =    {"jaw",     5, 12, 104, DeviceClass::kJaw,    { 4, 10}};
constexpr DeviceRow kCenter = {"center", 13, 14, 115, DeviceClass::kCenter, {15, 15}};

constexpr std::int32_t kEdits[] = {2031, 2033, 2034, 2036, 2037, 2038, 2041, 2042, 2043, 2044};  // A to J
// clang-format on

constexpr Part<Billet> kBilletPart = {"billet", &Spindle::billet, kBillets, true, {18, 22}};
constexpr Part<FinishPart> kFinishedPart = {
    "finished_part", &Spindle::finishPart, kFinishParts, false, {27, 30}};

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

std::string_view LettersOf(std::int32_t type) {
  const DeviceType* const row = FindDeviceType(type);
  return row == nullptr ? std::string_view() : row->keeps;
}

std::int32_t EditOf(char letter) {
  return kEdits[static_cast<std::size_t>(letter - 'A')];
}

}  // namespace vanzet::define
