#include "project/machine_ini.h"

#include <sstream>

#include "base/ini.h"
#include "base/numbers.h"
#include "project/text_file.h"

namespace vanzet::project {
namespace {

constexpr std::int32_t kMostSpurs = 50;

/// The first NR_SPINDEL_SPUR of the first section COMMON, -1 where there is none.
std::int32_t StatedSpurs(const std::string& text) {
  std::istringstream stream(text);
  IniReader reader(stream);
  IniLine line;
  bool inCommon = false;
  while (reader.Next(line)) {
    if (line.kind == IniLine::Kind::kSection) {
      if (inCommon) break;
      inCommon = EqualWithoutCase(line.name, "COMMON");
    } else if (inCommon && line.kind == IniLine::Kind::kEntry &&
               EqualWithoutCase(line.name, "NR_SPINDEL_SPUR")) {
      return IntegerOrZero(line.value);
    }
  }
  return -1;
}

}  // namespace

Result<std::int32_t> CountSpindleSpurs(const std::filesystem::path& file, const std::string& name) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error)) return 1;
  const auto text = ReadTextFile(file, name);
  if (!text) return text.fault();
  const std::int32_t stated = StatedSpurs(*text);
  return stated < 1 || stated > kMostSpurs ? 1 : stated;
}

}  // namespace vanzet::project
