#include "scene/equipment.h"

#include <algorithm>

#include "base/numbers.h"
#include "devices/kinds.h"

namespace vanzet::scene {
namespace {

using project::Definition;

/// Reads the numbers of an item one after the other; a missing one has the default.
class Fields {
 public:
  explicit Fields(std::string_view text) : rest_(text) {}

  std::int32_t Integer(std::int32_t otherwise = 0) { return Take(IntegerPrefix(rest_), otherwise); }
  double Real(double otherwise = 0) { return Take(RealPrefix(rest_), otherwise); }

 private:
  template <class Number>
  Number Take(const std::optional<Prefix<Number>>& number, Number otherwise) {
    if (!number) return otherwise;
    rest_.remove_prefix(number->used);
    return number->value;
  }

  std::string_view rest_;
};

std::string ItemOf(const std::vector<std::string>& items, std::size_t item) {
  return item < items.size() ? items[item] : "";
}

/// The name of a figure; "0" is the empty name.
std::string FigureOf(const std::vector<std::string>& items, std::size_t item) {
  const std::string name = ItemOf(items, item);
  return name == "0" ? "" : name;
}

Device DeviceOf(const std::vector<std::string>& items) {
  return {ItemOf(items, 0), ReadDeviceParams(ItemOf(items, 1))};
}

void ReadCylinder(Fields& fields, Billet& billet) {
  for (double Billet::*const value : {&Billet::outerDiameter, &Billet::partLength, &Billet::frontAllowance,
                                      &Billet::rearAllowance, &Billet::innerDiameter}) {
    billet.*value = fields.Real();
  }
  billet.isShown = fields.Real() == 0;
  billet.barLength = fields.Real();
  billet.clampDiameter = billet.outerDiameter;
}

Billet BilletOf(const std::vector<std::string>& items) {
  using namespace billet_type;
  Billet billet;
  const std::string text = ItemOf(items, 1);
  Fields fields(text);
  billet.type = fields.Integer();
  if (billet.type == kCylinder) ReadCylinder(fields, billet);
  if (billet.type != kFigures && billet.type != kSolid) return billet;
  fields.Real();
  billet.partLength = fields.Real();
  if (billet.type == kFigures) {
    billet.outside = FigureOf(items, 2);
    billet.inside = FigureOf(items, 3);
  } else {
    billet.clampDiameter = fields.Real();
    billet.angle = fields.Real();
    billet.solid = ItemOf(items, 0);
  }
  return billet;
}

FinishPart FinishPartOf(const std::vector<std::string>& items) {
  using namespace finish_part_type;
  FinishPart part;
  part.type = IntegerOrZero(ItemOf(items, 0));
  if (part.type == kFigures) {
    part.outside = FigureOf(items, 1);
    part.inside = FigureOf(items, 2);
  }
  if (part.type == kSolid) part.solid = ItemOf(items, 1);
  return part;
}

void ReadOptions(const std::string& text, Spindle& spindle) {
  constexpr std::int32_t kFewest = 1, kMost = 64;
  Fields fields(text);
  spindle.clampsInside = fields.Integer() != 0;
  spindle.jaws = std::clamp(fields.Integer(3), kFewest, kMost);
}

void ReadDatum(const std::string& text, Equipment& equipment) {
  auto& [main, sub] = equipment.spindles;
  Fields fields(text);
  fields.Integer();
  fields.Real();
  main.clampingOut = fields.Real();
  sub.clampingOut = fields.Real(main.clampingOut);
  main.origin = fields.Real();
  sub.origin = fields.Real(main.origin);
}

}  // namespace

std::array<double, 3> ThreeReals(std::string_view text) {
  Fields fields(text);
  std::array<double, 3> reals{};
  for (double& real : reals) real = fields.Real();
  return reals;
}

DeviceParams ReadDeviceParams(std::string_view valueLine) {
  DeviceParams params;
  Fields fields(valueLine);
  params.type = devices::NewerCode(fields.Integer());
  for (double DeviceParams::*const real : kDeviceReals) params.*real = fields.Real();
  return params;
}

Equipment ReadEquipment(const Definition& definition) {
  constexpr std::size_t kDatum = 3, kSteadyRest = 4, kCenter = 10, kFirstFinishPart = 16;
  Equipment equipment;
  for (std::size_t i = 0; i < equipment.spindles.size(); ++i) {
    Spindle& spindle = equipment.spindles[i];
    const std::size_t operation = i + 1;
    const auto& clamp = definition.Items(operation, 1);
    spindle.clamp = DeviceOf(clamp);
    spindle.jaw = DeviceOf(definition.Items(operation, 2));
    ReadOptions(ItemOf(clamp, 2), spindle);
    spindle.billet = BilletOf(definition.Items(operation, 3));
    spindle.finishPart = FinishPartOf(definition.Items(kFirstFinishPart + i, 1));
  }
  ReadDatum(ItemOf(definition.Items(kDatum, 1), 0), equipment);
  equipment.usesSteadyRest = IntegerOrZero(ItemOf(definition.Items(kSteadyRest, 1), 0)) != 0;
  equipment.center = DeviceOf(definition.Items(kCenter, 1));
  Spindle& sub = equipment.spindles[1];
  equipment.isCenterInSub = devices::IsCenter(sub.clamp.params.type);
  if (equipment.isCenterInSub) equipment.center = std::exchange(sub.clamp, {});
  return equipment;
}

}  // namespace vanzet::scene
