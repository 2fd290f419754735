#pragma once

#include <string>
#include <vector>

#include "catalogue/shop.h"

/// The differences between devices, and between catalogues.
namespace vanzet::catalogue {

/// A device of one of two catalogues or of both, and what is different.
struct Difference {
  std::string name;
  const Entry* before = nullptr;     ///< null: only the second catalogue has it
  const Entry* now = nullptr;        ///< null: only the first catalogue has it
  std::vector<std::string> changes;  ///< "A 80 -> 105", "kind chuck -> collet", "max_speed 4000 -> 4500"
};

/// The changes from the values of one device to those of another, without their names.
std::vector<std::string> ChangesOf(const DeviceParams& before, const DeviceParams& now);

/// The same of their figures; null: a device without any.
std::vector<std::string> FigureChangesOf(const MakerJson* before, const MakerJson* now);

/// The changes from a device to another one, with their figures.
std::vector<std::string> DeviceChanges(const Shop& shop, const std::string& before, const Shop& other,
                                       const std::string& now);

/// The differences by name: those of the first catalogue in its order, then what only the second one has.
std::vector<Difference> DifferencesOf(const Shop& before, const Shop& now);

}  // namespace vanzet::catalogue
