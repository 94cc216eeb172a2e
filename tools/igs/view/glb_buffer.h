#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "igs/shape/igsVec.h"
#include "text/json_writer.h"

/// The numbers of a binary glTF: one buffer, with a view for every kind of number and an accessor for every list.
class GlbBuffer {
 public:
  /// The number of the accessor of points, each multiplied by `scale`; nothing where they are too large for floats.
  std::optional<int> add_points(const std::vector<igsVec3>& points, double scale);
  /// Of normals, which are of length 1.
  int add_normals(const std::vector<igsVec3>& normals);
  /// Of indices of a list of so many points.
  int add_indices(const std::vector<std::uint32_t>& indices, std::size_t num_points);

  /// The members "accessors", "bufferViews" and "buffers" of an open JSON object; none where nothing was added.
  void write_json(JsonWriter& json) const;
  /// In bytes, a multiple of 4.
  std::size_t size() const;
  void write(std::ostream& out) const;

 private:
  enum View : std::size_t { vectors, wide_indices, narrow_indices, num_views };
  using FloatVector = std::array<float, 3>;
  struct Accessor {
    View view;
    std::size_t offset;  ///< in bytes, in the view
    std::size_t count;
    std::optional<std::array<FloatVector, 2>> range;  ///< of points: the smallest and the largest coordinates
  };

  int add(Accessor accessor);
  void append(const FloatVector& vector);
  void write_accessor(JsonWriter& json, const Accessor& accessor) const;
  void write_views(JsonWriter& json) const;
  /// Where the view stands among those that are not empty.
  int number_of(View view) const;

  std::array<std::string, num_views> m_bytes;
  std::vector<Accessor> m_accessors;
};

/// Appends the lowest `bytes` bytes of a number, the lowest first, as all numbers of a binary glTF stand.
void append_number(std::string& data, std::uint32_t number, int bytes);
