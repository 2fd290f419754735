#include "base/files/wide_text_windows.h"
#include "platform/host_text.h"

namespace vanzet::platform {

std::string HostText(std::string_view text) {
  return files::CodePageText(files::WideText(text));
}

std::string TextFileBytes(std::string lines) {
  for (std::size_t end = 0; (end = lines.find('\n', end)) != std::string::npos; end += 2)
    lines.insert(end, 1, '\r');
  return lines;
}

}  // namespace vanzet::platform
