#include "igs/shape/igsShapeDrawing.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <unordered_set>
#include <utility>

#include "igs/annotation/igs202.h"
#include "igs/annotation/igs208.h"
#include "igs/annotation/igs210.h"
#include "igs/annotation/igs212.h"
#include "igs/annotation/igs214.h"
#include "igs/annotation/igs230.h"
#include "igs/annotation/igsWitnessLine.h"
#include "igs/curves/igs116.h"
#include "igs/curves/igsPointset.h"
#include "igs/objects/igsCast.h"
#include "igs/shape/private/igsFieldsOf.h"
#include "igs/shape/private/igsIsBlanked.h"
#include "igs/shape/private/igsMarkDrawing.h"
#include "igs/shape/private/igsVecOf.h"

namespace {
void draw_strokes(const igs106Base& lines, const igsMarkPen& pen) {
  const int first = lines.typeof(igsWitnessLine::type()) ? 1 : 0;
  for (int i = first; i + 1 < lines.number_of_points(); i += 2) {
    pen.line({igs_vec_of(lines, i), igs_vec_of(lines, i + 1)});
  }
}

/// What consists of no other entities.
void draw_single(const igsObject& entity, const igsMarkPen& pen) {
  if (const auto* const point = igs_cast<igs116>(&entity)) {
    pen.point(igs_vec_of(point->point()));
  } else if (const auto* const points = igs_cast<igsPointset>(&entity)) {
    for (int i = 0; i < points->number_of_points(); ++i) pen.point(igs_vec_of(*points, i));
  } else if (const auto* const note = igs_cast<igs212>(&entity)) {
    igs_draw_note(*note, pen);
  } else if (const auto* const leader = igs_cast<igs214>(&entity)) {
    igs_draw_leader(*leader, nullptr, pen);
  } else if (const auto* const lines = igs_cast<igs106Base>(&entity)) {
    draw_strokes(*lines, pen);
  }
}

// The matrix of a curve is in its shape.
void draw_part(const igsObject& part, const igsObject& whole, igsShapes& shapes, const igsMarkPen& pen) {
  const auto* const leader = igs_cast<igs214>(&part);
  if (leader != nullptr) {
    igs_draw_leader(*leader, igs_cast<igs202>(&whole), pen.under_matrix_of(part));
  } else if (const igsShapeCurvePtr curve = shapes.curve(&part);
             curve != nullptr && !part.typeof(igsPointset::type())) {
    std::vector<igsVec3> points;
    for (const igsPolylinePoint& point : igs_polyline(*curve, pen.tolerance())) points.push_back(point.point);
    pen.line(std::move(points));
  } else {
    draw_single(part, pen.under_matrix_of(part));
  }
}

/// The frame of a flag note follows from the letters of its note (IGES 5.3, type 208).
void draw_flag(const igs208& flag, const igsMarkPen& pen) {
  const auto* const note = igs_cast<igs212>(flag.note().object());
  if (note == nullptr || note->strings().empty() || flag.angle() == igs_undefined_real) return;
  const double letter = note->string(0).height();
  double length = 0.4 * letter;
  for (const igsNoteString& string : note->strings()) length = std::max(length, string.width() + 0.4 * letter);
  const double height = 2 * letter, tip = height / 2 / std::tan(35 * std::numbers::pi / 180);
  if (!(letter > 0)) return;
  const igsVec3 corner = igs_vec_of(flag.corner());
  const igsVec3 right{std::cos(flag.angle()), std::sin(flag.angle()), 0}, up{-right.y, right.x, 0};
  pen.line({corner, corner + right * length, corner + right * (length + tip) + up * (height / 2),
            corner + right * length + up * height, corner + up * height, corner});
}

std::vector<const igsObject*> parts_of(const igsObject& entity) {
  std::vector<const igsObject*> parts = igsFieldsOf(entity).targets;
  std::unordered_set<const igsObject*> known;
  std::erase_if(parts, [&](const igsObject* part) { return !known.insert(part).second; });
  return parts;
}
}  // namespace

igsShapeDrawing igs_draw(const igsObject& entity, igsShapes& shapes, const igsShapeTolerance& tolerance) {
  igsShapeDrawing drawing;
  const igsMarkPen pen(drawing, tolerance, igsPlacement::of(entity));
  const auto* const area = igs_cast<igs230>(&entity);
  if (area == nullptr && !entity.typeof(igsDimension::type())) {
    draw_single(entity, pen);
    return drawing;
  }
  const std::vector<const igsObject*> parts = parts_of(entity);
  for (const igsObject* part : parts) {
    if (!igs_is_blanked(*part) || igs_is_blanked(entity)) draw_part(*part, entity, shapes, pen);
  }
  if (area != nullptr) igs_draw_hatching(*area, parts, shapes, pen);
  const auto* const flag = igs_cast<igs208>(&entity);
  if (flag != nullptr && !entity.typeof(igs210::type())) draw_flag(*flag, pen);
  return drawing;
}
