#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "igs/igs.h"
#include "igs/shape/igsShapeFigures.h"

/// What two files measure, compared.
class FigureComparison {
 public:
  /// A figure that differs; nothing where a file has no such figure, or it is no finite number.
  using Visitor =
      std::function<void(const std::string& name, std::optional<double> old_value, std::optional<double> new_value)>;

  /// `tolerance`: figures that differ by no more than this part of the larger one are the same, coordinates of boxes
  /// by no more than this part of the larger diagonal.
  FigureComparison(const igsFile& old_file, const igsFile& new_file, double tolerance);

  void visit_files(const Visitor& visitor) const;
  /// The faces that two entities make, by their DE numbers: one for each place where they are shown.
  void visit_faces(int old_de, int new_de, const Visitor& visitor) const;

 private:
  using Faces = std::vector<const igsFaceFigures*>;

  const Faces& faces_of(std::size_t side, int de) const;
  void compare(const std::string& name, std::optional<double> old_value, std::optional<double> new_value, double scale,
               const Visitor& visitor) const;
  void compare_sizes(const std::string& name, std::optional<double> old_value, std::optional<double> new_value,
                     const Visitor& visitor) const;
  void compare_boxes(const igsBox& old_box, const igsBox& new_box, const Visitor& visitor) const;

  double m_tolerance;
  std::array<igsShapeFigures, 2> m_figures;
  std::array<std::unordered_map<int, Faces>, 2> m_faces;  ///< by DE number
};
