#include "project/text_file.h"

#include <algorithm>
#include <string_view>

#include "base/files/regular_file.h"

namespace vanzet::project {
namespace {

bool IsControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte < 0x20 && c != '\n' && c != '\r' && c != '\t') || byte == 0x7F;
}

Fault ControlCharacterFault(std::string_view text, std::ptrdiff_t at, const std::string& name) {
  const std::string_view before = text.substr(0, static_cast<std::size_t>(at));
  const std::size_t lineStart = before.rfind('\n') + 1;
  const std::string_view line = text.substr(lineStart, text.find_first_of("\r\n", before.size()) - lineStart);
  return {.text = "not a text file: the line has a control character",
          .file = name,
          .line = 1 + static_cast<int>(std::ranges::count(before, '\n')),
          .column = static_cast<int>(before.size() - lineStart) + 1,
          .source = std::string(line)};
}

}  // namespace

Result<std::string> ReadTextFile(const std::filesystem::path& file, const std::string& name) {
  const auto text = files::ReadWholeFile(file);
  if (!text) {
    Fault fault = text.fault();
    fault.file = name;
    return fault;
  }
  const auto control = std::ranges::find_if(*text, IsControl);
  if (control == text->end()) return text;
  return ControlCharacterFault(*text, control - text->begin(), name);
}

}  // namespace vanzet::project
