#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "explain/severity.h"
#include "igs/igs.h"

/// What a repair does to the model.
enum class RepairKind {
  none,      ///< it is not repaired
  writing,   ///< bookkeeping that writing anew cures without touching content
  value,     ///< sets a flag, a form, a count, a text or another value that no geometry hangs on
  geometry,  ///< changes coordinates, knots, weights, parameters, angles or matrices, or replaces a curve by another
  nulls,     ///< takes missing ones out of a list
  removal,   ///< leaves something out: a member of a list, a sub-curve, a boundary, an entity
  reference  ///< nothing of its own: it is gone when the entity referred to is repaired
};

/// What people are told about one error class. `sentence` says what is wrong: {0}, {1}, ... stand for the values of the
/// error in the order of its constructor, {de} for the DE number, and {0:section} for what a number means: see
/// ways_to_say in texts.cpp. `repair` says what the repair does; it is empty for an error about which nothing is to be
/// said. Where a repair does one thing or another, `repair_kind` is the one that goes further. `is_consequence`: the
/// class only says that an entity referred to has faults of its own. `is_by_size`: how severe an error is follows from
/// its first two values, a distance and the tolerance of that; `severity` is that of a distance above the tolerance.
/// `quality_code`: what the fault is called where the quality of product data is judged; empty where it has no name.
struct ErrorText {
  std::string name;
  std::string sentence;
  std::string repair;
  Severity severity;
  RepairKind repair_kind;
  bool is_consequence;
  bool is_by_size = false;
  std::string quality_code = {};
};

/// The texts of all error classes of the library, family by family. The tables stand beside; rows.h has their notation.
const std::vector<ErrorText>& all_error_texts();
/// Null for a name that no error class has.
const ErrorText* find_error_text(std::string_view name);
/// The sentence with the error's values; for a class without a row its bare values.
std::string sentence_of(const igsError& error);
/// The severity of its class, but for the values that matter more: an error where the units flag is missing; by size a
/// note up to the tolerance, and an error above ten times as much. An error for a class without a row.
Severity severity_of(const igsError& error);
/// The severity of a class for people: "warning".
std::string severity_words(const ErrorText& text);
/// Where the page of the class is published, which scripts/docs makes.
std::string page_url(std::string_view class_name);
/// Whether the error leaves the size of the model in doubt: its units are missing, unknown or contradictory.
bool is_about_units(const igsError& error);
/// Whether a repair that loses nothing can mend errors of the class.
bool is_repairable(const ErrorText& text);
/// The sentence without any values.
std::string general_sentence(const ErrorText& text);
