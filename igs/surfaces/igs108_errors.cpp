#include "igs/surfaces/igs108_errors.h"

#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsCast.h"
#include "igs/objects/igsCurve.h"
#include "igs/surfaces/igs108.h"

int igs108UnexpectedBoundary::fix() {
  return igs_repair<igs108>(object_at_key(), [](igs108& plane) {
    const igsCurve* const curve = igs_cast<igsCurve>(plane.boundary().object());
    if (curve != nullptr && curve->num_logged_errors() == 0) {
      plane.directory_entry().set_form_number(1);
    } else {
      plane.set_boundary(igsObjectPtr());
    }
  });
}
