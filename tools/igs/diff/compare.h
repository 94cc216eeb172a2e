#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "diff/fields.h"
#include "diff/figures.h"
#include "diff/match.h"
#include "diff/reals.h"

/// One difference between an old and a new file.
struct Difference {
  enum class Kind { start, global, left_out, geometry, changed, removed, added };

  Kind kind;
  const igsObject* old_entity = nullptr;  ///< of a changed or removed entity, or a face that measures something else
  const igsObject* new_entity = nullptr;  ///< of a changed or added entity, or such a face
  /// The field of a changed entity, the Global parameter, the figure, "line 3" of the Start section, or "type 999 form
  /// 0" for the number of entities of a kind that reading left out.
  std::string field = {};
  std::optional<FieldValue> old_value = {};  ///< nothing where the old file has no such field or line
  std::optional<FieldValue> new_value = {};
};

/// How much differs between two files.
struct DifferenceCounts {
  long long changed = 0, removed = 0, added = 0;  ///< entities
  long long global = 0;                           ///< Global parameters
  long long start = 0;                            ///< Start lines
  long long left_out = 0;                         ///< kinds of entities that reading left out
  long long geometry = 0;                         ///< figures of the files and of faces
  long long close_reals = 0;                      ///< reals that count as the same although the doubles differ

  bool is_same() const { return changed + removed + added + global + start + left_out + geometry == 0; }
};

/// Compares two files as they are in memory. Both must outlive it and stay as they are.
class Comparison {
 public:
  using Visitor = std::function<void(const Difference&)>;

  Comparison(const igsFile& old_file, const igsFile& new_file, const RealRule& reals);
  /// What the files measure is compared, too, with this tolerance (FigureComparison).
  void compare_figures(double tolerance) { m_figures.emplace(m_old_file, m_new_file, tolerance); }

  /// Hands over every difference: sections first, then the entities of the old file in their order, then those that
  /// were added in theirs. Returns how many there are.
  DifferenceCounts visit(const Visitor& visitor) const;
  /// Number of entities that reading left out of both files: of these nothing but their kinds could be compared.
  long long num_not_compared() const;
  const RealRule& reals() const { return m_reals; }
  const EntityMatch& match() const { return m_match; }
  bool has_figures() const { return m_figures.has_value(); }

 private:
  bool same(const FieldValue& old_value, const FieldValue& new_value, DifferenceCounts& counts) const;
  void compare_lists(Difference::Kind kind, const std::vector<Field>& old_list, const std::vector<Field>& new_list,
                     const Visitor& visitor, DifferenceCounts& counts, long long& count) const;
  bool same_fields(const igsObject& old_entity, const igsObject& new_entity, DifferenceCounts& counts) const;
  void compare_entities(const igsObject& old_entity, const igsObject& new_entity, const Visitor& visitor,
                        DifferenceCounts& counts) const;
  void compare_sections(const Visitor& visitor, DifferenceCounts& counts) const;
  void visit_figures(const igsObject* old_entity, const igsObject* new_entity, const Visitor& visitor,
                     DifferenceCounts& counts) const;

  const igsFile& m_old_file;
  const igsFile& m_new_file;
  RealRule m_reals;
  EntityMatch m_match;
  std::optional<FigureComparison> m_figures;
};
