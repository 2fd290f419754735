#include "project/text_file.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <system_error>

namespace vanzet::project {
namespace {

bool IsControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte < 0x20 && c != '\n' && c != '\r' && c != '\t') || byte == 0x7F;
}

}  // namespace

Result<std::string> ReadTextFile(const std::filesystem::path& file, const std::string& name) {
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(file, error);
  if (error) return Fault{"cannot be read: " + error.message(), name};
  if (size > kLargestTextFile) return Fault{"is larger than 16 MiB", name};

  std::ifstream stream(file, std::ios::binary);
  std::string text(std::istreambuf_iterator<char>(stream), {});
  if (!stream.is_open() || stream.bad()) return Fault{"cannot be read", name};

  const auto control = std::ranges::find_if(text, IsControl);
  if (control == text.end()) return text;
  return Fault{"is no text: there is a control character in this line", name,
               1 + static_cast<int>(std::count(text.begin(), control, '\n'))};
}

}  // namespace vanzet::project
