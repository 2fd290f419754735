#pragma once

#include <cstdint>

namespace vanzet::modeller {

/// Keeps this process within its limits from now on: processor time, memory, the size of what it writes; no
/// core is left behind. It ends when its parent ends, and Ctrl-C is its parent's matter.
void KeepWithin(int seconds, std::uint64_t bytes);

}  // namespace vanzet::modeller
