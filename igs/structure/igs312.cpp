#include "igs/structure/igs312.h"

#include "igs/fields/igsEntityFields.h"
#include "igs/structure/igs312_errors.h"
#include "igs/structure/private/igsTextStyleCheck.h"

igs312::igs312() { set_directory_entry_type(igsEntity312, 0); }

namespace {
struct StyleErrors {
  using InvalidWidth = igs312InvalidCharacterWidth;
  using InvalidHeight = igs312InvalidCharacterHeight;
  using WrongFontType = igs312WrongFontType;
  using InvalidFont = igs312InvalidFont;
  using InvalidMirrorFlag = igs312InvalidMirrorFlag;
  using InvalidRotateFlag = igs312InvalidRotateFlag;
  using InvalidStartPoint = igs312InvalidStartPoint;
};
}  // namespace

void igs312::check_pd() const { igs_check_text_style<StyleErrors>(*this, *this); }
