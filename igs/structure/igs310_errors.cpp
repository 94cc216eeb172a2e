#include "igs/structure/igs310_errors.h"

#include "igs/objects/igsCast.h"
#include "igs/structure/igs310.h"

int igs310InvalidPenFlag::fix() {
  return igs_repair<igs310>(object_at_key(), [this](igs310& font) {
    igsFontCharacter* const character = font.character_at(value<0>());
    igsPenMotion* const motion = character != nullptr ? igs_place(character->motions, value<1>()) : nullptr;
    if (motion != nullptr) motion->pen_up = 0;
    return motion != nullptr ? 1 : 0;
  });
}
