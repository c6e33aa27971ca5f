// Whether the programs are built with the address sanitizer, which needs memory of its own.
#pragma once

namespace morvane::test {

#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool under_sanitizer = true;
#elif defined(__has_feature)
inline constexpr bool under_sanitizer = __has_feature(address_sanitizer);
#else
inline constexpr bool under_sanitizer = false;
#endif

}  // namespace morvane::test
