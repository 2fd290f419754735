#include "platform/private_profile.h"

#include <sstream>

#include "base/files/regular_file.h"
#include "base/ini.h"
#include "platform/files.h"
#include "platform/host_extensions.h"

namespace vanzet::platform {

std::string ReadProfileText(std::string_view section, std::string_view key, std::string_view defaultText,
                            std::string_view path) {
  const auto text = files::ReadWholeFile(FileOf(path));
  if (!text && text.fault().kind == FaultKind::kSystem) ReportFault(text.fault());
  std::istringstream stream(text ? *text : std::string());
  const auto value = FindIniValue(stream, section, key);
  return value.value_or(std::string(defaultText)).substr(0, kLongestProfileValue);
}

}  // namespace vanzet::platform
