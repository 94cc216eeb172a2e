#include "igs/curves/igsCopiousData.h"

namespace {
/// Element `i` of the variant's list of `Element`; null where there is none, below 0 too.
template <class Element, class Points>
auto* element(Points& points, int i) {
  auto* const list = std::get_if<std::vector<Element>>(&points);
  return list != nullptr && static_cast<std::size_t>(i) < list->size() ? list->data() + i : nullptr;
}
}  // namespace

giPoint2 igsCopiousData::planar_point(int i) const {
  const giPoint2* const found = element<giPoint2>(m_points, i);
  return found != nullptr ? *found : giPoint2();
}

giPoint3 igsCopiousData::point(int i) const {
  if (const giPoint3* const found = element<giPoint3>(m_points, i)) return *found;
  const igsSextuple* const sextuple = element<igsSextuple>(m_points, i);
  return sextuple != nullptr ? sextuple->point : giPoint3();
}

giVector3 igsCopiousData::vector(int i) const {
  const igsSextuple* const found = element<igsSextuple>(m_points, i);
  return found != nullptr ? found->vector : giVector3();
}

int igsCopiousData::set_planar_point(int i, const giPoint2& point) {
  giPoint2* const found = element<giPoint2>(m_points, i);
  if (found == nullptr) return 0;
  *found = point;
  return 1;
}

int igsCopiousData::set_point(int i, const giPoint3& point) {
  igsSextuple* const sextuple = element<igsSextuple>(m_points, i);
  giPoint3* const found = sextuple != nullptr ? &sextuple->point : element<giPoint3>(m_points, i);
  if (found == nullptr) return 0;
  *found = point;
  return 1;
}

int igsCopiousData::set_vector(int i, const giVector3& vector) {
  igsSextuple* const found = element<igsSextuple>(m_points, i);
  if (found == nullptr) return 0;
  found->vector = vector;
  return 1;
}

bool igsCopiousData::is_point_undefined(int i) const {
  return layout() == planar ? planar_point(i).is_undefined() : point(i).is_undefined();
}

std::size_t igsCopiousData::size() const {
  return std::visit([](const auto& points) { return points.size(); }, m_points);
}

void igsCopiousData::clear(int layout) {
  if (layout == planar) m_points.emplace<0>();
  if (layout == spatial) m_points.emplace<1>();
  if (layout == with_vectors) m_points.emplace<2>();
}

void igsCopiousData::resize(std::size_t size) {
  std::visit([size](auto& points) { points.resize(size); }, m_points);
}
