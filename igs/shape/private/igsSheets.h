#pragma once

#include <optional>
#include <unordered_map>

#include "igs/shape/igsPlacement.h"

class igsFile;
class igsObject;

/// What the drawings (igs404) of a file list as theirs: it stands in the coordinates of a sheet.
class igsSheets {
 public:
  explicit igsSheets(const igsFile& file);

  /// Of a drawing, the first one, that lists the entity; null where none does. It holds what leads from the sheet into
  /// the space of the model, where the drawing has one view, and that can be undone.
  const std::optional<igsPlacement>* sheet_of(const igsObject& entity) const;

 private:
  std::unordered_map<const igsObject*, std::optional<igsPlacement>> m_sheets;
};
