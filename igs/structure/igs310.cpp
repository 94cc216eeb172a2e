#include "igs/structure/igs310.h"

#include "igs/curves/private/igsGeometryChecks.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/structure/igs310_errors.h"

igs310::igs310() { set_directory_entry_type(igsEntity310, 0); }

void igs310::check_pd() const {
  igsReferenceErrors<"igs310", "SupersededFont">::TestUnlessNull::check(*this, m_superseded_font.definition(),
                                                                        igsExactly<igs310>());
  if (m_scale < 1) tag<igs310InvalidScale>(m_scale);
  if (m_characters.empty()) tag<igs310NoCharacters>();
  for (int i = 0; const igsFontCharacter& character : m_characters) check_character(i++, character);
}

void igs310::check_character(int i, const igsFontCharacter& character) const {
  if (character.code < 0 || character.code > 127) tag<igs310InvalidCharacterCode>(i, character.code);
  for (int j = 0; const igsPenMotion& motion : character.motions) {
    if (!igs_is_flag(motion.pen_up)) tag<igs310InvalidPenFlag>(i, j, motion.pen_up);
    ++j;
  }
}
