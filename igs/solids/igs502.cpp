#include "igs/solids/igs502.h"

#include "igs/fields/igsEntityFields.h"
#include "igs/solids/igs502_errors.h"

igs502::igs502() { set_directory_entry_type(igsEntity502, 1); }

void igs502::check_pd() const {
  if (m_vertices.empty()) tag<igs502NoVertices>();
  for (int i = 0; const giPoint3& vertex : m_vertices) {
    if (vertex.is_undefined()) tag<igs502InvalidVertex>(i);
    ++i;
  }
}
