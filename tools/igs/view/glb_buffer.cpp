#include "view/glb_buffer.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <ostream>

namespace {

constexpr int bytes_of_float = 4;
constexpr std::size_t bytes_of_vector = 12;

// Codes of the format.
constexpr int vertex_target = 34962, index_target = 34963;
constexpr int float_type = 5126, wide_type = 5125, narrow_type = 5123;

long long json_size(std::size_t size) { return static_cast<long long>(size); }

bool is_float(const igsVec3& vector) {
  constexpr double largest = std::numeric_limits<float>::max();
  return std::abs(vector.x) <= largest && std::abs(vector.y) <= largest && std::abs(vector.z) <= largest;
}

std::array<float, 3> to_floats(const igsVec3& vector) {
  return {static_cast<float>(vector.x), static_cast<float>(vector.y), static_cast<float>(vector.z)};
}

}  // namespace

void append_number(std::string& data, std::uint32_t number, int bytes) {
  for (int i = 0; i < bytes; ++i) data += static_cast<char>(static_cast<unsigned char>(number >> (8 * i)));
}

int GlbBuffer::add(Accessor accessor) {
  m_accessors.push_back(accessor);
  return static_cast<int>(m_accessors.size() - 1);
}

void GlbBuffer::append(const FloatVector& vector) {
  static_assert(sizeof(float) == bytes_of_float && std::numeric_limits<float>::is_iec559);
  for (const float coordinate : vector) {
    std::uint32_t bits = 0;
    std::memcpy(&bits, &coordinate, sizeof bits);
    append_number(m_bytes[vectors], bits, bytes_of_float);
  }
}

std::optional<int> GlbBuffer::add_points(const std::vector<igsVec3>& points, double scale) {
  const auto is_fit = [scale](const igsVec3& point) { return is_float(point * scale); };
  if (points.empty() || !std::all_of(points.begin(), points.end(), is_fit)) return std::nullopt;
  const std::size_t offset = m_bytes[vectors].size();
  FloatVector low = to_floats(points.front() * scale), high = low;
  for (const igsVec3& point : points) {
    const FloatVector scaled = to_floats(point * scale);
    for (std::size_t i = 0; i < scaled.size(); ++i) {
      low[i] = std::min(low[i], scaled[i]);
      high[i] = std::max(high[i], scaled[i]);
    }
    append(scaled);
  }
  return add({vectors, offset, points.size(), {{low, high}}});
}

int GlbBuffer::add_normals(const std::vector<igsVec3>& normals) {
  const std::size_t offset = m_bytes[vectors].size();
  for (const igsVec3& normal : normals) append(to_floats(normal));
  return add({vectors, offset, normals.size(), {}});
}

int GlbBuffer::add_indices(const std::vector<std::uint32_t>& indices, std::size_t num_points) {
  // The largest number of a type is not allowed as an index.
  const View view = num_points <= std::numeric_limits<std::uint16_t>::max() ? narrow_indices : wide_indices;
  const std::size_t offset = m_bytes[view].size();
  for (const std::uint32_t index : indices) append_number(m_bytes[view], index, view == narrow_indices ? 2 : 4);
  return add({view, offset, indices.size(), {}});
}

std::size_t GlbBuffer::size() const {
  std::size_t size = 0;
  for (const std::string& bytes : m_bytes) size += bytes.size();
  return (size + 3) / 4 * 4;
}

void GlbBuffer::write(std::ostream& out) const {
  std::size_t size = 0;
  for (const std::string& bytes : m_bytes) {
    out << bytes;
    size += bytes.size();
  }
  out << std::string(this->size() - size, '\0');
}

int GlbBuffer::number_of(View view) const {
  const auto is_used = [](const std::string& bytes) { return !bytes.empty(); };
  return static_cast<int>(std::count_if(m_bytes.begin(), m_bytes.begin() + view, is_used));
}

void GlbBuffer::write_accessor(JsonWriter& json, const Accessor& accessor) const {
  const bool is_vector = accessor.view == vectors;
  json.begin_object();
  json.member("bufferView", number_of(accessor.view));
  json.member("byteOffset", json_size(accessor.offset));
  json.member("componentType", is_vector ? float_type : accessor.view == wide_indices ? wide_type : narrow_type);
  json.member("count", json_size(accessor.count));
  json.member("type", is_vector ? "VEC3" : "SCALAR");
  for (std::size_t end = 0; accessor.range && end < accessor.range->size(); ++end) {
    json.key(end == 0 ? "min" : "max");
    json.begin_array();
    for (const float coordinate : (*accessor.range)[end]) json.value(static_cast<double>(coordinate));
    json.end_array();
  }
  json.end_object();
}

void GlbBuffer::write_views(JsonWriter& json) const {
  std::size_t offset = 0;
  for (std::size_t view = 0; view < num_views; ++view) {
    const std::size_t size = m_bytes[view].size();
    if (size == 0) continue;
    json.begin_object();
    json.member("buffer", 0);
    json.member("byteOffset", json_size(offset));
    json.member("byteLength", json_size(size));
    if (view == vectors) json.member("byteStride", json_size(bytes_of_vector));
    json.member("target", view == vectors ? vertex_target : index_target);
    json.end_object();
    offset += size;
  }
}

void GlbBuffer::write_json(JsonWriter& json) const {
  if (m_accessors.empty()) return;
  json.list("accessors", m_accessors, [&](const Accessor& accessor) { write_accessor(json, accessor); });
  json.key("bufferViews");
  json.begin_array();
  write_views(json);
  json.end_array();
  json.key("buffers");
  json.begin_array();
  json.begin_object();
  json.member("byteLength", json_size(size()));
  json.end_object();
  json.end_array();
}
