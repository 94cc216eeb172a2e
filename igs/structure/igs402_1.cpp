#include "igs/structure/igs402_1.h"

#include "igs/fields/igsEntityFields.h"
#include "igs/structure/igsGroup_errors.h"

igs402_1::igs402_1() { set_directory_entry_type(igsEntity402, 1); }
