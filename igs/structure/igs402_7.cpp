#include "igs/structure/igs402_7.h"

#include "igs/fields/igsEntityFields.h"
#include "igs/structure/igsGroup_errors.h"

igs402_7::igs402_7() { set_directory_entry_type(igsEntity402, 7); }
