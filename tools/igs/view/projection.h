#pragma once

#include <array>
#include <cstdint>

#include "view/scene_meshes.h"

// How a scene falls on a picture. From here on numbers are whole, so that rounding, which differs from one compiler to
// the next, does not decide what is in front of what.

inline constexpr int units_per_pixel = 10;

/// A point of the picture in tenths of a pixel: x to the right, y downwards, z towards the viewer. Along z a unit may
/// be more, where the scene is very deep.
struct ScreenPoint {
  int x = 0, y = 0, z = 0;
  bool operator==(const ScreenPoint&) const = default;
};

/// A part of the picture in tenths of a pixel.
struct Frame {
  int left = 0, top = 0, width = 0, height = 0;
};

/// The direction in which a model is looked at where nobody says otherwise: one that lies in a plane along the axes
/// squarely, others from a corner.
igsVec3 usual_direction(const igsBox& box);

/// A parallel projection that fits what is shown of a scene into a frame. Z is up, where one looks along z it is y.
class Projection {
 public:
  Projection(const Scene& scene, const igsVec3& direction, const Frame& frame);

  ScreenPoint at(const igsVec3& point) const;
  /// A vector with x to the right, y up and z towards the viewer; as long as it was.
  igsVec3 turned(const igsVec3& vector) const;
  /// What lies on a surface may be hidden by so much, along z, and still be seen: meshes are not exact.
  int slack() const { return m_slack; }

 private:
  igsVec3 m_right, m_up, m_back;
  igsVec3 m_centre;  ///< turned
  double m_scale = 1, m_depth_scale = 1;
  int m_middle_x = 0, m_middle_y = 0;
  int m_slack = 0;
};
