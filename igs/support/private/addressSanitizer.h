#pragma once

/// Under the address sanitizer, what is otherwise kept in pools is allocated piece by piece, so that its misuse is
/// found.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool under_address_sanitizer = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
inline constexpr bool under_address_sanitizer = true;
#else
inline constexpr bool under_address_sanitizer = false;
#endif
#else
inline constexpr bool under_address_sanitizer = false;
#endif
