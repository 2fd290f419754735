#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/result.h"
#include "modeller/exchange.h"

/// Packages in which makers deliver a device: a ZIP file with its properties and its model.
///
/// Source   docs/formats/device-package.md
namespace vanzet::modeller {

/// A property of a device as its package has it.
struct PackageProperty {
  std::vector<std::string> names;  ///< at least one: the symbol, and the codes by which it is known as well
  std::string value;               ///< a number or a text
  std::string unit;                ///< empty where it has none
};

/// A device of a package: a file with properties.
struct PackageItem {
  std::string file;                ///< its name in the package
  std::string maker, order, name;  ///< empty where the file does not have them
  std::vector<PackageProperty> properties;
};

struct PackageModel {
  std::string file;  ///< its name in the package
  std::string step;  ///< its content
};

struct DevicePackage {
  std::vector<PackageItem> items;    ///< at least one
  std::vector<PackageModel> models;  ///< in the order of their names
};

/// Reads a package by the exchange program. Models are not looked into.
///
/// Errors   a fault with the name of the package: not a ZIP file, broken, beyond its limits, encrypted, an
///          entry that leads out of it, without properties; a file with properties that cannot be read, with
///          its name and line
Result<DevicePackage> ReadDevicePackage(const std::filesystem::path& file, const Exchange& exchange);

/// Fails with the name of the package and of the model where the model is not a body that can be read.
Result<void> CheckModel(const PackageModel& model, const std::filesystem::path& package,
                        const Exchange& exchange);

}  // namespace vanzet::modeller
