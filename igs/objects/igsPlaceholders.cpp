#include "igs/objects/igsPlaceholders.h"

#include "igs/support/utOstream.h"

namespace {
constexpr auto unknown_entity = igsEntityType(-1);
constexpr auto null_entity = igsEntityType(0);
}  // namespace

igsUnknown::igsUnknown() { set_directory_entry_type(unknown_entity, 0); }

void igsUnknown::print_pd_data(utOstream& os) const { os << "UnknownEntity" << utEndl; }

igsNull::igsNull() { set_directory_entry_type(null_entity, 0); }

void igsNull::print_pd_data(utOstream& os) const { os << "NullEntity" << utEndl; }
