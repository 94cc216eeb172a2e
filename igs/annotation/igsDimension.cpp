#include "igs/annotation/igsDimension.h"

#include "igs/file/igsDirectoryEntry.h"

int igsDimension::form() const { return directory_entry().form_number(); }
