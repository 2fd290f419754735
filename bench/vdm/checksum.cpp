#include "vdm/checksum.h"

#include <array>

namespace vanzet::vdm {
namespace {

constexpr std::uint64_t kReflectedPolynomial = 0xC96C5795D7870F42;

constexpr std::size_t kTogether = 8;

using Steps = std::array<std::uint64_t, 256>;

/// The effect of each byte on the sum: at [0] of the last one, at [7] of one that seven others follow.
constexpr std::array<Steps, kTogether> kSteps = [] {
  std::array<Steps, kTogether> steps = {};
  for (std::uint64_t byte = 0; byte < steps[0].size(); ++byte) {
    std::uint64_t step = byte;
    for (int bit = 0; bit < 8; ++bit) step = (step >> 1) ^ ((step & 1) != 0 ? kReflectedPolynomial : 0);
    steps[0][byte] = step;
  }
  for (std::size_t i = 1; i < kTogether; ++i) {
    for (std::size_t byte = 0; byte < steps[i].size(); ++byte) {
      const std::uint64_t before = steps[i - 1][byte];
      steps[i][byte] = steps[0][before & 0xFF] ^ (before >> 8);
    }
  }
  return steps;
}();

}  // namespace

std::uint64_t ChecksumOf(std::string_view bytes) {
  std::uint64_t sum = ~std::uint64_t{0};
  for (; bytes.size() >= kTogether; bytes.remove_prefix(kTogether)) {
    std::uint64_t next = 0;
    for (std::size_t i = 0; i < kTogether; ++i) {
      const auto byte = static_cast<unsigned char>(bytes[i]) ^ ((sum >> (8 * i)) & 0xFF);
      next ^= kSteps[kTogether - 1 - i][byte];
    }
    sum = next;
  }
  for (const char c : bytes) sum = kSteps[0][(sum ^ static_cast<unsigned char>(c)) & 0xFF] ^ (sum >> 8);
  return ~sum;
}

}  // namespace vanzet::vdm
