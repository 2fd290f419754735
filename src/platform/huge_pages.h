#pragma once

#include <cstddef>

namespace vanzet::platform {

/// Less memory than this is left alone.
inline constexpr std::size_t kHugePagesFrom = std::size_t{4} << 20;

/// Asks the system to back memory that is about to be filled with huge pages, so that it is handed out in a
/// few pieces instead of thousands. Where the system has none, and for less than `kHugePagesFrom`, nothing
/// happens.
///
/// Units    bytes
/// Errors   none: it is a hint
void PreferHugePages(void* memory, std::size_t bytes);

}  // namespace vanzet::platform
