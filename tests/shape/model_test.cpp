#include <gmock/gmock.h>

#include <initializer_list>
#include <string>
#include <tuple>

#include "shape/box_shell.h"
#include "shape/shape_fixture.h"

using namespace igs_test;

namespace {
const std::string line = "110:0 0.,0.,0.,1.,0.,0. ";
const std::string patch =
    "128:0 1,1,1,1,0,0,1,0,0,0.,0.,1.,1.,0.,0.,1.,1.,1.,1.,1.,1.,0.,0.,0.,1.,0.,0.,0.,1.,0.,1.,1.,0. ";

/// The DE numbers of faces, then of wires.
std::string shown(const igsFile& file) {
  const igsShapeModel model(file);
  std::string text;
  for (const igsShapeFace& face : model.faces()) text += std::to_string(face.entity->de_number()) + ' ';
  text += '|';
  for (const igsShapeWire& wire : model.wires()) text += ' ' + std::to_string(wire.entity->de_number());
  return text;
}

std::string shown(const std::string& entities) { return shown(ShapedFile(entities).file); }

/// The pieces of a loop: the DE number of each, behind a minus where it is reversed.
std::string pieces_of(const std::vector<igsShapePiece>& pieces) {
  std::string text;
  for (const igsShapePiece& piece : pieces) {
    text += (piece.is_reversed ? "-" : "") + std::to_string(piece.entity != nullptr ? piece.entity->de_number() : 0);
    if (piece.model >= 0) text += '@' + std::to_string(piece.model);
    text += ' ';
  }
  return text;
}

TEST(ShapeModel, showsWhatStandsForItself) {
  EXPECT_EQ(shown(line + "102:0 2,1,5 " + line + "116:0 1.,2.,3.,0 " + patch), "9 | 3");
  // Named by a group, a property or a drawing an entity still stands for itself; in a definition it does not.
  EXPECT_EQ(shown(line + "402:1 1,1 " + "308:0 0,1HA,1,7 " + line), "| 1");
  // A trimmed surface, and what it is made of.
  EXPECT_EQ(shown("144:0 3,1,0,5 " + patch + "142:0 0,3,0,7,2 " + line), "1 |");
  EXPECT_EQ(shown("143:0 0,3,1,5 " + patch + "141:0 0,1,3,1,7,1,0 " + line), "1 |");
  // Planes are faces where a curve bounds them; endless surfaces are none.
  const std::string plane = " 0.,0.,1.,0.,3,0.,0.,0.,0. ";
  EXPECT_EQ(shown("108:1" + plane + line), "1 |");
  EXPECT_EQ(shown("108:0 0.,0.,1.,0.,0,0.,0.,0.,0. 190:0 5,7 116:0 0.,0.,0.,0 123:0 0.,0.,1."), "|");
  EXPECT_EQ(shown("196:0 3,1. 116:0 0.,0.,0.,0"), "1 |");
}

TEST(ShapeModel, leavesOutWhatIsBlankedOrNoGeometry) {
  for (const auto& [blank, use, expected] : std::initializer_list<std::tuple<int, int, const char*>>{
           {0, 0, "3 | 1"}, {1, 0, "3 |"}, {0, 1, "3 |"}, {0, 2, "3 |"}, {0, 5, "3 |"}, {0, 6, "3 | 1"}}) {
    ShapedFile shape(line + patch);
    shape.file.entity(1)->directory_entry().set_status_flags({blank, 0, use, 0});
    EXPECT_EQ(shown(shape.file), expected) << blank << ' ' << use;
  }
  ShapedFile instance("408:0 3,0.,0.,0.,1. 308:0 0,1HA,1,5 " + line);
  instance.file.entity(5)->directory_entry().set_status_flags({0, 0, 2, 0});
  EXPECT_EQ(shown(instance.file), "| 5");
  instance.file.entity(1)->directory_entry().set_status_flags({1, 0, 0, 0});
  EXPECT_EQ(shown(instance.file), "|");
}

TEST(ShapeModel, aSolidSharesItsEdges) {
  ShapedFile shape("186:0 3,0,1,69,1 " + box_shell(3, {0, 0, 0}, {9, 9, 9}) + box_shell(69, {1, 1, 1}, {2, 2, 2}) +
                   "124:0 1.,0.,0.,10.,0.,1.,0.,0.,0.,0.,1.,0.");
  shape.file.entity(1)->directory_entry().set_matrix(igsObjectPtr(shape.file.entity(135)));
  const igsShapeModel model(shape.file);
  ASSERT_EQ(model.faces().size(), 12U);
  ASSERT_EQ(model.edges().size(), 24U);
  ASSERT_EQ(model.shells().size(), 2U);
  EXPECT_TRUE(model.shells()[1].is_void && !model.shells()[0].is_void);
  EXPECT_EQ(model.shells()[1].first_face, 6U);
  EXPECT_EQ(model.shells()[1].end_face, 12U);
  EXPECT_TRUE(model.faces()[0].is_reversed && !model.faces()[6].is_reversed);
  for (const igsShapeEdge& edge : model.edges()) {
    ASSERT_EQ(edge.faces.size(), 2U);
    EXPECT_NE(edge.faces[0], edge.faces[1]);
    EXPECT_EQ(edge.curve->start(), edge.first);
    EXPECT_EQ(edge.curve->end(), edge.second);
    EXPECT_EQ(edge.placement.point({}), (igsVec3{10, 0, 0}));
  }
  const igsShapeLoop& loop = model.faces()[0].loops.at(0);
  EXPECT_TRUE(model.faces()[0].has_outer_loop && loop.prefers_model);
  EXPECT_EQ(pieces_of(loop.model), "-51 -49 -47 -45 ");
  EXPECT_EQ(model.edges().at(static_cast<std::size_t>(loop.model[0].edge)).position, 3);
}

TEST(ShapeModel, loopsAreMadeOfPieces) {
  const auto loop = [](const std::string& face, const std::string& boundary) {
    // From 3: a patch, three lines, three composites of which the second has a gap and the third itself, and a point.
    ShapedFile shape(face + patch + line + line + line +
                     "102:0 3,5,17,7 102:0 3,11,9,0 102:0 2,9,15 116:0 1.,2.,3.,0 " + boundary);
    const igsShapeModel model(shape.file);
    const igsShapeLoop& first = model.faces().at(0).loops.at(0);
    return pieces_of(first.model) + "| " + pieces_of(first.parameter) + (first.prefers_model ? "model" : "");
  };
  EXPECT_EQ(loop("144:0 3,1,0,19 ", "142:0 0,3,15,13,2"), "5 7 9 0 | 9 15 model");
  EXPECT_EQ(loop("144:0 3,1,0,19 ", "142:0 0,3,15,13,1"), "5 7 9 0 | 9 15 ");
  EXPECT_EQ(loop("144:0 3,1,0,19 ", "142:0 0,3,0,13,1"), "5 7 9 0 | model");
  EXPECT_EQ(loop("144:0 3,1,0,19 ", "142:0 0,3,9,0,2"), "| 9 ");
  EXPECT_EQ(loop("144:0 3,1,0,17 ", ""), "| ");
  EXPECT_EQ(loop("143:0 1,3,1,19 ", "141:0 1,2,3,2,11,2,1,9,5,1,2,7,9"), "-7 -5 5 | 9 7@2 9@2 ");
  EXPECT_EQ(loop("143:0 1,3,1,19 ", "141:0 1,1,3,2,11,2,1,9,5,1,2,7,9"), "-7 -5 5 | 9 7@2 9@2 model");
}

TEST(ShapeModel, instancesArePlacedByScaleAndTranslation) {
  ShapedFile shape("408:0 3,100.,0.,0.,2. 308:0 1,1HA,1,5 408:0 7,0.,10.,0.,3. 308:0 0,1HB,1,9 " + line +
                   "124:0 0.,-1.,0.,0.,1.,0.,0.,0.,0.,0.,1.,7.");
  shape.file.entity(1)->directory_entry().set_matrix(igsObjectPtr(shape.file.entity(11)));
  const igsShapeModel model(shape.file);
  ASSERT_EQ(model.wires().size(), 1U);
  const igsShapeWire& wire = model.wires()[0];
  expect_near(wire.placement.point(wire.curve->end()), {-20, 106, 7}, 1e-12);
  EXPECT_TRUE(model.left_out().empty());
}

TEST(ShapeModel, placesNoMoreThanTheFileIsWorth) {
  // Each of 40 subfigures places the next one twice; the last one has a line, and the first one itself.
  std::string entities = "408:0 3,0.,0.,0.,1. 308:0 1,1HA,3,5,7,251 ";
  for (int i = 0; i < 40; ++i) {
    const std::string next = std::to_string(9 + 6 * i);
    entities += "408:0 " + next + ",0.,0.,0.,1. 408:0 " + next + ",1.,0.,0.,1. 308:0 1,1HA,2," +
                std::to_string(11 + 6 * i) + ',' + std::to_string(i < 39 ? 13 + 6 * i : 11 + 6 * i) + ' ';
  }
  ShapedFile shape(entities + line + "408:0 249,0.,0.,0.,1. 308:0 0,1HA,1,245 408:0 3,0.,0.,0.,1.");
  const igsShapeModel model(shape.file);
  EXPECT_GT(model.wires().size(), 1000U);
  EXPECT_LT(model.wires().size(), 12'000U);
  EXPECT_THAT(model.left_out(), testing::ElementsAre(1, 247));
}
}  // namespace
