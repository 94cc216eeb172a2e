#include <algorithm>
#include <array>
#include <cmath>
#include <ostream>

#include "text/text.h"
#include "text/xml_text.h"
#include "view/line_art.h"
#include "view/painter.h"
#include "view/projection.h"
#include "view/writers.h"

// Nothing here is a style or a script: pages that allow neither show the picture as it is.

namespace {

constexpr Rgb note_colour{0x4b, 0x55, 0x63}, fault_colour{0xd9, 0x1e, 0x18};
constexpr Rgb unchanged{0xc4, 0xc9, 0xd0}, removed = fault_colour, added{0x1a, 0x93, 0x3f}, changed{0xe0, 0x7b, 0x00};
constexpr igsVec3 light{-0.35, 0.5, 0.79};  // seen as the viewer does, of length 1 nearly
constexpr int num_shades = 24;
constexpr int margin = 20 * units_per_pixel, legend_height = 30 * units_per_pixel;
constexpr int smallest_letters = 3 * units_per_pixel;

/// `part` percent of the second colour in the first.
Rgb mixed(const Rgb& a, const Rgb& b, int part) {
  const auto mix = [part](int from, int to) { return static_cast<std::uint8_t>(from + (to - from) * part / 100); };
  return {mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue)};
}

/// Dark enough for a thin line on white.
Rgb for_lines(const Rgb& colour) {
  constexpr int lightest = 150;
  const int light_of = (colour.red * 30 + colour.green * 59 + colour.blue * 11) / 100;
  return light_of > lightest ? mixed(colour, {}, 100 - 100 * lightest / light_of) : colour;
}

std::string number(double value) {
  // Rounded first: digits further behind differ from one compiler to the next.
  const std::string text = format_real(std::floor(value * 10000 + 0.5) / 10000);
  return text == "-0" ? "0" : text;
}

class SvgPicture {
 public:
  SvgPicture(std::ostream& out, const Scene& scene, const PictureOptions& options);
  void write();

 private:
  bool is_comparison() const { return !m_scene.old_title.empty(); }
  long long count(Severity severity) const { return m_scene.counts.at(static_cast<std::size_t>(severity)); }
  bool has_faults() const { return !is_comparison() && count(Severity::error) + count(Severity::warning) > 0; }
  Frame inner() const;
  void mark_faults();
  bool bounds_fault(const SceneItem& item) const;
  Rgb colour_of(std::size_t position, const Rgb& usual) const;
  std::uint32_t ink_of(std::size_t position) const;
  std::uint32_t shaded(const SceneItem& item, const std::array<int, 3>& triangle, const Rgb& colour) const;
  void add_triangles(std::size_t position, std::vector<ScreenTriangle>& all) const;
  std::vector<ScreenPoint> on_screen(const std::vector<igsVec3>& line) const;
  int step_of_lines(const DepthGrid& grid) const;
  void write_head() const;
  std::string description() const;
  std::string fault_counts() const;
  void write_patches(const std::vector<ScreenTriangle>& all, const DepthGrid& grid) const;
  void write_lines(const DepthGrid& grid) const;
  void write_layer(const LineArt& layer, const std::string& attributes) const;
  void write_texts(const DepthGrid& grid) const;
  void write_text(const igsShapeText& text, std::uint32_t colour, const DepthGrid& grid) const;
  void write_legend() const;

  std::ostream& m_out;
  const Scene& m_scene;
  const PictureOptions& m_options;
  Frame m_whole;
  Projection m_projection;
  std::vector<bool> m_is_faulty;  ///< an item each
};

SvgPicture::SvgPicture(std::ostream& out, const Scene& scene, const PictureOptions& options)
    : m_out(out),
      m_scene(scene),
      m_options(options),
      m_whole{0, 0, options.width * units_per_pixel, options.height * units_per_pixel},
      m_projection(scene, options.direction, inner()),
      m_is_faulty(scene.items.size()) {
  if (has_faults()) mark_faults();
}

