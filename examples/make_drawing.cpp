// Builds the file drawing.igs with the library: a plate with a hole, a view of it on a sheet, and the sheet's
// annotation.
//   make_drawing > drawing.igs
#include <utility>
#include <vector>

#include "sample.h"

namespace {

constexpr double length = 80, width = 50, hole_radius = 8;
const giPoint2 hole(30, 25);
const giPoint2 sheet_origin(40, 40);  // where the plate's corner lies on the sheet

giPoint2 on_sheet(double x, double y) { return {sheet_origin.x() + x, sheet_origin.y() + y}; }

/// Says in the directory entry that the entity is annotation, and with `is_part` that it belongs to another one.
template <class Entity>
Entity* annotation(Entity* entity, bool is_part = true) {
  constexpr igsEntityUse use_annotation = 1;
  entity->directory_entry().set_status_flags(igsStatusFlags(0, is_part ? 1 : 0, use_annotation, 0));
  return entity;
}

igs212* add_note(const utString& text, const giPoint2& start, double text_height = 4, bool is_part = true) {
  igsNoteString string(text);
  string.set_width(0.8 * text_height * static_cast<double>(text.size()));
  string.set_height(text_height);
  string.set_start(giPoint3(start.x(), start.y(), 0));
  auto* note = annotation(new igs212, is_part);
  note->add_string(string);
  return note;
}

/// A line with a filled arrow head.
igs214* add_leader(const giPoint2& head, const giPoint2& tail) {
  auto* leader = annotation(new igs214);
  leader->directory_entry().set_form_number(3);
  leader->set_arrow_height(3);
  leader->set_arrow_width(1);
  leader->set_z_level(0);
  leader->set_arrow_head(head);
  leader->add_tail(tail);
  return leader;
}

/// From what is measured, with a gap of 1, to `end`, which is below it.
igsWitnessLine* add_witness_line(const giPoint2& measured, double end) {
  auto* witness = annotation(new igsWitnessLine);
  witness->set_z_level(0);
  for (const double y : {measured.y(), measured.y() - 1, end}) witness->append_point(giPoint2(measured.x(), y));
  return witness;
}

/// The length of the plate, 12 below it.
igs216* add_length() {
  const giPoint2 left = on_sheet(0, 0), right = on_sheet(length, 0);
  const double y = left.y() - 12, middle = (left.x() + right.x()) / 2;
  auto* dimension = annotation(new igs216, false);
  dimension->set_note(igsObjectPtr(add_note("80", giPoint2(middle - 3, y - 2))));
  dimension->set_leader1(igsObjectPtr(add_leader(giPoint2(left.x(), y), giPoint2(middle - 5, y))));
  dimension->set_leader2(igsObjectPtr(add_leader(giPoint2(right.x(), y), giPoint2(middle + 5, y))));
  dimension->set_witness1(igsObjectPtr(add_witness_line(left, y - 2)));
  dimension->set_witness2(igsObjectPtr(add_witness_line(right, y - 2)));
  return dimension;
}

igs206* add_diameter() {
  const giPoint2 centre = on_sheet(hole.x(), hole.y());
  const giPoint2 edge(centre.x() + hole_radius, centre.y()), outside(edge.x() + 20, edge.y());
  auto* dimension = annotation(new igs206, false);
  dimension->set_note(igsObjectPtr(add_note("DIA 16", giPoint2(outside.x() + 1, outside.y() - 2))));
  dimension->set_leader1(igsObjectPtr(add_leader(edge, outside)));
  dimension->set_centre(centre);
  return dimension;
}

/// A cross through the hole.
igsCentreLine* add_centre_lines() {
  const giPoint2 centre = on_sheet(hole.x(), hole.y());
  const double reach = hole_radius + 3;
  auto* lines = annotation(new igsCentreLine, false);
  lines->set_z_level(0);
  lines->append_point(giPoint2(centre.x() - reach, centre.y()));
  lines->append_point(giPoint2(centre.x() + reach, centre.y()));
  lines->append_point(giPoint2(centre.x(), centre.y() - reach));
  lines->append_point(giPoint2(centre.x(), centre.y() + reach));
  return lines;
}

/// A note with a leader to the upper right corner of the plate.
igs210* add_label() {
  const giPoint2 corner = on_sheet(length, width);
  const giPoint2 tail(corner.x() + 10, corner.y() + 10);
  auto* label = annotation(new igs210, false);
  label->set_note(igsObjectPtr(add_note("BREAK EDGES", giPoint2(tail.x() + 1, tail.y() - 2))));
  label->set_leaders({igsObjectPtr(add_leader(corner, tail))});
  return label;
}

void add_plate() {
  const giPoint3 corners[] = {{0, 0, 0}, {length, 0, 0}, {length, width, 0}, {0, width, 0}};
  for (int i = 0; i < 4; ++i) sample::line(corners[i], corners[(i + 1) % 4]);
  sample::circle(hole, hole_radius);
}

/// The view from above, upright on the sheet in natural size.
igs404View view_from_above() {
  auto* view = sample::part(new igs410_0);
  view->set_view_number(1);
  view->set_scale(1);
  igs404View placed;
  placed.set_view(igsObjectPtr(view));
  placed.set_origin(sheet_origin);
  return placed;
}

}  // namespace

int main() {
  igsFile file;
  sample::describe(file, "drawing", {"A drawing of a plate with a hole: one view, dimensions, a label and a title."},
                   200);
  add_plate();
  auto* drawing = new igs404;
  drawing->set_views({view_from_above()});
  // What the sheet shows beside the view, in the sheet's own coordinates.
  drawing->set_entities({
      igsObjectPtr(add_note("PLATE", giPoint2(40, 10), 6, false)),
      igsObjectPtr(add_length()),
      igsObjectPtr(add_diameter()),
      igsObjectPtr(add_centre_lines()),
      igsObjectPtr(add_label()),
  });
  return sample::print(file);
}
