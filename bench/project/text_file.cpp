#include "project/text_file.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>

#include "base/files/system_fault.h"

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
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(file, error);
  if (error) {
    Fault fault = files::SystemFault("cannot be read", error, name);
    if (error == std::errc::no_such_file_or_directory) fault.kind = FaultKind::kMissing;
    return fault;
  }
  if (size > kLargestTextFile) return Fault{"is larger than 16 MiB", name};

  std::ifstream stream(file, std::ios::binary);
  std::string text(std::istreambuf_iterator<char>(stream), {});
  if (!stream.is_open() || stream.bad()) {
    return Fault{.text = "cannot be read", .file = name, .kind = FaultKind::kSystem};
  }

  const auto control = std::ranges::find_if(text, IsControl);
  if (control == text.end()) return text;
  return ControlCharacterFault(text, control - text.begin(), name);
}

}  // namespace vanzet::project
