#include "geometry/forms/wide_text.h"

#include <cstdint>

namespace geometry {
namespace {

constexpr std::uint32_t kFirstBeyondThree = 0x10000, kHighHalf = 0xD800, kLowHalf = 0xDC00, kHalfSize = 0x400;

void AppendUnit(std::string& bytes, std::uint32_t c) {
  const auto append = [&](std::uint32_t byte) { bytes += static_cast<char>(byte); };
  if (c < 0x80) return append(c);
  if (c < 0x800) {
    append(0xC0 | c >> 6);
  } else {
    append(0xE0 | c >> 12);
    append(0x80 | (c >> 6 & 0x3F));
  }
  append(0x80 | (c & 0x3F));
}

struct Decoded {
  std::uint32_t c;
  std::size_t used;
};

/// The length of a sequence by its first byte: 0 when none begins so.
std::size_t LengthOf(std::uint8_t first) {
  if (first < 0x80) return 1;
  if (first >= 0xC0 && first < 0xE0) return 2;
  if (first >= 0xE0 && first < 0xF0) return 3;
  return first >= 0xF0 && first < 0xF8 ? 4 : 0;
}

/// Requires: there is a byte.
Decoded Decode(std::string_view bytes) {
  const auto first = static_cast<std::uint8_t>(bytes.front());
  const std::size_t length = LengthOf(first);
  const Decoded single{first, 1};
  if (length <= 1 || length > bytes.size()) return single;
  std::uint32_t c = first & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    const auto next = static_cast<std::uint8_t>(bytes[i]);
    if ((next & 0xC0) != 0x80) return single;
    c = c << 6 | (next & 0x3F);
  }
  return {c, length};
}

bool IsHalf(std::uint32_t c, std::uint32_t first) {
  return c >= first && c < first + kHalfSize;
}

}  // namespace

std::string Narrow(std::wstring_view text) {
  std::string bytes;
  for (const wchar_t wide : text) {
    const auto c = static_cast<std::uint32_t>(wide);
    if (c < kFirstBeyondThree) {
      AppendUnit(bytes, c);
    } else {
      AppendUnit(bytes, kHighHalf + ((c - kFirstBeyondThree) / kHalfSize & (kHalfSize - 1)));
      AppendUnit(bytes, kLowHalf + (c - kFirstBeyondThree) % kHalfSize);
    }
  }
  return bytes;
}

std::wstring Widen(std::string_view bytes) {
  std::wstring text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    Decoded next = Decode(bytes);
    bytes.remove_prefix(next.used);
    if (IsHalf(next.c, kHighHalf) && !bytes.empty()) {
      const Decoded low = Decode(bytes);
      if (IsHalf(low.c, kLowHalf)) {
        next.c = kFirstBeyondThree + (next.c - kHighHalf) * kHalfSize + (low.c - kLowHalf);
        bytes.remove_prefix(low.used);
      }
    }
    text += static_cast<wchar_t>(next.c);
  }
  return text;
}

}  // namespace geometry
