#include "igs/shape/private/igsSheets.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "igs/file/igsFile.h"
#include "igs/objects/igsCast.h"
#include "igs/structure/igs404.h"
#include "igs/structure/igs410_0.h"
#include "igs/support/undefined.h"

namespace {
bool is_defined(std::initializer_list<double> numbers) {
  return std::all_of(numbers.begin(), numbers.end(),
                     [](double number) { return std::isfinite(number) && !igs_is_undefined_real(number); });
}

/// A view shows the model turned by its matrix, then scaled; the drawing turns that and puts it on the sheet.
std::optional<igsPlacement> model_of_sheet(const igs404& drawing) {
  if (drawing.number_of_views() != 1) return std::nullopt;
  const igs404View& on_sheet = drawing.view(0);
  const auto* const view = igs_cast<igs410_0>(on_sheet.view().object());
  const giPoint2 origin = on_sheet.origin();
  if (view == nullptr || !(view->scale() > 0) || !is_defined({on_sheet.angle(), origin.x(), origin.y()})) {
    return std::nullopt;
  }
  const double cosine = std::cos(on_sheet.angle()), sine = std::sin(on_sheet.angle());
  const igsPlacement turned({cosine, sine, 0}, {-sine, cosine, 0}, {0, 0, 1}, {origin.x(), origin.y(), 0});
  return (turned * igsPlacement(view->scale(), {}) * igsPlacement::of(*view)).inverse();
}
}  // namespace

igsSheets::igsSheets(const igsFile& file) {
  igsFileTypeIT drawings(&file, igs404::type());
  while (++drawings != 0) {
    const auto& drawing = *static_cast<const igs404*>(drawings());
    const std::optional<igsPlacement> sheet = model_of_sheet(drawing);
    for (const igsObjectPtr& listed : drawing.entities()) m_sheets.try_emplace(listed.object(), sheet);
  }
}

const std::optional<igsPlacement>* igsSheets::sheet_of(const igsObject& entity) const {
  const auto found = m_sheets.find(&entity);
  return found == m_sheets.end() ? nullptr : &found->second;
}
