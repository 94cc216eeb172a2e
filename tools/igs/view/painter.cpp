#include "view/painter.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace {

constexpr int same_depth = units_per_pixel / 2;  // closer than that, no order is needed
constexpr std::size_t most_orders = 5'000'000;   // beyond that nothing is put behind anything

struct Side {
  ScreenPoint from, to;
};

bool is_before(const ScreenPoint& a, const ScreenPoint& b) { return a.y != b.y ? a.y < b.y : a.x < b.x; }
bool is_same_place(const ScreenPoint& a, const ScreenPoint& b) { return a.x == b.x && a.y == b.y; }

/// Which triangles are seen, and which of them have to be painted before which.
class PaintOrder {
 public:
  PaintOrder(const std::vector<ScreenTriangle>& triangles, const DepthGrid& grid, std::size_t most);
  /// Positions of triangles that are painted together, next; empty at the end.
  std::vector<int> next();

 private:
  void find_seen(std::size_t most);
  void find_orders();
  void release(int triangle);
  void force();

  const std::vector<ScreenTriangle>& m_triangles;
  const DepthGrid& m_grid;
  std::vector<int> m_seen;                            ///< the furthest first
  std::vector<bool> m_is_seen, m_is_done;             ///< a triangle each
  std::vector<std::pair<int, int>> m_orders;          ///< below and above, ascending
  std::vector<int> m_num_below;                       ///< not yet painted, of each triangle
  std::map<std::uint32_t, std::vector<int>> m_ready;  ///< by colour
  std::uint32_t m_last_fill = 0;
  std::size_t m_next_forced = 0;
};

PaintOrder::PaintOrder(const std::vector<ScreenTriangle>& triangles, const DepthGrid& grid, std::size_t most)
    : m_triangles(triangles),
      m_grid(grid),
      m_is_seen(triangles.size()),
      m_is_done(triangles.size()),
      m_num_below(triangles.size()) {
  find_seen(most);
  find_orders();
  for (const int triangle : m_seen) {
    if (m_num_below[static_cast<std::size_t>(triangle)] == 0) release(triangle);
  }
}

void PaintOrder::find_seen(std::size_t most) {
  std::vector<int> sizes(m_triangles.size());
  for (std::size_t sample = 0; sample < m_grid.num_samples(); ++sample) {
    if (m_grid.top(sample) >= 0) ++sizes[static_cast<std::size_t>(m_grid.top(sample))];
  }
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    if (sizes[i] > 0) m_seen.push_back(static_cast<int>(i));
  }
  if (m_seen.size() > most) {
    std::stable_sort(m_seen.begin(), m_seen.end(), [&](int a, int b) {
      return sizes[static_cast<std::size_t>(a)] > sizes[static_cast<std::size_t>(b)];
    });
    m_seen.resize(most);
  }
  std::sort(m_seen.begin(), m_seen.end(), [&](int a, int b) {
    const std::int64_t depth_a = m_triangles[static_cast<std::size_t>(a)].depth();
    const std::int64_t depth_b = m_triangles[static_cast<std::size_t>(b)].depth();
    return depth_a != depth_b ? depth_a < depth_b : a < b;
  });
  for (const int triangle : m_seen) m_is_seen[static_cast<std::size_t>(triangle)] = true;
}

void PaintOrder::find_orders() {
  std::vector<int> last_below(m_triangles.size(), -1);
  for (const int below : m_seen) {
    m_grid.for_each_sample(m_triangles[static_cast<std::size_t>(below)], [&](std::size_t sample, int z) {
      const int top = m_grid.top(sample);
      const auto above = static_cast<std::size_t>(top);
      if (top == below || m_grid.depth(sample) - z <= same_depth || !m_is_seen[above]) return;
      if (std::exchange(last_below[above], below) == below || m_orders.size() >= most_orders) return;
      m_orders.emplace_back(below, top);
      ++m_num_below[above];
    });
  }
  std::sort(m_orders.begin(), m_orders.end());
}

void PaintOrder::release(int triangle) {
  m_is_done[static_cast<std::size_t>(triangle)] = true;
  m_ready[m_triangles[static_cast<std::size_t>(triangle)].fill].push_back(triangle);
}

/// Triangles that go through each other have no order: the furthest goes first.
void PaintOrder::force() {
  while (m_next_forced < m_seen.size() && m_is_done[static_cast<std::size_t>(m_seen[m_next_forced])]) ++m_next_forced;
  if (m_next_forced < m_seen.size()) release(m_seen[m_next_forced]);
}

