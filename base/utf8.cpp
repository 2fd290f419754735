#include "base/utf8.h"

#include <algorithm>
#include <cstdint>

namespace vanzet {
namespace {

/// The characters of one length: the bits of the first byte that mark it, and their range.
struct Form {
  std::uint8_t mask, lead;
  std::size_t length;
  std::uint32_t least, most;
};
constexpr Form kForms[] = {
    {0x80, 0x00, 1, 0, 0x7F},
    {0xE0, 0xC0, 2, 0x80, 0x7FF},
    {0xF0, 0xE0, 3, 0x800, 0xFFFF},
    {0xF8, 0xF0, 4, 0x10000, 0x10FFFF},
};

constexpr bool IsSurrogate(std::uint32_t character) {
  return character >= 0xD800 && character <= 0xDFFF;
}

}  // namespace

std::size_t Utf8Length(std::string_view text) {
  if (text.empty()) return 0;
  const auto first = static_cast<std::uint8_t>(text.front());
  const auto* const form =
      std::ranges::find_if(kForms, [=](const Form& f) { return (first & f.mask) == f.lead; });
  if (form == std::end(kForms) || text.size() < form->length) return 0;
  std::uint32_t character = first & static_cast<std::uint8_t>(~form->mask);
  for (const char c : text.substr(1, form->length - 1)) {
    const auto byte = static_cast<std::uint8_t>(c);
    if ((byte & 0xC0U) != 0x80U) return 0;
    character = character << 6U | (byte & 0x3FU);
  }
  const bool isInRange = character >= form->least && character <= form->most;
  return isInRange && !IsSurrogate(character) ? form->length : 0;
}

void AppendUtf8(std::string& text, std::uint32_t character) {
  constexpr std::uint32_t kBitsOfRest = 6;
  const auto* const form = std::ranges::find_if(kForms, [=](const Form& f) { return character <= f.most; });
  if (form == std::end(kForms) || IsSurrogate(character)) {
    text += kNoUtf8;
    return;
  }
  std::uint32_t bits = kBitsOfRest * static_cast<std::uint32_t>(form->length - 1);
  text += static_cast<char>(form->lead | character >> bits);
  while (bits > 0) {
    bits -= kBitsOfRest;
    text += static_cast<char>(0x80U | (character >> bits & 0x3FU));
  }
}

std::size_t ControlLength(std::string_view text) {
  if (text.empty()) return 0;
  const auto isC1 = [](char c) { return (static_cast<std::uint8_t>(c) & 0xE0U) == 0x80U; };
  const auto first = static_cast<std::uint8_t>(text.front());
  switch (Utf8Length(text)) {
    case 0: return isC1(text.front()) ? 1 : 0;
    case 1: return first < 0x20 || first == 0x7F ? 1 : 0;
    case 2: return first == 0xC2 && isC1(text[1]) ? 2 : 0;
    default: return 0;
  }
}

}  // namespace vanzet
