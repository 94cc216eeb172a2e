#include "igs/curves/igsPlanarPoints.h"

#include <utility>

int igsPlanarPoints::set_size(int count) {
  if (count < 0) return 0;
  m_dimensionality = planar;
  clear(planar);
  resize(static_cast<std::size_t>(count));
  return 1;
}

void igsPlanarPoints::append_point(const giPoint2& point) {
  resize(size() + 1);
  set_planar_point(number_of_points() - 1, point);
}

void igsPlanarPoints::remove_last_point() {
  if (size() > 0) resize(size() - 1);
}

bool igsPlanarPoints::has_common_z() const {
  for (int i = 1; layout() != planar && i < number_of_points(); ++i) {
    if (!is_point_undefined(i) && point(i).z() != point(0).z()) return false;
  }
  return true;
}

void igsPlanarPoints::flatten(bool keeps_space) {
  m_told_dimensionality = m_dimensionality;
  if (keeps_space && !has_common_z()) return;
  m_dimensionality = planar;
  if (layout() == planar) return;
  const igsCopiousData spatial_data = std::move(static_cast<igsCopiousData&>(*this));
  set_size(spatial_data.number_of_points());
  for (int i = 0; i < number_of_points(); ++i) {
    const giPoint3 point = spatial_data.point(i);
    if (i == 0) m_z_level = point.z();
    set_planar_point(i, giPoint2(point.x(), point.y()));
  }
}
