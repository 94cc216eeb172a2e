#include "igs/solids/igs504.h"

#include "igs/fields/igsEntityFields.h"
#include "igs/solids/igs504_errors.h"

bool igsEdge::valid() const {
  return m_curve && m_first_list && m_second_list && m_first_offset >= 0 && m_second_offset >= 0;
}

void igsEdge::print_pd_data(utOstream& os) const {
  igsFieldPrinter printer(os);
  fields(*this, printer);
}

igs504::igs504() { set_directory_entry_type(igsEntity504, 1); }

void igs504::check_pd() const {
  if (m_edges.empty()) tag<igs504NoEdges>();
}
