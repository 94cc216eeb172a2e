#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

/// A hash with one more value in it.
inline std::uint64_t mixed(std::uint64_t hash, std::uint64_t value) {
  hash = std::rotl(hash, 5) ^ value;
  hash *= 0x9e3779b97f4a7c15U;
  hash ^= hash >> 32U;
  hash *= 0xd6e8feb86659fd93U;
  return hash ^ hash >> 29U;
}

/// A real as a value to mix in.
inline std::uint64_t bits_of(double real) {
  std::uint64_t bits = 0;
  static_assert(sizeof bits == sizeof real);
  std::memcpy(&bits, &real, sizeof bits);
  return bits;
}
