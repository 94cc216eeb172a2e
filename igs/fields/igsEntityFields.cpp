#include "igs/fields/igsEntityFields.h"

#include "igs/support/coResourceTable.h"

void igsFieldPrinter::operator()(const char* label, const igsObjectPtr& value) {
  m_os << label << " = {" << utEndl;
  utOstream inner(m_os, 1);
  if (value.object() != nullptr) {
    value->print(inner);
  } else {
    inner << "(NullPointer)" << utEndl;
  }
  m_os << '}' << utEndl;
}

igsParametricFormat::igsParametricFormat(igsOutStream& out) : m_out(out) {
  const coResourceTable& table = kel_resource_table_inquire();
  m_out.push_double_format(table.value(kelOptDoubleFieldWidth), table.value(kelOptDoubleParametricPrecision));
}
