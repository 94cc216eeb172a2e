#include "view/line_art.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr std::size_t shortest_run = 3;  // of steps: what is seen or hidden for less is so by chance

int num_steps(const ScreenPoint& from, const ScreenPoint& to, int step) {
  return std::max(1, std::max(std::abs(to.x - from.x), std::abs(to.y - from.y)) / step);
}

/// The point `numerator` / `divisor` of the way.
ScreenPoint part_way(const ScreenPoint& from, const ScreenPoint& to, int numerator, int divisor) {
  const auto part = [&](int a, int b) { return a + static_cast<int>(std::int64_t{b - a} * numerator / divisor); };
  return {part(from.x, to.x), part(from.y, to.y), part(from.z, to.z)};
}

/// A piece of a line, half a pixel long or so.
struct Step {
  ScreenPoint end;
  bool is_corner;  ///< of the line
  bool is_seen;
};

std::vector<Step> steps_of(const std::vector<ScreenPoint>& line, const DepthGrid& grid, int slack, int step) {
  std::vector<Step> steps;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const int count = num_steps(line[i - 1], line[i], step);
    for (int k = 0; k < count; ++k) {
      const ScreenPoint middle = part_way(line[i - 1], line[i], 2 * k + 1, 2 * count);
      steps.push_back({part_way(line[i - 1], line[i], k + 1, count), k + 1 == count, grid.is_visible(middle, slack)});
    }
  }
  return steps;
}

/// Turns what is seen, or hidden, for short into what it stands between.
void smooth(std::vector<Step>& steps, bool is_seen) {
  for (std::size_t first = 0; first < steps.size();) {
    std::size_t end = first + 1;
    while (end < steps.size() && steps[end].is_seen == steps[first].is_seen) ++end;
    const bool is_inside = first > 0 && end < steps.size();
    if (is_inside && steps[first].is_seen == is_seen && end - first < shortest_run) {
      for (std::size_t i = first; i < end; ++i) steps[i].is_seen = !is_seen;
    }
    first = end;
  }
}

}  // namespace

SeenLine split_by_sight(const std::vector<ScreenPoint>& line, const DepthGrid& grid, int slack, int step) {
  SeenLine parts;
  if (line.size() < 2) return parts;
  std::vector<Step> steps = steps_of(line, grid, slack, step);
  smooth(steps, false);
  smooth(steps, true);
  ScreenPoint start = line.front();
  for (std::size_t i = 0; i < steps.size(); ++i) {
    std::vector<std::vector<ScreenPoint>>& side = steps[i].is_seen ? parts.seen : parts.hidden;
    if (i == 0 || steps[i].is_seen != steps[i - 1].is_seen) side.push_back({start});
    const bool is_last = i + 1 == steps.size() || steps[i + 1].is_seen != steps[i].is_seen;
    if (is_last || steps[i].is_corner) side.back().push_back(steps[i].end);
    start = steps[i].end;
  }
  return parts;
}

/// Marks the samples that a line goes over. False when they all were marked.
bool LineArt::mark(const ScreenPoint& from, const ScreenPoint& to) {
  const int count = num_steps(from, to, m_step);
  bool is_new = false;
  for (int i = 0; i <= count; ++i) {
    const std::size_t sample = m_grid.sample_at(part_way(from, to, i, count));
    if (!m_is_drawn[sample]) is_new = m_is_drawn[sample] = true;
  }
  return is_new;
}

void LineArt::add(std::uint32_t colour, const std::vector<ScreenPoint>& line) {
  SvgPath& path = m_paths[colour];
  bool is_down = false;
  ScreenPoint last = line.front();
  for (std::size_t i = 1; i < line.size(); ++i) {
    const ScreenPoint& point = line[i];
    // Points closer than a pixel are of no use but at the end.
    const int distance = std::max(std::abs(point.x - last.x), std::abs(point.y - last.y));
    if (distance < units_per_pixel && i + 1 < line.size()) continue;
    if (mark(last, point)) {
      if (!is_down) path.move(last);
      path.line(point);
      is_down = true;
    } else {
      is_down = false;
    }
    last = point;
  }
}

void LineArt::add_dot(std::uint32_t colour, const ScreenPoint& point) {
  if (!mark(point, point)) return;
  SvgPath& path = m_paths[colour];
  path.move(point);
  path.line(point);
}
