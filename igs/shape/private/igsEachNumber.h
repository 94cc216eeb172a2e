#pragma once

#include <cstddef>
#include <functional>

/// Does a job for each number below `count`, on `threads` threads (0: as many as the machine has) where there may be
/// any. What a job throws is thrown again when the others have ended.
void igs_for_each_number(std::size_t count, int threads, const std::function<void(std::size_t)>& job);
