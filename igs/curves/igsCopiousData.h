#pragma once

#include <cstddef>
#include <variant>
#include <vector>

#include "igs/support/export.h"
#include "igs/support/giPoint.h"
#include "igs/support/giVector.h"
#include "igs/support/undefined.h"

/// One element of copious data of dimensionality 3.
struct igsSextuple {
  /// In model units; the vector has the sender's meaning.
  giPoint3 point;
  giVector3 vector;

  template <class E, class V>
  static void fields(E& sextuple, V& visit) {
    visit("Point", sextuple.point);
    visit("Vector", sextuple.vector);
  }
};

/// The data of a Copious Data entity (IGES 5.3, type 106) that is a list of points: planar points at a common z level
/// (dimensionality 1), points in space (2), or points in space with a vector each whose meaning is the sender's (3).
/// Model units; indices are 0-based.
class IGS_API igsCopiousData {
 public:
  /// The dimensionalities and layouts.
  static constexpr int planar = 1;
  static constexpr int spatial = 2;
  static constexpr int with_vectors = 3;

  /// As it stands in the file, which may be no dimensionality at all.
  int dimensionality() const { return m_dimensionality; }
  /// What the points really are: 1 to 3, the same as dimensionality() unless that is invalid.
  int layout() const { return static_cast<int>(m_points.index()) + 1; }
  /// Of whatever layout.
  int number_of_points() const { return static_cast<int>(size()); }

  /// Of planar points; -DBL_MAX until it is set.
  double z_level() const { return m_z_level; }
  void set_z_level(double z_level) { m_z_level = z_level; }

  /// Element `i`: planar points in layout 1, points in layouts 2 and 3, vectors in layout 3; undefined otherwise.
  giPoint2 planar_point(int i) const;
  giPoint3 point(int i) const;
  /// As above.
  giVector3 vector(int i) const;
  /// Return 1; return 0 and change nothing where there is no such element.
  int set_planar_point(int i, const giPoint2& point);
  int set_point(int i, const giPoint3& point);
  /// As above.
  int set_vector(int i, const giVector3& vector);

  /// True when point `i`, in whatever layout, is undefined or does not exist.
  bool is_point_undefined(int i) const;

 protected:
  igsCopiousData() = default;

  std::size_t size() const;
  /// Drops all points and starts anew in `layout`; does nothing for a layout outside 1 to 3.
  void clear(int layout);
  /// Cuts the list, or lengthens it by undefined points.
  void resize(std::size_t size);

  /// Reads, writes and prints the fields; `bad_count` is an igsBadCount. While reading, the layout is the one set with
  /// clear() unless the dimensionality read is a valid one.
  template <class E, class V, class BadCount>
  static void copious_fields(E& data, V& visit, BadCount bad_count) {
    visit("Dimensionality", data.m_dimensionality);
    data.follow_dimensionality();
    const int count = visit.count("NumberOfPoints", data.size());
    if (data.layout() == planar) visit("ZLevel", data.m_z_level);
    std::visit([&](auto& points) { visit.list("Points", count, points, bad_count); }, data.m_points);
  }

  int m_dimensionality = planar;
  double m_z_level = igs_undefined_real;

 private:
  void follow_dimensionality() {
    if (m_dimensionality != layout()) clear(m_dimensionality);
  }
  void follow_dimensionality() const {}

  /// By layout.
  std::variant<std::vector<giPoint2>, std::vector<giPoint3>, std::vector<igsSextuple>> m_points;
};
