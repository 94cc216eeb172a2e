#pragma once

#include <map>
#include <vector>

#include "view/depth_grid.h"
#include "view/svg_path.h"

/// The parts of lines that are seen and those that are hidden.
struct SeenLine {
  std::vector<std::vector<ScreenPoint>> seen, hidden;
};
/// Looked at every `step` or so.
SeenLine split_by_sight(const std::vector<ScreenPoint>& line, const DepthGrid& grid, int slack, int step);

/// Lines of one kind, drawn in one colour. What would be drawn where lines are already is left out, so that the picture
/// stays small however many there are.
class LineArt {
 public:
  LineArt(const DepthGrid& grid, int step) : m_grid(grid), m_step(step), m_is_drawn(grid.num_samples()) {}

  void add(std::uint32_t colour, const std::vector<ScreenPoint>& line);
  void add_dot(std::uint32_t colour, const ScreenPoint& point);
  const std::map<std::uint32_t, SvgPath>& paths() const { return m_paths; }

 private:
  bool mark(const ScreenPoint& from, const ScreenPoint& to);

  const DepthGrid& m_grid;
  int m_step;
  std::vector<bool> m_is_drawn;
  std::map<std::uint32_t, SvgPath> m_paths;
};
