// Builds the file flange.igs with the library: a ring with six bolts, which are instances of one subfigure, in colours,
// line fonts and groups of its own.
//   make_flange > flange.igs
#include <array>
#include <utility>
#include <vector>

#include "sample.h"

namespace {

constexpr double bolt_circle = 40;

/// An orange that is none of the eight numbered colours, for directory entries.
igsColour orange() {
  constexpr igsHierarchy not_above = 1;
  auto* definition = new igs314;
  definition->set_red(100);
  definition->set_green(55);
  definition->set_blue(0);
  definition->set_colour_name("ORANGE");
  definition->directory_entry().set_status_flags(igsStatusFlags(0, 0, 2, not_above));
  igsColour colour;
  colour.set_definition(igsObjectPtr(definition));
  return colour;
}

/// Long and short strokes: the bits of 5, from the last to the first segment, are the visible ones.
igsLineFont dash_dot() {
  auto* definition = new igs304_2;
  definition->set_lengths({8, 2, 2, 2});
  definition->set_pattern("5");
  definition->directory_entry().set_status_flags(igsStatusFlags(0, 0, 2, 0));
  igsLineFont font;
  font.set_definition(igsObjectPtr(definition));
  return font;
}

/// A bolt about the origin: its shank and the hexagon of its head.
igs308* add_bolt() {
  constexpr std::array<std::pair<double, double>, 7> head = {
      {{6, 0}, {3, 5.196}, {-3, 5.196}, {-6, 0}, {-3, -5.196}, {3, -5.196}, {6, 0}}};
  auto* hexagon = sample::part(new igsSimpleClosedPlanarCurve);
  hexagon->set_size(static_cast<int>(head.size()));
  hexagon->set_z_level(0);
  for (int i = 0; const auto& [x, y] : head) hexagon->set_planar_point(i++, giPoint2(x, y));

  auto* bolt = new igs308;
  bolt->set_subfigure_name("BOLT");
  bolt->set_entities({igsObjectPtr(sample::part(sample::circle(giPoint2(0, 0), 3))), igsObjectPtr(hexagon)});
  bolt->directory_entry().set_status_flags(igsStatusFlags(0, 0, 2, 0));
  return bolt;
}

/// The bolts on their circle, as one group.
void add_bolts(const igsColour& colour) {
  constexpr std::array<std::pair<double, double>, 6> places = {
      {{1, 0}, {0.5, 0.866}, {-0.5, 0.866}, {-1, 0}, {-0.5, -0.866}, {0.5, -0.866}}};
  igs308* bolt = add_bolt();
  std::vector<igsObjectPtr> bolts;
  for (const auto& [x, y] : places) {
    auto* instance = new igs408;
    instance->set_subfigure(igsObjectPtr(bolt));
    instance->set_translation(giPoint3(bolt_circle * x, bolt_circle * y, 0));
    instance->directory_entry().set_colour(colour);
    instance->directory_entry().set_level(igsLevel(2));
    bolts.emplace_back(instance);
  }
  auto* group = new igs402_7;
  group->directory_entry().set_entity_label("BOLTS");
  group->set_entities(bolts);
}

/// The edges of the ring, from the inner to the outer one, and the bolt circle.
void add_ring() {
  auto* ring = new igsGroup;  // form 15: the order counts
  ring->directory_entry().set_entity_label("RING");
  std::vector<igsObjectPtr> edges;
  for (const double radius : {25.0, 55.0}) {
    igs100* edge = sample::circle(giPoint2(0, 0), radius);
    edge->directory_entry().set_colour(igsColour(4));
    edge->directory_entry().set_line_weight(4);
    edges.emplace_back(edge);
  }
  ring->set_entities(edges);
  sample::circle(giPoint2(0, 0), bolt_circle)->directory_entry().set_line_font(dash_dot());
}

}  // namespace

int main() {
  igsFile file;
  sample::describe(file, "flange",
                   {"A ring with six bolts: one subfigure, its instances, groups, a colour and a line font."}, 60);
  add_ring();
  add_bolts(orange());
  return sample::print(file);
}
