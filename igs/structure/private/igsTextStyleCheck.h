#pragma once

#include "igs/curves/private/igsGeometryChecks.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/structure/igs310.h"
#include "igs/structure/igsTextStyle.h"

// Private to the library: the check of a text style, which names the faults by the error classes of its owner.

/// Tags `owner` with the faults of `style`. `index`, one int or nothing, goes to the constructors of the errors before
/// the value. `Errors` has their classes as its members.
template <class Errors, class... Index>
void igs_check_text_style(const igsObject& owner, const igsTextStyle& style, Index... index) {
  using FontTest = igsReferenceTest<igsNullIsLegal, typename Errors::WrongFontType, typename Errors::InvalidFont>;
  const int mirror = style.mirror_flag(), rotate = style.rotate_flag();
  if (!(style.width() >= 0)) owner.tag<typename Errors::InvalidWidth>(index..., style.width());
  if (!(style.height() >= 0)) owner.tag<typename Errors::InvalidHeight>(index..., style.height());
  FontTest::check(owner, style.font_code().definition(), igsExactly<igs310>(), index...);
  if (mirror < 0 || mirror > 2) owner.tag<typename Errors::InvalidMirrorFlag>(index..., mirror);
  if (!igs_is_flag(rotate)) owner.tag<typename Errors::InvalidRotateFlag>(index..., rotate);
  if (style.start().is_undefined()) owner.tag<typename Errors::InvalidStartPoint>(index...);
}
