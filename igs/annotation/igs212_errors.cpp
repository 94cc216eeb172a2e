#include "igs/annotation/igs212_errors.h"

#include "igs/annotation/igs212.h"
#include "igs/objects/igsCast.h"

namespace {
/// Hands string `i` of the note to `change` and returns 1; 0 when there is no such string.
template <class Change>
int repair_string(igsObject* note, int i, Change change) {
  igs212* const entity = igs_cast<igs212>(note);
  igsNoteString* const string = entity != nullptr ? entity->string_at(i) : nullptr;
  if (string == nullptr) return 0;
  change(*string);
  return 1;
}
}  // namespace

int igs212BadCharacterCount::fix() {
  return repair_string(object_at_key(), value<0>(), [](igsNoteString& string) {
    string.set_number_of_characters(static_cast<int>(string.text().size()));
  });
}

int igs212InvalidMirrorFlag::fix() {
  return repair_string(object_at_key(), value<0>(), [](igsNoteString& string) { string.set_mirror_flag(0); });
}

int igs212InvalidRotateFlag::fix() {
  return repair_string(object_at_key(), value<0>(), [](igsNoteString& string) { string.set_rotate_flag(0); });
}
