#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <string_view>

#include "igs/support/export.h"

/// The tolerances and options by which a host tunes the library, read at every use.
enum class coResourceType { real, integer, boolean };

/// One entry of the table: what `igs --set` and the documentation know about a key.
struct coResourceInfo {
  std::string_view name;                                            ///< of the key
  coResourceType type;                                              ///< of its values
  double default_value;                                             ///< 0 or 1 for an option that is off or on
  double minimum;                                                   ///< smallest value accepted
  double maximum;                                                   ///< largest value accepted
  std::string_view meaning;                                         ///< for people, in a few words
  double also_accepted = std::numeric_limits<double>::quiet_NaN();  ///< one more value, out of the range; NaN for none
};

namespace co_resource {
inline constexpr double any = 1.7976931348623157e308;

/// Every key, once: code, documentation and the command line read this table. Lengths are in model units, angles in
/// radians. A double needs at most 17 digits to read back, and -1 stands for the fewest that do; a field may not be
/// wider than a Parameter Data record.
inline constexpr std::array<coResourceInfo, 14> rows{{
    {"kelTolZeroLength", coResourceType::real, 1e-6, 0, any, "end points of a line at most this far apart coincide"},
    {"kelTolRadiusDiff", coResourceType::real, 1e-3, 0, any, "largest difference of an arc's radii over their sum"},
    {"kelTolCoincBreakPoints", coResourceType::real, 1e-8, 0, any, "distinct knots closer than this are too close"},
    {"kelTolCoincWeights", coResourceType::real, 1e-8, 0, any, "weights at most this far apart count as equal"},
    {"kelTolMinValue", coResourceType::real, 1e-6, 0, any,
     "weights, lengths of directions, sines of angles, and determinant deviations below this are zero"},
    {"kelTolRigidTransformDeterminant", coResourceType::real, 1e-6, 0, any,
     "largest deviation of a rotation column's length from 1"},
    {"kelTolConicIsParabola", coResourceType::real, 1e-10, 0, any, "conic invariants within this of zero are zero"},
    {"kelTolClosureCurve3d", coResourceType::real, 1e-4, 0, any, "largest gap of a closed planar curve"},
    {"kelTolCoincAngles", coResourceType::real, 1e-5, 0, any,
     "angles of a surface of revolution closer than this are equal"},
    {"kelTolCoincPoint2d", coResourceType::real, 1e-4, 0, any, "points of a witness line closer than this coincide"},
    {"kelOptRigidTransforms", coResourceType::boolean, 0, 0, 1, "repair transformation matrices by making them rigid"},
    {"kelOptDoubleFieldWidth", coResourceType::integer, 24, 1, 60, "width given to the number format of written reals"},
    {"kelOptDoubleGeometricPrecision", coResourceType::integer, 15, 1, 17, "significant digits of model-space reals",
     -1},
    {"kelOptDoubleParametricPrecision", coResourceType::integer, 15, 1, 17,
     "significant digits of parameter-space reals", -1},
}};

consteval std::size_t index_of(std::string_view name, coResourceType type) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].name == name && rows[i].type == type) return i;
  }
  throw "no such key of that type";  // ends the compilation: the function runs at compile time only
}
}  // namespace co_resource

/// A key of one value type. Built from the key's name, at compile time.
template <coResourceType Type>
struct coResourceKey {
  consteval explicit coResourceKey(std::string_view name) : index(co_resource::index_of(name, Type)) {}
  /// Position in the table of keys, 0-based.
  std::size_t index;
};

using doublecoResourceKey = coResourceKey<coResourceType::real>;
using intcoResourceKey = coResourceKey<coResourceType::integer>;
using utBoolcoResourceKey = coResourceKey<coResourceType::boolean>;

inline constexpr doublecoResourceKey kelTolZeroLength{"kelTolZeroLength"};
inline constexpr doublecoResourceKey kelTolRadiusDiff{"kelTolRadiusDiff"};
inline constexpr doublecoResourceKey kelTolCoincBreakPoints{"kelTolCoincBreakPoints"};
inline constexpr doublecoResourceKey kelTolCoincWeights{"kelTolCoincWeights"};
inline constexpr doublecoResourceKey kelTolMinValue{"kelTolMinValue"};
inline constexpr doublecoResourceKey kelTolRigidTransformDeterminant{"kelTolRigidTransformDeterminant"};
inline constexpr doublecoResourceKey kelTolConicIsParabola{"kelTolConicIsParabola"};
inline constexpr doublecoResourceKey kelTolClosureCurve3d{"kelTolClosureCurve3d"};
inline constexpr doublecoResourceKey kelTolCoincAngles{"kelTolCoincAngles"};
inline constexpr doublecoResourceKey kelTolCoincPoint2d{"kelTolCoincPoint2d"};
inline constexpr utBoolcoResourceKey kelOptRigidTransforms{"kelOptRigidTransforms"};
inline constexpr intcoResourceKey kelOptDoubleFieldWidth{"kelOptDoubleFieldWidth"};
inline constexpr intcoResourceKey kelOptDoubleGeometricPrecision{"kelOptDoubleGeometricPrecision"};
inline constexpr intcoResourceKey kelOptDoubleParametricPrecision{"kelOptDoubleParametricPrecision"};

/// The values of all keys. A new table holds the defaults.
class IGS_API coResourceTable {
 public:
  coResourceTable();

  /// The present value.
  double value(doublecoResourceKey key) const { return m_values[key.index]; }
  int value(intcoResourceKey key) const { return static_cast<int>(m_values[key.index]); }
  bool value(utBoolcoResourceKey key) const { return m_values[key.index] != 0; }

  /// Stores a value and returns 1; returns 0 and changes nothing for a NaN, for a value outside the key's range (a
  /// negative tolerance, say) and for a fraction where a whole number is wanted.
  int set_value(doublecoResourceKey key, double value) { return store(key.index, value); }
  int set_value(intcoResourceKey key, int value) { return store(key.index, value); }
  int set_value(utBoolcoResourceKey key, bool value) { return store(key.index, value ? 1 : 0); }
  /// As above by the key's name; also 0 for a name that is no key.
  int set_value(std::string_view name, double value);

  /// The keys with their types, defaults and meanings, and the present value of key `index` (0-based, in that order).
  static const auto& keys() { return co_resource::rows; }
  /// The present value of the key in row `index` of keys(), 0-based and below their number.
  double value_at(std::size_t index) const { return m_values.at(index); }

 private:
  int store(std::size_t index, double value);

  std::array<double, co_resource::rows.size()> m_values;
};

/// The process's table. Nothing in it is locked: set values while no other thread uses the library.
IGS_API coResourceTable& kel_resource_table_inquire();
