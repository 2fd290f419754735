#pragma once

#include <string>
#include <vector>

namespace vanzet::faults {

using Words = std::vector<std::string>;

/// A run of the program that a fault or a signal interrupts. Everything is in one folder, the current one,
/// with the project "lathe" and what `PutGivenFiles` puts there.
struct Command {
  std::string name;
  std::vector<Words> before;  ///< runs that make what it works on
  Words words;
  bool repeats = true;   ///< it works again on what it has left
  bool damaged = false;  ///< the store that it works on has a damaged record
  bool isOld = false;    ///< the store that it works on is of the first schema
};

inline void PrintTo(const Command& command, std::ostream* out) {
  *out << command.name;
}

/// One row a command of the program that reads or writes files.
const std::vector<Command>& Commands();

/// A chuck on both spindles with a billet of this diameter, as `vanzet define` reads it.
std::string FormOf(int outerDiameter);

}  // namespace vanzet::faults
