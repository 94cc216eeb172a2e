#include "igs/errors/private/igsRepairRun.h"

igsObject* igsRepairRun::shared_conversion(int de) const {
  const auto found = m_shared.find(de);
  return found != m_shared.end() ? found->second.object() : nullptr;
}

void igsRepairRun::converted(int de, igsObject* conversion, std::size_t bytes) {
  if (m_copied + bytes <= room_for_copies) {
    m_copied += bytes;
  } else {
    m_shared[de] = igsObjectPtr(conversion);
  }
}
