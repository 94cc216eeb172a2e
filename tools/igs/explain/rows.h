#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "explain/texts.h"

// The notation of the tables of texts. What an entity's classes have in common, the beginning of their names and the
// noun, is said once before their rows. In these "@" stands for the noun, and "{#0}" for "{0} (counted from 0)".

/// The texts of one class, or those of several.
struct Rows {
  /// `name` without the beginning that the entity's classes have in common; a name that begins with "igs" is whole.
  Rows(std::string_view name, std::string_view sentence, std::string_view repair = "");
  Rows(std::initializer_list<Rows> parts);

  std::vector<ErrorText> texts;
};

/// The head of the rows of an entity, up to the next such head.
Rows entity(std::string_view prefix, std::string_view noun = "");

struct Repairs {
  std::string_view of_faults;
  std::string_view of_wrong = "";
  std::string_view of_null = "";
};

/// The three errors of a reference: NullX, WrongXType and InvalidX. They say that `thing` is missing, that it
/// `is_wrong`
/// ("is no curve"), and that it has faults of its own.
Rows reference(std::string_view name, std::string_view thing, std::string_view is_wrong, const Repairs& repairs);
/// The same under the names of the older classes: NullXPtr, InvalidXType and InvalidXData.
Rows pointer(std::string_view name, std::string_view thing, std::string_view is_wrong, const Repairs& repairs);
/// Without the first row: the reference may be missing.
Rows optional(Rows reference);
/// The rows twice: with "U" for "%" in the names and "u" in the sentences, then with "V" and "v".
Rows in_u_and_v(const Rows& rows);

inline constexpr std::string_view made_polyline =
    "A sound point set is made a polyline; where other entities use it too, they keep the point set.";

// The tables, in the order in which `igs explain` lists them.
Rows section_texts();
Rows curve_texts();
Rows surface_texts();
Rows solid_texts();
Rows analytic_texts();
Rows annotation_texts();
Rows structure_texts();