/// Where the model goes.
Frame SvgPicture::inner() const {
  const int below = is_comparison() || has_faults() ? legend_height : 0;
  return {margin, margin, std::max(1, m_whole.width - 2 * margin), std::max(1, m_whole.height - 2 * margin - below)};
}

void SvgPicture::mark_faults() {
  for (const SceneFinding& finding : m_scene.findings) {
    if (finding.severity == Severity::note || finding.is_consequence) continue;
    for (const int item : finding.items) m_is_faulty[static_cast<std::size_t>(item)] = true;
  }
}

bool SvgPicture::bounds_fault(const SceneItem& item) const {
  return std::any_of(item.faces.begin(), item.faces.end(),
                     [&](int face) { return face >= 0 && m_is_faulty[static_cast<std::size_t>(face)]; });
}

Rgb SvgPicture::colour_of(std::size_t position, const Rgb& usual) const {
  const SceneItem& item = m_scene.items[position];
  if (is_comparison()) {
    constexpr std::array of_changes{unchanged, changed, added, removed};
    return of_changes.at(static_cast<std::size_t>(item.change));
  }
  const Rgb own = item.colour.value_or(usual);
  if (m_is_faulty[position]) return item.kind == ItemKind::face ? mixed(own, fault_colour, 65) : fault_colour;
  return has_faults() ? mixed(own, usual, 60) : own;  // what is red means a fault
}

/// The colour of its lines, points and texts.
std::uint32_t SvgPicture::ink_of(std::size_t position) const {
  const SceneItem& item = m_scene.items[position];
  const bool is_plain = item.kind == ItemKind::edge && item.change == SceneChange::none && !m_is_faulty[position];
  if (is_plain) return usual_line_colour.number();
  return for_lines(colour_of(position, item.kind == ItemKind::annotation ? note_colour : usual_line_colour)).number();
}

std::uint32_t SvgPicture::shaded(const SceneItem& item, const std::array<int, 3>& triangle, const Rgb& colour) const {
  if (item.kind == ItemKind::annotation) return colour.number();
  igsVec3 normal;
  for (const int corner : triangle) normal += item.normals[static_cast<std::size_t>(corner)];
  const double lit = std::abs(m_projection.turned(normal).unit().dot(light));
  const int shade = static_cast<int>(std::floor(std::clamp(lit, 0.0, 1.0) * (num_shades - 1) + 0.5));
  constexpr int darkest = 55, brightest = 112;  // percent
  const int percent = darkest + (brightest - darkest) * shade / (num_shades - 1);
  return (percent > 100 ? mixed(colour, {255, 255, 255}, 3 * (percent - 100)) : mixed({}, colour, percent)).number();
}

void SvgPicture::add_triangles(std::size_t position, std::vector<ScreenTriangle>& all) const {
  const SceneItem& item = m_scene.items[position];
  const Rgb colour = colour_of(position, item.kind == ItemKind::annotation ? note_colour : usual_face_colour);
  const std::vector<ScreenPoint> points = on_screen(item.points);
  for (const std::array<int, 3>& corners : item.triangles) {
    ScreenTriangle triangle;
    for (std::size_t i = 0; i < 3; ++i) triangle.corners.at(i) = points[static_cast<std::size_t>(corners.at(i))];
    if (triangle.area() < 0) std::swap(triangle.corners[1], triangle.corners[2]);
    if (triangle.area() == 0) continue;
    triangle.fill = shaded(item, corners, colour);
    all.push_back(triangle);
  }
}

std::vector<ScreenPoint> SvgPicture::on_screen(const std::vector<igsVec3>& line) const {
  std::vector<ScreenPoint> points;
  points.reserve(line.size());
  for (const igsVec3& point : line) points.push_back(m_projection.at(point));
  return points;
}

