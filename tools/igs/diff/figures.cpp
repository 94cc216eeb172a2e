#include "diff/figures.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t of_old = 0, of_new = 1;

std::optional<double> count_of(std::size_t count) { return static_cast<double>(count); }

}  // namespace

FigureComparison::FigureComparison(const igsFile& old_file, const igsFile& new_file, double tolerance)
    : m_tolerance(tolerance), m_figures{igs_measure(old_file), igs_measure(new_file)} {
  for (const std::size_t side : {of_old, of_new}) {
    for (const igsFaceFigures& face : m_figures.at(side).by_face) m_faces.at(side)[face.de].push_back(&face);
  }
}

/// `scale`: of what the tolerance is a part.
void FigureComparison::compare(const std::string& name, std::optional<double> old_value,
                               std::optional<double> new_value, double scale, const Visitor& visitor) const {
  for (std::optional<double>* value : {&old_value, &new_value}) {
    if (*value && !std::isfinite(**value)) value->reset();
  }
  const bool has_both = old_value && new_value;
  const bool is_same = has_both ? std::abs(*old_value - *new_value) <= m_tolerance * scale : !old_value && !new_value;
  if (!is_same) visitor(name, old_value, new_value);
}

void FigureComparison::compare_sizes(const std::string& name, std::optional<double> old_value,
                                     std::optional<double> new_value, const Visitor& visitor) const {
  const double larger = std::max(std::abs(old_value.value_or(0)), std::abs(new_value.value_or(0)));
  compare(name, old_value, new_value, larger, visitor);
}

void FigureComparison::compare_boxes(const igsBox& old_box, const igsBox& new_box, const Visitor& visitor) const {
  const double larger = std::max(old_box.diagonal(), new_box.diagonal());
  const auto compare_points = [&](const std::string& name, const igsVec3& old_point, const igsVec3& new_point) {
    compare(name + ".x", old_point.x, new_point.x, larger, visitor);
    compare(name + ".y", old_point.y, new_point.y, larger, visitor);
    compare(name + ".z", old_point.z, new_point.z, larger, visitor);
  };
  compare_points("box.low", old_box.low, new_box.low);
  compare_points("box.high", old_box.high, new_box.high);
}

void FigureComparison::visit_files(const Visitor& visitor) const {
  const igsShapeFigures& old_file = m_figures[of_old];
  const igsShapeFigures& new_file = m_figures[of_new];
  compare("faces", old_file.faces, new_file.faces, 0, visitor);
  compare("edges", old_file.edges, new_file.edges, 0, visitor);
  compare("free_edges", old_file.free_edges, new_file.free_edges, 0, visitor);
  compare("unmeshed", count_of(old_file.unmeshed.size()), count_of(new_file.unmeshed.size()), 0, visitor);
  compare_sizes("area", old_file.area, new_file.area, visitor);
  compare_sizes("volume", old_file.volume, new_file.volume, visitor);
  compare_sizes("edge_length", old_file.edge_length, new_file.edge_length, visitor);
  compare_boxes(old_file.box, new_file.box, visitor);
}

const FigureComparison::Faces& FigureComparison::faces_of(std::size_t side, int de) const {
  static const Faces none;
  const auto found = m_faces.at(side).find(de);
  return found != m_faces.at(side).end() ? found->second : none;
}

void FigureComparison::visit_faces(int old_de, int new_de, const Visitor& visitor) const {
  const Faces& old_faces = faces_of(of_old, old_de);
  const Faces& new_faces = faces_of(of_new, new_de);
  compare("faces", count_of(old_faces.size()), count_of(new_faces.size()), 0, visitor);
  for (std::size_t i = 0; i < std::min(old_faces.size(), new_faces.size()); ++i) {
    compare_sizes("area", old_faces[i]->area, new_faces[i]->area, visitor);
    compare_boxes(old_faces[i]->box, new_faces[i]->box, visitor);
  }
}
