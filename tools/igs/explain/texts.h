#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "igs/igs.h"

/// What people are told about one error class. `sentence` says what is wrong: {0}, {1}, ... stand for the values of the
/// error in the order of its constructor, {de} for the DE number, and {0:section} for the name of the file section with
/// that number. `repair` says what the repair does; it is empty for an error that is not repaired.
struct ErrorText {
  std::string name;
  std::string sentence;
  std::string repair;
};

/// The texts of all error classes of the library, family by family. The tables stand beside; rows.h has their notation.
const std::vector<ErrorText>& all_error_texts();
/// Null for a name that no error class has.
const ErrorText* find_error_text(std::string_view name);
/// The sentence with the error's values; for a class without a row its bare values.
std::string sentence_of(const igsError& error);
/// The sentence without any values.
std::string general_sentence(const ErrorText& text);
