#include "vdm/checksum.h"

#include <gtest/gtest.h>

#include <string>

namespace vanzet::vdm {
namespace {

TEST(Checksum, IsThatOfTheStandard) {
  EXPECT_EQ(ChecksumOf("123456789"), 0x995DC9BBDF1939FA);
  EXPECT_EQ(ChecksumOf(""), 0u);
}

TEST(Checksum, ChangesWithEachBit) {
  std::string bytes(100, 'x');
  const std::uint64_t whole = ChecksumOf(bytes);
  for (std::size_t bit = 0; bit < 8 * bytes.size(); ++bit) {
    const char flip = static_cast<char>(1 << bit % 8);
    bytes[bit / 8] ^= flip;
    EXPECT_NE(ChecksumOf(bytes), whole) << bit;
    bytes[bit / 8] ^= flip;
  }
}

}  // namespace
}  // namespace vanzet::vdm