/// How far apart the points are at which lines are looked at.
int SvgPicture::step_of_lines(const DepthGrid& grid) const {
  constexpr double most_steps = 5'000'000;
  double length = 0;
  for (const SceneItem& item : m_scene.items) {
    for (const std::vector<igsVec3>& line : item.lines) {
      const std::vector<ScreenPoint> points = on_screen(line);
      for (std::size_t i = 1; i < points.size(); ++i) {
        length += std::max(std::abs(points[i].x - points[i - 1].x), std::abs(points[i].y - points[i - 1].y));
      }
    }
  }
  return std::max(grid.step(), static_cast<int>(std::ceil(length / most_steps)));
}

void SvgPicture::write() {
  std::vector<ScreenTriangle> all;
  for (std::size_t i = 0; i < m_scene.items.size(); ++i) {
    const SceneItem& item = m_scene.items[i];
    if (item.kind != ItemKind::point && !item.is_off) add_triangles(i, all);
  }
  const DepthGrid grid(all, m_whole);
  write_head();
  write_patches(all, grid);
  write_lines(grid);
  write_texts(grid);
  write_legend();
  m_out << "</svg>\n";
}

/// "2 errors, 1 warning"; what there is none of is left out.
std::string SvgPicture::fault_counts() const {
  const std::string errors = counted(count(Severity::error), "error", "errors");
  const std::string warnings = counted(count(Severity::warning), "warning", "warnings");
  if (count(Severity::warning) == 0) return count(Severity::error) == 0 ? "no errors" : errors;
  return count(Severity::error) == 0 ? warnings : errors + ", " + warnings;
}

std::string SvgPicture::description() const {
  std::array<long long, 5> shown{};
  for (const SceneItem& item : m_scene.items) {
    if (!item.is_off) ++shown.at(static_cast<std::size_t>(item.kind));
  }
  std::string text = counted(shown[0], "face", "faces") + ", " + counted(shown[2], "curve", "curves");
  if (is_comparison()) {
    text += "; compared with " + m_scene.old_title;
  } else {
    text += "; " + fault_counts();
  }
  for (const std::string& remark : m_scene.remarks) text += "; " + remark;
  return text;
}

void SvgPicture::write_head() const {
  m_out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << m_options.width << "\" height=\"" << m_options.height
        << "\" viewBox=\"0 0 " << m_whole.width << ' ' << m_whole.height << "\" role=\"img\">\n<title>"
        << xml_text(m_scene.title) << "</title>\n<desc>" << xml_text(description())
        << "</desc>\n<rect width=\"100%\" height=\"100%\" rx=\"" << margin / 2 << "\" fill=\"#fff\"/>\n";
}

void SvgPicture::write_patches(const std::vector<ScreenTriangle>& all, const DepthGrid& grid) const {
  // The seams between areas are painted over.
  m_out << "<g fill=\"currentColor\" stroke=\"currentColor\" stroke-width=\"8\" stroke-linejoin=\"round\">\n";
  for (const Patch& patch : painted(all, grid, m_options.most_triangles)) {
    m_out << "<path color=\"" << hex(patch.fill) << "\" d=\"" << patch.outline.data() << "\"/>\n";
  }
  m_out << "</g>\n";
}

void SvgPicture::write_lines(const DepthGrid& grid) const {
  const int step = step_of_lines(grid), slack = m_projection.slack();
  LineArt lines(grid, step), notes(grid, step), dots(grid, step), hidden(grid, step), marked(grid, step);
  for (std::size_t i = 0; i < m_scene.items.size(); ++i) {
    const SceneItem& item = m_scene.items[i];
    if (item.is_off) continue;
    const std::uint32_t ink = ink_of(i);
    const bool is_marked = m_is_faulty[i] || item.change != SceneChange::none;
    LineArt& seen = is_marked ? marked : item.kind == ItemKind::annotation ? notes : lines;
    for (const std::vector<igsVec3>& line : item.lines) {
      const SeenLine parts = split_by_sight(on_screen(line), grid, slack, step);
      for (const std::vector<ScreenPoint>& part : parts.seen) seen.add(ink, part);
      if (!is_marked && !bounds_fault(item)) continue;
      for (const std::vector<ScreenPoint>& part : parts.hidden)
        hidden.add(is_marked ? ink : fault_colour.number(), part);
    }
    if (item.kind != ItemKind::point) continue;
    for (const ScreenPoint& point : on_screen(item.points)) {
      if (is_marked || grid.is_visible(point, slack)) dots.add_dot(ink, point);
    }
  }
  m_out << "<g fill=\"none\" stroke=\"currentColor\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
  write_layer(lines, "stroke-width=\"12\"");
  write_layer(notes, "stroke-width=\"9\"");
  write_layer(dots, "stroke-width=\"40\"");
  write_layer(hidden, "stroke-width=\"10\" stroke-dasharray=\"30 40\"");
  write_layer(marked, "stroke-width=\"26\"");
  m_out << "</g>\n";
}

