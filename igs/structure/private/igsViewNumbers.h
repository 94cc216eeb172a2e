#pragma once

#include <vector>

class igsObject;
class igs410_0;

/// What is wrong with the number of one view.
struct igsViewNumberFault {
  enum Kind { none_defined, invalid, repeated };

  const igs410_0* view;
  Kind kind;
  int replacement;  ///< a number that no view has, and no other fault replaces by
};

/// Adds the entity if it is a view.
void igs_note_view(const igsObject& entity, std::vector<const igs410_0*>& views);
/// The faults of the numbers of all views of a file, which are given by DE number.
std::vector<igsViewNumberFault> igs_view_number_faults(const std::vector<const igs410_0*>& views);
/// Tags the views with them. To be called after the check of all entities, which drops earlier errors.
void igs_tag_view_numbers(const std::vector<igsViewNumberFault>& faults);
