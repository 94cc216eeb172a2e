#include "igs/curves/igs110_errors.h"

#include "igs/curves/igs110.h"
#include "igs/curves/igsConvert.h"
#include "igs/file/igsFile.h"
#include "igs/objects/igsCast.h"

int igs110CoincidentPoints::fix() {
  igs110* const line = igs_cast<igs110>(object_at_key());
  igsObject* const polyline = line != nullptr ? igsConvert::to_polyline(line) : nullptr;
  if (polyline == nullptr) return 0;
  line->file().replace_entity(line, polyline);
  return 1;
}
