#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "catalogue/shop.h"

/// Three-way merging of catalogues, device by device.
namespace vanzet::catalogue {

/// The outcome of merging for a device.
enum class Outcome {
  kAdded,     ///< only the other catalogue has it
  kChanged,   ///< the other catalogue changed it
  kRemoved,   ///< the other catalogue removed it
  kSame,      ///< both have it with the same values
  kKept,      ///< this catalogue alone changed or removed it
  kRefused,   ///< the other catalogue's device is not one that a catalogue takes
  kConflict,  ///< both changed it, or, without a base, it has other values here
};

/// "added", "changed" and so on.
const char* WordOf(Outcome outcome);

/// All outcomes, in the order in which they are counted.
std::span<const Outcome> Outcomes();

struct Merged {
  std::string name;
  Outcome outcome;
  std::string reason = {};  ///< of a refusal or conflict, or the changes
};

/// The side that is taken where both changed a device.
enum class Prefer { kNeither, kMine, kOther };

/// Brings the changes from `base` to `other` into `mine`. Without a base, devices that `mine` does not have
/// are added and no device is removed. A device that is taken brings its maker data; those of a device that
/// stays are taken where `mine` has none for it.
/// Returns the outcome of each device of `other`, in its order, then of those that it removed.
/// `mine` has to be thrown away when there are conflicts. The lengths of the reasons are those of the unit.
/// Errors   those of `Catalogue::Put`
Result<std::vector<Merged>> Merge(Shop& mine, const Shop& other, const Shop* base,
                                  Prefer prefer = Prefer::kNeither,
                                  LengthUnit unit = LengthUnit::kMillimetre);

/// The number of devices with that outcome.
std::size_t CountOf(const std::vector<Merged>& all, Outcome outcome);

}  // namespace vanzet::catalogue
