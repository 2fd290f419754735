#include "show/missing.h"

#include <algorithm>

#include "base/translations.h"
#include "devices/kinds.h"

namespace vanzet::show {
namespace {

using scene::Equipment;
using scene::Spindle;

bool HasBillet(const Spindle& spindle) {
  return spindle.billet.type >= scene::billet_type::kCylinder &&
         spindle.billet.type <= scene::billet_type::kSolid;
}

bool LacksJaws(const Spindle& spindle) {
  return devices::IsChuck(spindle.clamp.params.type) && spindle.jaw.params.type == 0;
}

bool LacksDevice(const Spindle& spindle) {
  return !IsEmpty(spindle) && spindle.clamp.params.type == 0;
}

bool HasDatum(const Equipment& equipment) {
  return std::ranges::any_of(equipment.spindles, [](const Spindle& spindle) {
    return spindle.clampingOut != 0 || spindle.origin != 0;
  });
}

struct Rule {
  bool (*isMissing)(const Equipment&);
  const char* text;
};

// clang-format off
constexpr Rule kRules[] = {
    {[](const Equipment& e) { return e.spindles[0].clamp.params.type == 0; },
     Translatable("a clamp device of the main spindle")},
    {[](const Equipment& e) { return LacksJaws(e.spindles[0]); }, Translatable("jaws of the main spindle")},
    {[](const Equipment& e) { return !HasBillet(e.spindles[0]); }, Translatable("a billet of the main spindle")},
    {[](const Equipment& e) { return LacksDevice(e.spindles[1]); },
     Translatable("a clamp device of the sub spindle")},
    {[](const Equipment& e) { return LacksJaws(e.spindles[1]); }, Translatable("jaws of the sub spindle")},
    {[](const Equipment& e) { return !HasDatum(e); }, Translatable("the datum")},
};
// clang-format on

}  // namespace

bool IsEmpty(const Spindle& spindle) {
  return spindle.clamp.params.type == 0 && spindle.jaw.params.type == 0 && !HasBillet(spindle) &&
         spindle.finishPart.type == 0;
}

bool IsEmpty(const Equipment& equipment) {
  return std::ranges::all_of(equipment.spindles, [](const Spindle& spindle) { return IsEmpty(spindle); }) &&
         equipment.center.params.type == 0 && !equipment.usesSteadyRest && !HasDatum(equipment);
}

std::vector<const char*> MissingParts(const Equipment& equipment) {
  std::vector<const char*> missing;
  for (const Rule& rule : kRules) {
    if (rule.isMissing(equipment)) missing.push_back(rule.text);
  }
  return missing;
}

}  // namespace vanzet::show
