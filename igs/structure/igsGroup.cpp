#include "igs/structure/igsGroup.h"

#include "igs/fields/igsEntityFields.h"
#include "igs/structure/igsGroup_errors.h"

igsGroup::igsGroup() { set_directory_entry_type(igsEntity402, 15); }

void igsGroup::check_pd() const {
  restart_index();
  if (entities().empty()) tag<igsGroupNoEntities>();
  for (int i = 0; const igsObjectPtr& member : entities()) {
    if (member.object() == nullptr) tag<igsGroupNullEntity>(i);
    ++i;
  }
}
