#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "igs/igs.h"

/// What people are told about one error class. `sentence` says what is wrong: {0}, {1}, ... stand for the values of the
/// error in the order of its constructor, {de} for the DE number, and {0:section} for the name of the file section with
/// that number. `repair` says what the repair does; it is empty for an error that is not repaired.
struct ErrorText {
  std::string_view name;
  std::string_view sentence;
  std::string_view repair;
};

// The rows, one for every error class of the library, by family. A new family is one function here, one source file and
// one line in explain_table.cpp.
std::span<const ErrorText> file_errors();
std::span<const ErrorText> section_errors();
std::span<const ErrorText> directory_errors();
std::span<const ErrorText> geometry_errors();
std::span<const ErrorText> spline_errors();
std::span<const ErrorText> composite_errors();
std::span<const ErrorText> swept_errors();
std::span<const ErrorText> surface_errors();
std::span<const ErrorText> solid_errors();
std::span<const ErrorText> analytic_errors();
std::span<const ErrorText> annotation_errors();
std::span<const ErrorText> dimension_errors();
std::span<const ErrorText> note_errors();
std::span<const ErrorText> font_errors();
std::span<const ErrorText> structure_entity_errors();

/// All rows, family by family.
std::vector<const ErrorText*> all_error_texts();
/// Null for a name that no error class has.
const ErrorText* find_error_text(std::string_view name);
/// The sentence with the error's values; for a class without a row its bare values.
std::string sentence_of(const igsError& error);
/// The sentence without any values.
std::string general_sentence(const ErrorText& text);
