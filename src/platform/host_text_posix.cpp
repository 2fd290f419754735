#include "platform/host_text.h"

namespace vanzet::platform {

std::string HostText(std::string_view text) {
  return std::string(text);
}

std::string TextFileBytes(std::string lines) {
  return lines;
}

}  // namespace vanzet::platform
