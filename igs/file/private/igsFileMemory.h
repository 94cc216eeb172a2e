#pragma once

#include <new>

#include "igs/file/igsFile.h"

/// Result of `work`, which returns 1 or 0; 0 when memory runs out meanwhile, which is noted.
template <class Work>
int igsFile::within_memory(Work work) const {
  m_out_of_memory = false;
  try {
    return work();
  } catch (const std::bad_alloc&) {
    m_out_of_memory = true;
    return 0;
  }
}
