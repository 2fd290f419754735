#include "project/machine_ini.h"

#include <sstream>

#include "base/ini.h"
#include "base/numbers.h"
#include "project/text_file.h"

namespace vanzet::project {
namespace {

constexpr std::int32_t kMostSpurs = 50;

}  // namespace

Result<std::int32_t> CountSpindleSpurs(const std::filesystem::path& file, const std::string& name) {
  std::error_code error;
  if (!file.has_filename() || !std::filesystem::exists(file, error)) return 1;
  VANZET_TRY(const auto text, ReadTextFile(file, name));
  std::istringstream stream(text);
  const std::int32_t stated = IntegerOrZero(FindIniValue(stream, "COMMON", "NR_SPINDEL_SPUR").value_or(""));
  return stated < 1 || stated > kMostSpurs ? 1 : stated;
}

}  // namespace vanzet::project
