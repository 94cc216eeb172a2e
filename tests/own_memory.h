#pragma once

#include <cstddef>
#include <utility>

// For programs that replace operator new: what is in use, and which allocation fails.
namespace igs_test {

inline std::size_t blocks_in_use = 0, bytes_in_use = 0, peak = 0;

struct Plan {
  long left = 0;          ///< allocations until one fails; 0 when none does
  bool for_good = false;  ///< those after it fail, too
  bool reached = false;

  /// True when the allocation that was to fail was reached.
  bool stop() { return std::exchange(*this, Plan()).reached; }
  bool refuses() {
    if (left > 0 && --left == 0) return reached = true;
    return reached && for_good;
  }
};
inline Plan plan;

}  // namespace igs_test
