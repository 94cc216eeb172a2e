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

/// What the options add: the DE numbers of faces, wires and marks; 'b' for blanked, 'a' for annotation, and '@' before
/// the instance.
std::string all_shown(const igsFile& file) {
  igsShapes shapes(file);
  const igsShapeModel model(file, shapes, {.has_blanked = true, .has_marks = true});
  std::string text;
  const auto add = [&](const auto& shown, bool is_annotation) {
    text += std::to_string(shown.entity->de_number()) + (shown.is_blanked ? "b" : "") + (is_annotation ? "a" : "");
    if (shown.instance != nullptr) text += '@' + std::to_string(shown.instance->de_number());
    text += ' ';
  };
  for (const igsShapeFace& face : model.faces()) add(face, false);
  text += "| ";
  for (const igsShapeWire& wire : model.wires()) add(wire, wire.is_annotation);
  text += "| ";
  for (const igsShapeMark& mark : model.marks()) add(mark, false);
  return text;
}

/// Where a drawing of these fields, and form, puts the point (1, 2, 3) that it lists as annotation; (1, 2, 3) of the
/// sheet.
igsVec3 placed_by_drawing(int form, const std::string& views, const std::string& scale = "2.", double corner = 0) {
  ShapedFile shape("404:" + std::to_string(form) + ' ' + views + ",1,3 116:0 1.,2.,3.,0 410:0 1," + scale +
                   " 124:0 0.," + std::to_string(corner - 1) + ",0.,0.,1.,0.,0.,0.,0.,0.,1.,7. 410:0 2,1.");
  shape.file.entity(5)->directory_entry().set_matrix(igsObjectPtr(shape.file.entity(7)));
  igsShapes shapes(shape.file);
  const igsShapeModel model(shape.file, shapes, {.has_marks = true});
  const igsShapeMark& mark = model.marks().at(0);
  const igsVec3 placed = mark.placement.point({1, 2, 3});
  EXPECT_EQ(mark.is_on_sheet, placed == (igsVec3{1, 2, 3}));
  return placed;
}

TEST(ShapeModel, whatADrawingOfOneViewListsStandsWhereTheViewShowsIt) {
  // Sheet (1, 2, 3), less the origin (-3, -4), halved: (2, 3, 1.5) of the view, which is turned and moved by 7.
  expect_near(placed_by_drawing(0, "1,5,-3.,-4."), {3, -2, -5.5}, 1e-12);
  expect_near(placed_by_drawing(1, "1,5,-3.,-4.,1.5707963267948966"), {-2, -3, -5.5}, 1e-12);
  const igsVec3 unmoved{1, 2, 3};
  EXPECT_EQ(placed_by_drawing(0, "2,5,-3.,-4.,9,0.,0."), unmoved);
  for (const char* view : {"0", "1,0,-3.,-4.", "1,3,-3.,-4.", "1,5,1.E999,0."}) {
    EXPECT_EQ(placed_by_drawing(0, view), unmoved) << view;
  }
  for (const char* scale : {"0.", "-2.", "1.E-320", "1.E999", "1.E200"}) {
    EXPECT_EQ(placed_by_drawing(0, "1,5,-3.,-4.", scale), unmoved) << scale;
  }
  EXPECT_EQ(placed_by_drawing(0, "1,5,-3.,-4.", "2.", 1), unmoved);  // its matrix is flat
}

TEST(ShapeModel, hasWhatIsBlankedAndMarksWhereTheyAreWanted) {
  const auto with_flags = [](ShapedFile& shape, int de, int blank, int use) {
    shape.file.entity(de)->directory_entry().set_status_flags({blank, 0, use, 0});
  };
  // An instance of a subfigure with an instance in it: lines, a leader, a patch. The centre of an arc is no mark.
  const std::string leader = "214:1 1,1.,1.,0.,0.,0.,1.,0. ";
  ShapedFile nested("408:0 3,0.,0.,0.,1. 308:0 1,1HA,2,5,9 408:0 7,0.,0.,0.,1. 308:0 0,1HB,3,11,13,15 " + line + line +
                    leader + patch + "116:0 1.,2.,3.,0 106:1 1,1,0.,1.,1. 116:0 0.,0.,0.,0 196:0 21,1. ");
  EXPECT_EQ(all_shown(nested.file), "15@1 23 | 11@1 9@1 | 13@1 17 19 ");
  with_flags(nested, 5, 1, 0);
  with_flags(nested, 9, 0, 1);
  with_flags(nested, 17, 1, 0);
  EXPECT_EQ(all_shown(nested.file), "15b@1 23 | 11b@1 9a@1 | 13b@1 17b 19 ");
  with_flags(nested, 1, 0, 1);  // geometry that serves as annotation is curves alone
  EXPECT_EQ(all_shown(nested.file), "23 | 11ba@1 9a@1 | 13b@1 17b 19 ");
  EXPECT_EQ(shown(nested.file), "23 |");

  ShapedFile solid("186:0 3,1,0 " + box_shell(3, {0, 0, 0}, {1, 1, 1}));
  with_flags(solid, 3, 1, 0);
  EXPECT_EQ(shown(solid.file), "|");
  EXPECT_EQ(all_shown(solid.file), "5b 7b 9b 11b 13b 15b | | ");

  // A dimension shows its note and leaders itself.
  ShapedFile dimension("206:0 3,5,0,0.,0. 212:0 1,1,1.,1.,1,1.5,0.,0,0,0.,0.,0.,1HA " + leader + leader);
  EXPECT_EQ(all_shown(dimension.file), "| | 1 7 ");
}

TEST(ShapeModel, marksAreNoMoreThanTheFileIsWorth) {
  // 2,000 labels of one note, which is long.
  std::string entities = "212:0 1,60000,1.,1.,1,1.5,0.,0,0,0.,0.,0.,60000H" + std::string(60'000, 'A') + ' ';
  for (int i = 0; i < 2000; ++i) entities += "210:0 1,0 ";
  ShapedFile shape(entities);
  igsShapes shapes(shape.file);
  const igsShapeModel model(shape.file, shapes, {.has_marks = true});
  EXPECT_GT(model.marks().size(), 10U);
  EXPECT_LT(model.marks().size(), 200U);
  EXPECT_EQ(model.left_out().size() + model.marks().size(), 2000U);
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
