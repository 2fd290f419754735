#include "platform/private_profile.h"

#include <fstream>
#include <optional>

#include "base/ini.h"
#include "platform/files.h"

namespace vanzet::platform {
namespace {

bool GoToSection(IniReader& ini, std::string_view section) {
  IniLine line;
  while (ini.Next(line)) {
    if (line.kind == IniLine::Kind::kSection && EqualWithoutCase(line.name, section)) return true;
  }
  return false;
}

std::optional<std::string> ValueInSection(IniReader& ini, std::string_view key) {
  IniLine line;
  while (ini.Next(line) && line.kind != IniLine::Kind::kSection) {
    if (line.kind == IniLine::Kind::kEntry && EqualWithoutCase(line.name, key))
      return std::string(line.value);
  }
  return std::nullopt;
}

}  // namespace

std::string ReadProfileText(std::string_view section, std::string_view key, std::string_view defaultText,
                            std::string_view path) {
  std::optional<std::string> value;
  if (IsReadableFile(path)) {
    std::ifstream text(FileOf(path), std::ios::binary);
    IniReader ini(text);
    if (GoToSection(ini, section)) value = ValueInSection(ini, key);
  }
  return value.value_or(std::string(defaultText)).substr(0, kLongestProfileValue);
}

}  // namespace vanzet::platform
