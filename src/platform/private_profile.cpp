#include "platform/private_profile.h"

#include <fstream>
#include <optional>

#include "base/ini.h"
#include "platform/files.h"

namespace vanzet::platform {

std::string ReadProfileText(std::string_view section, std::string_view key, std::string_view defaultText,
                            std::string_view path) {
  std::optional<std::string> value;
  if (IsReadableFile(path)) {
    std::ifstream text(FileOf(path), std::ios::binary);
    value = FindIniValue(text, section, key);
  }
  return value.value_or(std::string(defaultText)).substr(0, kLongestProfileValue);
}

}  // namespace vanzet::platform
