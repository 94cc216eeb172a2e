#pragma once

namespace igs_test {

/// True under the address sanitizer, which slows everything down and takes address space without limit.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool is_sanitized = true;
#elif defined(__has_feature)
constexpr bool is_sanitized = __has_feature(address_sanitizer);
#else
constexpr bool is_sanitized = false;
#endif

}  // namespace igs_test
