#pragma once

#include <cstdint>
#include <string_view>

namespace vanzet::vdm {

/// The CRC of 64 bits with the polynomial of ECMA-182, bits reflected, start and final value all ones: that
/// of "123456789" is 0x995DC9BBDF1939FA. It finds every change of up to 64 bits next to each other.
std::uint64_t ChecksumOf(std::string_view bytes);

}  // namespace vanzet::vdm
