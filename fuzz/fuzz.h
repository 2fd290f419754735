#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// What every fuzzer defines: takes any bytes, and must neither crash nor hang. Its result is 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace vanzet::fuzz {

inline std::string TextOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

}  // namespace vanzet::fuzz