std::vector<int> PaintOrder::next() {
  if (m_ready.empty()) force();
  if (m_ready.empty()) return {};
  // The colours in turn, so that in each as many as possible come together.
  auto group = m_ready.upper_bound(m_last_fill);
  if (group == m_ready.end()) group = m_ready.begin();
  m_last_fill = group->first;
  std::vector<int> together;
  while (!group->second.empty()) {
    const int below = group->second.back();
    group->second.pop_back();
    together.push_back(below);
    auto order = std::lower_bound(m_orders.begin(), m_orders.end(), std::pair(below, 0));
    for (; order != m_orders.end() && order->first == below; ++order) {
      const auto above = static_cast<std::size_t>(order->second);
      if (--m_num_below[above] == 0 && !m_is_done[above]) release(order->second);
    }
  }
  m_ready.erase(group);
  return together;
}

/// The sides of triangles without those that two of them share.
std::vector<Side> outer_sides(const std::vector<ScreenTriangle>& triangles, const std::vector<int>& together) {
  struct Count {
    Side side;
    int count;
  };
  std::vector<Count> counts;
  for (const int triangle : together) {
    const auto& corners = triangles[static_cast<std::size_t>(triangle)].corners;
    for (std::size_t i = 0; i < 3; ++i) {
      const ScreenPoint &from = corners.at(i), &to = corners.at((i + 1) % 3);
      counts.push_back(is_before(from, to) ? Count{{from, to}, 1} : Count{{to, from}, -1});
    }
  }
  std::sort(counts.begin(), counts.end(), [](const Count& a, const Count& b) {
    return is_same_place(a.side.from, b.side.from) ? is_before(a.side.to, b.side.to)
                                                   : is_before(a.side.from, b.side.from);
  });
  std::vector<Side> outer;
  for (auto next = counts.begin(); next != counts.end();) {
    const Side side = next->side;
    int sum = 0;
    for (; next != counts.end() && is_same_place(next->side.from, side.from) && is_same_place(next->side.to, side.to);
         ++next) {
      sum += next->count;
    }
    for (; sum > 0; --sum) outer.push_back(side);
    for (; sum < 0; ++sum) outer.push_back({side.to, side.from});
  }
  std::sort(outer.begin(), outer.end(), [](const Side& a, const Side& b) {
    return is_same_place(a.from, b.from) ? is_before(a.to, b.to) : is_before(a.from, b.from);
  });
  return outer;
}

/// Whether b lies on the way from a to c.
bool is_between(const ScreenPoint& a, const ScreenPoint& b, const ScreenPoint& c) {
  const std::int64_t right = c.x - a.x, down = c.y - a.y;
  return right * (b.y - a.y) == down * (b.x - a.x) && right * (b.x - a.x) + down * (b.y - a.y) >= 0 &&
         right * (c.x - b.x) + down * (c.y - b.y) >= 0;
}

void add_loop(const std::vector<ScreenPoint>& loop, SvgPath& path) {
  std::vector<ScreenPoint> kept;
  for (const ScreenPoint& point : loop) {
    while (kept.size() > 1 && is_between(kept[kept.size() - 2], kept.back(), point)) kept.pop_back();
    kept.push_back(point);
  }
  if (kept.size() < 3) return;
  path.move(kept.front());
  for (std::size_t i = 1; i < kept.size(); ++i) path.line(kept[i]);
  path.close();
}

SvgPath outline_of(const std::vector<ScreenTriangle>& triangles, const std::vector<int>& together) {
  const std::vector<Side> sides = outer_sides(triangles, together);
  std::vector<std::size_t> used(sides.size());  // of the sides that start where this one, the first there, does
  const auto next_from = [&](const ScreenPoint& point) {
    const auto found = std::lower_bound(sides.begin(), sides.end(), point, [](const Side& side, const ScreenPoint& at) {
      return is_before(side.from, at);
    });
    const auto first = static_cast<std::size_t>(found - sides.begin());
    if (first == sides.size()) return first;
    const std::size_t next = first + used[first];
    const bool is_there = next < sides.size() && is_same_place(sides[next].from, point);
    if (is_there) ++used[first];
    return is_there ? next : sides.size();
  };
  SvgPath path;
  for (const Side& start : sides) {
    std::vector<ScreenPoint> loop;
    for (std::size_t next = next_from(start.from); next < sides.size(); next = next_from(sides[next].to)) {
      loop.push_back(sides[next].from);
    }
    add_loop(loop, path);
  }
  return path;
}

}  // namespace

std::vector<Patch> painted(const std::vector<ScreenTriangle>& triangles, const DepthGrid& grid, std::size_t most) {
  PaintOrder order(triangles, grid, most);
  std::vector<Patch> patches;
  for (std::vector<int> together = order.next(); !together.empty(); together = order.next()) {
    Patch patch{triangles[static_cast<std::size_t>(together.front())].fill, outline_of(triangles, together)};
    if (!patch.outline.empty()) patches.push_back(std::move(patch));
  }
  return patches;
}
