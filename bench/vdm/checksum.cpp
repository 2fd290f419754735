#include "vdm/checksum.h"

#include <array>

namespace vanzet::vdm {
namespace {

constexpr std::uint64_t kReflectedPolynomial = 0xC96C5795D7870F42;

/// The effect of each byte on the sum.
constexpr std::array<std::uint64_t, 256> kSteps = [] {
  std::array<std::uint64_t, 256> steps = {};
  for (std::uint64_t byte = 0; byte < steps.size(); ++byte) {
    std::uint64_t step = byte;
    for (int bit = 0; bit < 8; ++bit) step = (step >> 1) ^ ((step & 1) != 0 ? kReflectedPolynomial : 0);
    steps[byte] = step;
  }
  return steps;
}();

}  // namespace

std::uint64_t ChecksumOf(std::string_view bytes) {
  std::uint64_t sum = ~std::uint64_t{0};
  for (const char c : bytes) sum = kSteps[(sum ^ static_cast<unsigned char>(c)) & 0xFF] ^ (sum >> 8);
  return ~sum;
}

}  // namespace vanzet::vdm
