#include "igs/annotation/igs212_errors.h"

int igs212BadCharacterCount::fix() {
  return igs_repair<igs212>(object_at_key(), [this](igs212& note) {
    igsNoteString* const string = note.string_at(value<0>());
    if (string == nullptr) return 0;
    string->set_number_of_characters(static_cast<int>(string->text().size()));
    return 1;
  });
}
