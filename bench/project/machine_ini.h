#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "base/result.h"

namespace vanzet::project {

/// The number of spindle spurs of a machine by its post-processor ini, 1 to 50, as the module counts them: 1
/// where the file does not exist or has no number in this range. Fails when the file is not a regular one,
/// not a text file, or too large; docs/formats/machine-ini.md.
Result<std::int32_t> CountSpindleSpurs(const std::filesystem::path& file, const std::string& name);

/// The name of the machine; empty when the file does not exist or has none. Fails as above.
Result<std::string> ReadMachineName(const std::filesystem::path& file, const std::string& name);

/// The sizes of a machine's steady rest, in millimetres; 0: not given.
struct SteadyRest {
  double largestDiameter = 0;  ///< that it can hold
  double rollDiameter = 0;
  double position = 0;  ///< along the axis, from the machine's datum
};

/// Reads them from the post-processor ini. A file that does not exist gives none. Fails as above.
Result<SteadyRest> ReadSteadyRest(const std::filesystem::path& file, const std::string& name);

}  // namespace vanzet::project
