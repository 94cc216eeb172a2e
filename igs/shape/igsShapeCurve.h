#pragma once

#include <memory>
#include <vector>

#include "igs/shape/export.h"
#include "igs/shape/igsVec.h"

/// A point of a curve with the derivatives by its parameter.
struct igsCurvePoint {
  igsVec3 point;   ///< in model units; of a curve in parameter space u, v and 0
  igsVec3 first;   ///< derivative
  igsVec3 second;  ///< derivative
};

/// On which side of a break a curve or surface is looked at, where its derivatives jump, or the curve itself.
enum class igsSide { before, after };

/// The points of a curve over its parameter, which is that of IGES 5.3: radians for arcs, T for splines. A shape keeps
/// no reference to the entity that it was made of, never changes, and may be asked by several threads. In parameter
/// space x and y are u and v.
class IGS_SHAPE_API igsShapeCurve {
 public:
  virtual ~igsShapeCurve();
  igsShapeCurve(const igsShapeCurve&) = delete;
  igsShapeCurve& operator=(const igsShapeCurve&) = delete;

  /// Infinite for unbounded lines alone.
  igsRange range() const { return m_range; }
  /// Where pieces meet, ascending, the ends of a finite range included: between two of them all derivatives exist.
  const std::vector<double>& breaks() const { return m_breaks; }

  /// Looked at from `side` where `t` is a break. What lies outside the range counts as its end.
  igsCurvePoint at(double t, igsSide side = igsSide::after) const { return evaluate(m_range.clamp(t), side); }
  /// The point alone, which takes less time.
  igsVec3 point(double t, igsSide side = igsSide::after) const { return evaluate_point(m_range.clamp(t), side); }
  igsVec3 start() const { return point(m_range.low); }
  igsVec3 end() const { return point(m_range.high, igsSide::before); }
  /// True when the ends are at most `tolerance` apart, in model units.
  bool is_closed(double tolerance) const;

 protected:
  /// Smooth all over the range, unless there are `breaks` (ascending, the ends included).
  explicit igsShapeCurve(const igsRange& range, std::vector<double> breaks = {});

  /// `t` lies in the range.
  virtual igsCurvePoint evaluate(double t, igsSide side) const = 0;
  /// The point alone; for classes that have a faster way to it.
  virtual igsVec3 evaluate_point(double t, igsSide side) const;

 private:
  igsRange m_range;
  std::vector<double> m_breaks;
};

using igsShapeCurvePtr = std::shared_ptr<const igsShapeCurve>;
