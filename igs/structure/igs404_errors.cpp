#include "igs/structure/igs404_errors.h"

#include "igs/objects/igsCast.h"
#include "igs/structure/igs404.h"

int igs404NullViewPointer::fix() {
  return igs_repair<igs404>(object_at_key(), [this](igs404& drawing) { drawing.drop_null_views(view()); });
}

int igs404BadViewPointer::fix() {
  const igsObject* const bad_view = object_at_obj();
  return bad_view != nullptr && bad_view->num_logged_errors() == 0 ? 1 : 0;
}
