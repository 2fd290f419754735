#pragma once

#include <string>
#include <vector>

#include "catalogue/shop.h"
#include "cli/arguments.h"

/// Letters and figures of devices as words of the command line.
namespace vanzet::cli {

/// A letter or a figure with its text: "A=80", "max_speed=4500".
struct Assignment {
  std::string key, text;

  bool IsLetter() const { return key.size() == 1; }
};

/// Throws `WrongUsage` in the name of an operand or option.
Assignment AssignmentOf(const std::string& name, const std::string& word);

TakeWord StoreLetter(std::vector<Assignment>& assignments);

/// A shop that is changed, and the unit of the lengths that people type and read.
struct Edit {
  catalogue::Shop& shop;
  LengthUnit unit;

  /// "Chuck 160: chuck  A 80  B 90".
  std::string LineOf(const catalogue::Entry& entry) const;
};

/// Sets letters of a device. Fails for a letter that the kind does not have.
Result<void> SetLetters(DeviceParams& params, const std::vector<Assignment>& letters, LengthUnit unit);

/// Puts a device with these letters into the catalogue. Fails when the result is not a device.
Result<void> PutDevice(const Edit& edit, const std::string& name, DeviceParams params,
                       const std::vector<Assignment>& letters);

Result<void> SetFigures(const Edit& edit, const std::string& name, const std::vector<Assignment>& figures);

}  // namespace vanzet::cli
