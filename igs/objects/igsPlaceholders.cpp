#include "igs/objects/igsPlaceholders.h"

#include "igs/objects/igsKeptParts.h"
#include "igs/output/igsOutStream.h"
#include "igs/support/utOstream.h"

namespace {
constexpr auto unknown_entity = igsEntityType(-1);
constexpr auto null_entity = igsEntityType(0);
}  // namespace

igsUnknown::igsUnknown() { set_directory_entry_type(unknown_entity, 0); }

void igsUnknown::write_pd_data(igsOutStream& out) {
  for (const std::string_view field : m_fields.fields()) out.write_field(field);
}

void igsUnknown::print_pd_data(utOstream& os) const {
  os << "UnknownEntity" << utEndl;
  for (const std::string_view field : m_fields.fields()) os << "Field = " << field << utEndl;
}

void igsUnknown::visit_fields(igsFieldVisitor& visitor) const { igs_visit_texts(m_fields, visitor); }

igsNull::igsNull() { set_directory_entry_type(null_entity, 0); }

void igsNull::print_pd_data(utOstream& os) const { os << "NullEntity" << utEndl; }
