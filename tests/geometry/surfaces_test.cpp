// What hosts do to surfaces and their boundaries, beyond what files can say.

#include <gtest/gtest.h>

#include <climits>

#include "geometry/geometry_fixture.h"

namespace igs_test {
namespace {
TEST(Surfaces, SplinesAreMadeOnceAndNoLargerThanCanBeCounted) {
  igsFile file;
  auto* const surface = new igs128;
  std::string data = ",0,0,1,0,0";
  for (int i = 0; i < 50; ++i) data += ",1.";
  for (const std::string sizes : {"300,1,1,1", "1,300,1,1", "19,19,1,1"}) {
    EXPECT_EQ(read_fields(*surface, sizes + data), 0) << sizes;
    EXPECT_EQ(surface->number_of_knots_u() + surface->number_of_knots_v() + surface->order_v(), -INT_MAX) << sizes;
  }
  EXPECT_EQ(surface->set_knot_u(0, 1) + surface->set_weight(0, 0, 1) + surface->set_control_point(0, 0, {1, 2, 3}), 0);
  const int refused[][4] = {{0, 1, 1, 1}, {1, 0, 1, 1},         {3, 1, 2, 1},       {1, 3, 1, 2},
                            {1, 2, 1, 1}, {1, 1, 65536, 65536}, {2, 1, INT_MAX, 1}, {1, 1, 1, INT_MAX}};
  for (const auto& r : refused) EXPECT_EQ(surface->set_order_size(r[0], r[1], r[2], r[3]), 0) << r[2] << ' ' << r[3];
  ASSERT_EQ(surface->set_order_size(2, 3, 2, 4), 1);
  EXPECT_EQ(surface->set_order_size(2, 3, 2, 4), 0);
  EXPECT_EQ(read_fields(*surface, "1,1,1,1"), 0);  // there are arrays already
  EXPECT_EQ(surface->number_of_knots_u() * 10 + surface->number_of_knots_v(), 47);
  EXPECT_EQ(answers(-1, 7, [&](int i) { return surface->set_knot_v(i, 1); }), "0 1 1 1 1 1 1 1 0 ");
  for (const auto& [i, j] : {std::pair(-1, 0), {0, -1}, {1, 3}, {2, 0}, {0, 4}}) {
    giPoint3 point;
    const std::vector<int> done{surface->set_weight(i, j, 13), surface->set_control_point(i, j, giPoint3(i, j, 0)),
                                surface->control_point(i, j, point)};
    EXPECT_EQ(done, std::vector<int>(3, i == 1 && j == 3)) << i << ',' << j;
  }
  double weight = 0, other = 0;
  EXPECT_EQ(surface->weight(1, 3, weight) + surface->weight(1, 2, other), 2);
  EXPECT_TRUE(weight == 13 && other == igs_undefined_real);
  EXPECT_EQ(surface->set_parametric_limits_u(2, 1) + surface->set_parametric_limits_v(2, 1), 0);
  EXPECT_EQ((new igs122)->set_terminate_point(giPoint3()), 0);
  EXPECT_EQ((new igs130)->set_normal(giVector3()), 0);
  EXPECT_EQ((new igs140)->set_indicator(giVector3()), 0);
}

TEST(Surfaces, BoundariesByPosition) {
  igsFile file;
  const igsObjectPtr line(new igs110), other(new igs110);  // 1, 3
  igsObjectPtr untouched = other;

  auto* const boundary = new igs141;  // 5
  EXPECT_EQ(boundary->set_size(-1) * 10 + boundary->set_size(2), 1);
  igsModelSpaceCurve curve;
  EXPECT_EQ(curve.set_size(1), 1);
  EXPECT_EQ(answers(0, 1, [&](int i) { return curve.set_parameter_curve(i, line); }), "1 0 ");
  EXPECT_EQ(answers(1, 2, [&](int i) { return boundary->set_model_space_curve(i, &curve); }), "1 0 ");
  EXPECT_EQ(boundary->set_model_space_curve(0, nullptr), 0);
  igsModelSpaceCurve* place = nullptr;
  EXPECT_EQ(boundary->model_space_curve(-1, &place) + boundary->model_space_curve(2, &place), 0);
  EXPECT_EQ(place, nullptr);
  boundary->model_space_curve(1, &place);
  EXPECT_EQ(place->parameter_curve(1, untouched), 0);
  place->set_sense(igsModelSpaceCurve::reversed);
  place->set_curve(line);

  auto* const bounded = new igs143;  // 7
  bounded->set_size(1);
  EXPECT_EQ(bounded->set_boundary(1, line) + bounded->boundary(-1, untouched), 0);
  EXPECT_EQ(bounded->set_boundary(0, boundary), 1);
  auto* const trimmed = new igs144;  // 9
  trimmed->set_inner_boundaries({line, line});
  EXPECT_EQ(trimmed->set_inner_boundary(2, line) + trimmed->inner_boundary(2, untouched), 0);
  EXPECT_TRUE(untouched == other);
  EXPECT_EQ(trimmed->set_inner_boundary(1, bounded) + trimmed->inner_boundary(1, untouched), 2);
  EXPECT_EQ(untouched.de_number(), 7);
  EXPECT_EQ(line->num_references(), 5);  // here, in `curve`, twice in the boundary, and in the trimmed surface
  EXPECT_EQ(written_data(file, 5) + written_data(file, 7) + written_data(file, 9),
            "141,0,0,0,2,0,1,0,1,2,1,1;143,0,0,1,5;144,0,0,2,0,1,7;");
  boundary->unreference_children();
  EXPECT_EQ(line->num_references(), 3);
}
}  // namespace
}  // namespace igs_test
