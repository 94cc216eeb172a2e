// Spoils a sample: reads it, gives some of its entities faults that are met in practice, and writes it.
//   make_faulty box < box.igs > box-faulty.igs
// docs/examples.md shows what a check says of each, and what a repair can do about it.
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "igs/igs.h"
#include "igs/objects/igsCast.h"

namespace {

/// Entity `n` (0-based) of exactly the class `Entity`.
template <class Entity>
Entity& nth(const igsFile& file, int n = 0) {
  igsFileTypeIT entities(&file, Entity::type());
  while (++entities) {
    if (n-- == 0) return static_cast<Entity&>(*entities());
  }
  std::cerr << "make_faulty: the sample has no such " << Entity::type().name() << '\n';
  std::abort();
}

void spoil_curves(const igsFile& file) {
  igs110& line = nth<igs110>(file);
  line.set_end_point(line.start_point());
  nth<igs100>(file).set_centre(giPoint2(40, 9));  // nearer to its start than to its end
  nth<igs102>(file).set_sub_curve(2, igsObjectPtr());
  nth<igs104>(file).directory_entry().set_form_number(3);  // an ellipse is no parabola
  nth<igsSimpleClosedPlanarCurve>(file).set_planar_point(3, giPoint2(40, 41));
  nth<igs126>(file).set_weight(1, -1);
  nth<igs112>(file).set_continuity(7);
  nth<igs130>(file).set_normal(giVector3(0, 0, 10));
}

void spoil_surfaces(const igsFile& file) {
  igs144& trimmed = nth<igs144>(file);
  trimmed.set_inner_boundaries({trimmed.inner_boundaries().front(), igsObjectPtr()});
  nth<igs142>(file).set_curve_creation(9);
  nth<igs128>(file).set_knot_u(1, -1e-9);
  nth<igs120>(file).set_terminate_angle(-1);
  nth<igs140>(file).set_indicator(giVector3(0, 0, 0));
  nth<igs141>(file).set_preferred_representation(4);
  nth<igs192_1>(file).set_radius(-15);
}

void spoil_box(const igsFile& file) {
  igs514& shell = nth<igs514>(file);
  shell.set_face(0, igsOrientedFace(shell.face(0).face(), 7));
  nth<igs190_0>(file, 1).set_normal(igsObjectPtr());
  nth<igs508>(file, 2).oriented_edge_at(0)->set_orientation(5);
  nth<igs510>(file, 3).set_outer_loop_flag(-1);
}

void spoil_drawing(const igsFile& file) {
  nth<igs214>(file).set_arrow_height(-3);
  nth<igsWitnessLine>(file).set_planar_point(1, giPoint2(43, 39));
  nth<igsCentreLine>(file).append_point(giPoint2(0, 0));
  nth<igs206>(file).set_leader1(igsObjectPtr());
  nth<igs410_0>(file).set_scale(0);
}

void spoil_flange(const igsFile& file) {
  nth<igs314>(file).set_red(255);  // percent, not one of 256 steps
  nth<igs408>(file).set_scale(0);
  nth<igs408>(file, 1).set_subfigure(igsObjectPtr(&nth<igs314>(file)));
  igs308& bolt = nth<igs308>(file);
  bolt.set_entities({bolt.get_entity(0), igsObjectPtr(), bolt.get_entity(1)});
  nth<igs100>(file).directory_entry().set_colour(igsColour(120));
  nth<igs304_2>(file).set_length(1, -2);
}

struct Sample {
  std::string_view name;
  void (*spoil)(const igsFile&);
};
constexpr Sample samples[] = {{"curves", spoil_curves},
                              {"surfaces", spoil_surfaces},
                              {"box", spoil_box},
                              {"drawing", spoil_drawing},
                              {"flange", spoil_flange}};

}  // namespace

int main(int argc, char** argv) {
  for (const Sample& sample : samples) {
    if (argc != 2 || sample.name != argv[1]) continue;
    utOstream messages(std::cerr);
    igsFile file;
    if (file.read(std::cin, messages) == 0) return 1;
    sample.spoil(file);
    return file.write(std::cout, messages) != 0 && std::cout.flush() ? 0 : 1;
  }
  std::cerr << "usage: make_faulty curves|surfaces|box|drawing|flange < SAMPLE > SPOILT\n";
  return 2;
}
