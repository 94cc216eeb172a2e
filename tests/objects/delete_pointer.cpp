// Must not compile: an igsObjectPtr does not own its target.
#include "igs/objects/igsObjectPtr.h"

void remove(const igsObjectPtr& pointer) { delete pointer; }
