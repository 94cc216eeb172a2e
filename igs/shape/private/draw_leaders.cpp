#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <utility>

#include "igs/annotation/igs202.h"
#include "igs/annotation/igs214.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/shape/private/igsMarkDrawing.h"
#include "igs/shape/private/igsVecOf.h"

namespace {
constexpr double arc_slack = 0.02;         // of the radius
constexpr std::size_t most_on_arcs = 500;  // points, on the arcs of one leader

enum class LeaderForm {
  wedge = 1,
  triangle,
  filled_triangle,
  no_head,
  circle,
  filled_circle,
  rectangle,
  filled_rectangle,
  slash,
  integral,
  open_triangle,
  dimension_origin
};

/// The point of the leader, and its arrowhead's size along the line and across it.
struct Arrow {
  igsVec3 tip, along, across;

  igsVec3 at(double part_along, double part_across) const { return tip + along * part_along + across * part_across; }
};

/// To the next point of the leader, around the vertex of the dimension where both lie on its circle.
void go_on(std::vector<igsVec3>& path, const igsVec3& point, const igs202* dimension,
           const igsShapeTolerance& tolerance) {
  const igsVec3 last = path.back();
  if (dimension != nullptr && path.size() < most_on_arcs) {
    const igsVec3 centre = igs_vec_of(dimension->vertex(), last.z);
    const igsVec3 from = last - centre, to = point - centre;
    const double radius = dimension->radius() > 0 ? dimension->radius() : from.length();
    const auto is_on_circle = [&](const igsVec3& arm) { return std::abs(arm.length() - radius) <= arc_slack * radius; };
    if (is_on_circle(from) && is_on_circle(to)) {
      const double sweep = std::atan2(from.x * to.y - from.y * to.x, from.dot(to));
      const std::vector<igsVec3> arc = igs_arc_points(centre, from, {-from.y, from.x, 0}, sweep, tolerance);
      path.insert(path.end(), arc.begin() + 1, arc.end() - 1);
    }
  }
  path.push_back(point);
}

/// The points of the line, from the arrowhead on.
std::vector<igsVec3> path_of(const igs214& leader, const igs202* dimension, const igsShapeTolerance& tolerance) {
  std::vector<igsVec3> path{igs_vec_of(leader.arrow_head(), leader.z_level())};
  for (int i = 0; i < leader.number_of_segments(); ++i) {
    const igsVec3 tail = igs_vec_of(leader.tail(i), leader.z_level());
    if (tail.is_finite()) go_on(path, tail, dimension, tolerance);
  }
  return path;
}

Arrow arrow_of(const igs214& leader, const std::vector<igsVec3>& path) {
  const auto next = std::find_if(path.begin(), path.end(), [&](const igsVec3& point) { return point != path[0]; });
  const igsVec3 along = next != path.end() ? (*next - path[0]).unit() : igsVec3{1, 0, 0};
  const auto size = [](double told) { return std::isfinite(told) && told > 0 ? told : 0; };
  return {path[0], along * size(leader.arrow_height()), igsVec3{-along.y, along.x, 0} * size(leader.arrow_width())};
}

/// How much of the arrowhead's length has no line inside, where one sees through it.
double bare_part(LeaderForm form) {
  switch (form) {
    case LeaderForm::open_triangle:
      return 1;
    case LeaderForm::circle:
    case LeaderForm::rectangle:
    case LeaderForm::dimension_origin:
      return 0.5;
    default:
      return 0;
  }
}

/// A letter S, as long as the arrowhead is wide.
std::vector<igsVec3> integral_sign(const Arrow& arrow) {
  constexpr int half = 6;
  std::vector<igsVec3> points;
  for (int i = -half; i <= half; ++i) {
    const double s = static_cast<double>(i) / half;
    points.push_back(arrow.at(s * s * s / 2, s * (3 - s * s) / 4));
  }
  return points;
}

void draw_head(LeaderForm form, const Arrow& arrow, const igsMarkPen& pen) {
  const igsVec3 left = arrow.at(1, 0.5), right = arrow.at(1, -0.5);
  const std::vector<igsVec3> box{arrow.at(-0.5, -0.5), arrow.at(0.5, -0.5), arrow.at(0.5, 0.5), arrow.at(-0.5, 0.5)};
  const auto ellipse = [&] {
    return igs_arc_points(arrow.tip, arrow.along * 0.5, arrow.across * 0.5, 2 * std::numbers::pi, pen.tolerance());
  };
  switch (form) {
    case LeaderForm::wedge:
      return pen.line({left, arrow.tip, right});
    case LeaderForm::triangle:
    case LeaderForm::open_triangle:
      return pen.line({arrow.tip, left, right, arrow.tip});
    case LeaderForm::filled_triangle:
      return pen.area({arrow.tip, left, right});
    case LeaderForm::circle:
    case LeaderForm::dimension_origin:
      return pen.line(ellipse());
    case LeaderForm::filled_circle: {
      std::vector<igsVec3> corners = ellipse();
      corners.pop_back();
      return pen.area(std::move(corners));
    }
    case LeaderForm::rectangle:
      return pen.line({box[0], box[1], box[2], box[3], box[0]});
    case LeaderForm::filled_rectangle:
      return pen.area(box);
    case LeaderForm::slash:
      return pen.line({box[0], box[2]});
    case LeaderForm::integral:
      return pen.line(integral_sign(arrow));
    default:
      return;
  }
}
}  // namespace

void igs_draw_leader(const igs214& leader, const igs202* dimension, const igsMarkPen& pen) {
  std::vector<igsVec3> path = path_of(leader, dimension, pen.tolerance());
  const Arrow arrow = arrow_of(leader, path);
  const auto form = static_cast<LeaderForm>(leader.directory_entry().form_number());
  if (arrow.along != igsVec3{} && arrow.across != igsVec3{}) draw_head(form, arrow, pen);
  const igsVec3 bare = arrow.along * bare_part(form);
  if (path.size() > 1 && bare.length() < (path[1] - path[0]).length()) path[0] += bare;
  pen.line(std::move(path));
}
