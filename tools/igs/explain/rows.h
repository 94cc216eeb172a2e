#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "explain/texts.h"

// The notation of the tables of texts. What an entity's classes have in common, the beginning of their names and the
// noun, is said once before their rows. In these "@" stands for the noun, and "{#0}" for "{0} (counted from 0)",
// and so on up to "{#3}".

/// What the repair of a class is and does.
struct Repair {
  RepairKind kind = RepairKind::none;
  std::string_view text;
};

// Repairs, by what they do to the model: see RepairKind.
constexpr Repair accepted(std::string_view text) { return {RepairKind::none, text}; }
constexpr Repair writing(std::string_view text) { return {RepairKind::writing, text}; }
constexpr Repair value(std::string_view text) { return {RepairKind::value, text}; }
constexpr Repair geometry(std::string_view text) { return {RepairKind::geometry, text}; }
constexpr Repair nulls(std::string_view text) { return {RepairKind::nulls, text}; }
constexpr Repair removal(std::string_view text) { return {RepairKind::removal, text}; }
constexpr Repair in_turn(std::string_view text) { return {RepairKind::reference, text}; }

/// The texts of one class, or those of several.
struct Rows {
  /// `name` without the beginning that the entity's classes have in common; a name that begins with "igs" is whole.
  Rows(Severity severity, std::string_view name, std::string_view sentence, Repair repair = {});
  Rows(std::initializer_list<Rows> parts);

  std::vector<ErrorText> texts;
};

/// The head of the rows of an entity, up to the next such head.
Rows entity(std::string_view prefix, std::string_view noun = "");

/// The row of a class whose errors are as severe as a distance is large.
Rows by_size(std::string_view name, std::string_view sentence, Repair repair = {});
/// A row with what the fault is called where the quality of product data is judged: "G-LO-LG".
Rows known_as(std::string_view quality_code, Rows row);

/// The row of a class that only says that an entity referred to has faults of its own. Like any reference to what is
/// not sound it is a warning, whatever the severity of those faults.
Rows consequence(std::string_view name, std::string_view sentence, Repair repair);

struct Repairs {
  Repair of_faults;
  Repair of_wrong = {};
  Repair of_null = {};
};

/// The three errors of a reference: NullX, WrongXType and InvalidX. They say that `thing` is missing, that it
/// `is_wrong` ("is no curve"), both of which are of severity error, and that it has faults of its own.
Rows reference(std::string_view name, std::string_view thing, std::string_view is_wrong, const Repairs& repairs);
/// The same under the names of the older classes: NullXPtr, InvalidXType and InvalidXData.
Rows pointer(std::string_view name, std::string_view thing, std::string_view is_wrong, const Repairs& repairs);
/// Without the first row: the reference may be missing.
Rows optional(Rows reference);
/// The rows twice: with "U" for "%" in the names and "u" in the sentences, then with "V" and "v".
Rows in_u_and_v(const Rows& rows);

inline constexpr Repair made_polyline =
    geometry("A sound point set is made a polyline; where other entities use it too, they keep the point set.");

// The tables, in the order in which `igs explain` lists them.
Rows section_texts();
Rows curve_texts();
Rows surface_texts();
Rows solid_texts();
Rows analytic_texts();
Rows annotation_texts();
Rows structure_texts();
Rows shape_texts();
