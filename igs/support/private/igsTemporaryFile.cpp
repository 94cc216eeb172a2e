#include "igs/support/private/igsTemporaryFile.h"

#include <cstdio>

void igsTemporaryName::remove() {
  if (!m_name.empty() && std::remove(m_name.c_str()) == 0) m_name.clear();
}

// The file is there already and empty; to cut it off anew would make some systems write it to the disk when closed.
igsTemporaryFile::igsTemporaryFile(const utString& directory)
    : m_name(directory), m_file(m_name(), std::ios::in | std::ios::out | std::ios::binary) {
  m_name.remove();
}