void SvgPicture::write_layer(const LineArt& layer, const std::string& attributes) const {
  for (const auto& [colour, path] : layer.paths()) {
    if (path.empty()) continue;
    m_out << "<path color=\"" << hex(colour) << "\" " << attributes << " d=\"" << path.data() << "\"/>\n";
  }
}

void SvgPicture::write_texts(const DepthGrid& grid) const {
  m_out << "<g font-family=\"monospace\" font-size=\"140\" xml:space=\"preserve\">\n";
  for (std::size_t i = 0; i < m_scene.items.size(); ++i) {
    const SceneItem& item = m_scene.items[i];
    if (item.is_off) continue;
    for (const igsShapeText& text : item.texts) write_text(text, ink_of(i), grid);
  }
  m_out << "</g>\n";
}

/// Letters of a height of 100 and the width that the file says, put where they stand in space.
void SvgPicture::write_text(const igsShapeText& text, std::uint32_t colour, const DepthGrid& grid) const {
  const std::array<igsVec3, 4> corners = corners_of(text);
  const ScreenPoint start = m_projection.at(corners[0]), end = m_projection.at(corners[1]),
                    over = m_projection.at(corners[3]);
  const double height = text.up.length(), width = text.along.length();
  const double area =
      std::abs(double(end.x - start.x) * (over.y - start.y) - double(end.y - start.y) * (over.x - start.x));
  const double on_screen = std::hypot(end.x - start.x, end.y - start.y);
  if (!(height > 0 && width > 0 && on_screen > 0) || area / on_screen < smallest_letters) return;
  if (!grid.is_visible(m_projection.at((corners[0] + corners[2]) * 0.5), m_projection.slack())) return;
  const double length = 100 * width / height;
  m_out << "<text fill=\"" << hex(colour) << "\" transform=\"matrix(" << number((end.x - start.x) / length) << ' '
        << number((end.y - start.y) / length) << ' ' << number((start.x - over.x) / 100.0) << ' '
        << number((start.y - over.y) / 100.0) << ' ' << start.x << ' ' << start.y << ")\" textLength=\""
        << number(length) << "\" lengthAdjust=\"spacingAndGlyphs\">" << xml_text(text.text) << "</text>\n";
}

void SvgPicture::write_legend() const {
  std::vector<std::pair<Rgb, std::string>> keys;
  if (is_comparison()) {
    keys = {{removed, "removed"}, {added, "added"}, {changed, "changed"}, {unchanged, "the same"}};
  } else if (has_faults()) {
    keys = {{fault_colour, fault_counts()}};
  }
  if (keys.empty()) return;
  const int y = m_whole.height - margin;
  int x = margin;
  m_out << "<g font-family=\"sans-serif\" font-size=\"140\">\n";
  for (const auto& [colour, text] : keys) {
    m_out << "<rect x=\"" << x << "\" y=\"" << y - 100 << "\" width=\"120\" height=\"120\" rx=\"30\" fill=\""
          << hex(colour.number()) << "\"/><text x=\"" << x + 190 << "\" y=\"" << y << "\" fill=\"#333\">" << text
          << "</text>\n";
    x += 300 + 85 * static_cast<int>(text.size());
  }
  m_out << "</g>\n";
}

}  // namespace

void write_svg(std::ostream& out, const Scene& scene, const PictureOptions& options) {
  SvgPicture(out, scene, options).write();
}
