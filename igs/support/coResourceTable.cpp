#include "igs/support/coResourceTable.h"

#include <cmath>

coResourceTable::coResourceTable() : m_values{} {
  for (std::size_t i = 0; i < m_values.size(); ++i) m_values[i] = co_resource::rows[i].default_value;
}

int coResourceTable::store(std::size_t index, double value) {
  const coResourceInfo& row = co_resource::rows[index];
  if (!(value >= row.minimum && value <= row.maximum) && value != row.also_accepted) return 0;
  if (row.type != coResourceType::real && value != std::floor(value)) return 0;
  m_values[index] = value;
  return 1;
}

int coResourceTable::set_value(std::string_view name, double value) {
  for (std::size_t i = 0; i < co_resource::rows.size(); ++i) {
    if (co_resource::rows[i].name == name) return store(i, value);
  }
  return 0;
}

coResourceTable& kel_resource_table_inquire() {
  static coResourceTable table;
  return table;
}
