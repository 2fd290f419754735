#include "sheet/address.h"

#include <string_view>

namespace vanzet::sheet {
namespace {

bool IsPlain(char c) {
  constexpr std::string_view kOthers = "-._~";
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         kOthers.find(c) != std::string_view::npos;
}

}  // namespace

std::string EscapedForAddress(std::string_view name) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string escaped;
  for (const char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    escaped += IsPlain(c) ? std::string(1, c) : std::string{'%', kHex[byte / 16], kHex[byte % 16]};
  }
  return escaped;
}

std::string AddressOf(const std::filesystem::path& file) {
  std::error_code unknown;
  const auto whole = std::filesystem::weakly_canonical(std::filesystem::absolute(file, unknown), unknown);
  std::string address = "file://";
  for (const auto& part : whole.relative_path()) {
    if (!part.empty()) address += "/" + EscapedForAddress(part.string());
  }
  return address;
}

}  // namespace vanzet::sheet
