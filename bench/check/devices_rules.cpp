#include <algorithm>
#include <cmath>
#include <utility>

#include "base/quote.h"
#include "base/translations.h"
#include "check/rules.h"
#include "check/spindle_devices.h"
#include "devices/kinds.h"
#include "devices/solid_check.h"
#include "show/simulation.h"

namespace vanzet::check {
namespace {

using scene::Device;
using scene::Spindle;
using show::Part;

constexpr double kSameValue = 1e-5;  // what texts with five or six decimals keep

bool HasBillet(const Spindle& spindle) {
  return spindle.billet.type >= scene::billet_type::kCylinder &&
         spindle.billet.type <= scene::billet_type::kSolid;
}

/// Details about the values of one device.
Collector::Details DetailsOf(const PlacedDevice& placed, Sentence sentence) {
  return {.where = placed.where, .sentence = std::move(sentence), .part = placed.part};
}

void CheckHolding(const Setup& setup, Collector& findings) {
  for (std::size_t i = 0; i < setup.equipment.spindles.size(); ++i) {
    const Spindle& spindle = setup.equipment.spindles[i];
    if (!HasBillet(spindle)) continue;
    if (spindle.clamp.params.type == 0) {
      findings.Add("EQ-101",
                   {.where = WhereOf(i),
                    .sentence = {Translatable("The spindle has a billet, but no device that holds it.")},
                    .part = Part::kClamp});
    } else if (devices::IsChuck(spindle.clamp.params.type) && spindle.jaw.params.type == 0) {
      findings.Add("EQ-101",
                   {.where = WhereOf(i),
                    .sentence = {Translatable("The spindle has a billet, but its chuck has no jaws.")},
                    .part = Part::kJaw});
    }
  }
}

void CheckOutline(const PlacedDevice& placed, Collector& findings) {
  const auto fault = devices::FindSolidFault(placed.device->params);
  if (!fault) return;
  findings.Add("EQ-102", DetailsOf(placed, {Translatable("The values of the device %1 make no outline: %2."),
                                            {NameOf(*placed.device), fault->reason}}));
}

/// The letters in which two devices differ.
std::string DifferentLetters(const DeviceParams& a, const DeviceParams& b) {
  std::string letters;
  for (const devices::Letter& each : devices::LettersOf(a.type)) {
    if (std::fabs(ValueOf(a, each.letter) - ValueOf(b, each.letter)) <= kSameValue) continue;
    letters += (letters.empty() ? "" : ", ") + std::string(1, each.letter);
  }
  return letters;
}

/// The device of a name and a kind in the catalogue, or null.
const catalogue::Entry* FindInCatalogue(const Device& device, const catalogue::Catalogue& catalogue) {
  const auto found = std::ranges::find_if(catalogue.entries(), [&](const catalogue::Entry& entry) {
    return entry.name == device.name &&
           devices::KindOf(entry.params.type) == devices::KindOf(device.params.type);
  });
  return found == catalogue.entries().end() ? nullptr : &*found;
}

void CheckCatalogue(const PlacedDevice& placed, const Setup& setup, Collector& findings) {
  const Device& device = *placed.device;
  if (devices::IsOwn(device.params.type)) return;
  const catalogue::Entry* const entry = FindInCatalogue(device, setup.shop.catalogue);
  if (entry == nullptr) return;
  if (entry->params.type != device.params.type) {
    return findings.Add("EQ-103",
                        DetailsOf(placed, {Translatable("The device %1 has another shape in the catalogue."),
                                           {NameOf(device)}}));
  }
  const std::string letters = DifferentLetters(device.params, entry->params);
  if (letters.empty()) return;
  findings.Add("EQ-103",
               DetailsOf(placed, {Translatable("The device %1 has other values in the catalogue: %2."),
                                  {NameOf(device), letters}}));
}

void CheckSimulation(const Setup& setup, Collector& findings) {
  if (setup.definition.version < project::kDefinitionVersion) {
    return findings.Add("EQ-105", {Where::kMain,
                                   {Translatable("The definition has version %1, which is older than %2."),
                                    {Number{static_cast<double>(setup.definition.version)},
                                     Number{static_cast<double>(project::kDefinitionVersion)}}}});
  }
  const std::vector<PlacedDevice> all = DevicesOf(setup.equipment);
  for (const show::SimulatedDevice& simulated : show::SimulatedDevices(setup.equipment)) {
    const auto placed = std::ranges::find(all, simulated.device, &PlacedDevice::device);
    if (placed == all.end()) continue;
    const auto state = show::SimulationStateOf(simulated, setup.definition);
    if (state == show::SimulationState::kMissing) {
      findings.Add(
          "EQ-105",
          DetailsOf(*placed, {Translatable("The definition has no simulation data of the device %1."),
                              {NameOf(*placed->device)}}));
    } else if (state == show::SimulationState::kOther) {
      findings.Add(
          "EQ-105",
          DetailsOf(*placed, {Translatable("The simulation data of the device %1 are those of other values."),
                              {NameOf(*placed->device)}}));
    }
  }
}

}  // namespace

std::vector<PlacedDevice> DevicesOf(const scene::Equipment& equipment) {
  const auto& [main, sub] = equipment.spindles;
  std::vector<PlacedDevice> all = {{&main.clamp, Where::kMain, Part::kClamp},
                                   {&main.jaw, Where::kMain, Part::kJaw},
                                   {&sub.clamp, Where::kSub, Part::kClamp},
                                   {&sub.jaw, Where::kSub, Part::kJaw},
                                   {&equipment.center, Where::kCenter, Part::kCenter}};
  std::erase_if(all, [](const PlacedDevice& each) { return each.device->params.type == 0; });
  return all;
}

std::string NameOf(const Device& device) {
  return Quoted(device.name);
}

void CheckDevices(const Setup& setup, Collector& findings) {
  CheckHolding(setup, findings);
  for (const PlacedDevice& placed : DevicesOf(setup.equipment)) {
    CheckOutline(placed, findings);
    CheckCatalogue(placed, setup, findings);
  }
  CheckSimulation(setup, findings);
}

}  // namespace vanzet::check
