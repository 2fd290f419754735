#pragma once

namespace vanzet::modeller {

/// Whether this build has the address sanitizer. It takes terabytes of addresses for its own bookkeeping and
/// more calls of the system than the program itself, so some limits cannot hold.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kHasAddressSanitizer = true;
#elif defined(__has_feature)
inline constexpr bool kHasAddressSanitizer = __has_feature(address_sanitizer);
#else
inline constexpr bool kHasAddressSanitizer = false;
#endif

}  // namespace vanzet::modeller
