#include "project/machine_ini.h"

#include <algorithm>
#include <optional>

#include "base/ini.h"
#include "base/numbers.h"
#include "base/text_stream.h"
#include "project/text_file.h"

namespace vanzet::project {
namespace {

constexpr std::int32_t kMostSpurs = 50;

/// The text of the file; nothing when it does not exist.
Result<std::optional<std::string>> TextOf(const std::filesystem::path& file, const std::string& name) {
  std::error_code error;
  if (!file.has_filename() || !std::filesystem::exists(file, error)) return std::optional<std::string>();
  VANZET_TRY(auto text, ReadTextFile(file, name));
  return std::optional(std::move(text));
}

/// A number of the section COMMON; a decimal comma is read as a point.
double CommonReal(const std::string& text, const char* key) {
  TextStream stream(text);
  std::string value = FindIniValue(stream, "COMMON", key).value_or("");
  std::ranges::replace(value, ',', '.');
  return RealOrZero(value);
}

}  // namespace

Result<std::int32_t> CountSpindleSpurs(const std::filesystem::path& file, const std::string& name) {
  VANZET_TRY(const auto text, TextOf(file, name));
  TextStream stream(text.value_or(""));
  const std::int32_t stated = IntegerOrZero(FindIniValue(stream, "COMMON", "NR_SPINDEL_SPUR").value_or(""));
  return stated < 1 || stated > kMostSpurs ? 1 : stated;
}

Result<std::string> ReadMachineName(const std::filesystem::path& file, const std::string& name) {
  VANZET_TRY(const auto text, TextOf(file, name));
  TextStream stream(text.value_or(""));
  return FindIniValue(stream, "COMMON", "MACHINE_NAME").value_or("");
}

Result<SteadyRest> ReadSteadyRest(const std::filesystem::path& file, const std::string& name) {
  VANZET_TRY(const auto text, TextOf(file, name));
  if (!text) return SteadyRest();
  return SteadyRest{CommonReal(*text, "LUN_MAX_DIAM"), CommonReal(*text, "LUN_ROLL_DIAM"),
                    CommonReal(*text, "LUN_X0_DIST")};
}

}  // namespace vanzet::project
