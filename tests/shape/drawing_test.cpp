#include <gmock/gmock.h>

#include <cmath>
#include <numbers>
#include <sstream>
#include <string>
#include <vector>

#include "shape/shape_fixture.h"

using namespace igs_test;

namespace {
const std::string far_matrix = "124:0 0.,-1.,0.,100.,1.,0.,0.,0.,0.,0.,1.,7. ";  // a quarter turn, then away

std::string words_of(const igsVec3& point) {
  const auto rounded = [](double value) { return std::round(value * 1000) / 1000 + 0.0; };
  std::ostringstream text;
  text << rounded(point.x) << ',' << rounded(point.y);
  if (rounded(point.z) != 0) text << ',' << rounded(point.z);
  return text.str();
}

std::string words_of(const std::vector<igsVec3>& points) {
  std::string text;
  for (const igsVec3& point : points) text += words_of(point) + ' ';
  return text;
}

/// What is drawn: lines, "|", filled areas, points and texts each behind a letter.
std::string words_of(const igsShapeDrawing& drawing) {
  std::string text;
  for (const std::vector<igsVec3>& line : drawing.lines) text += words_of(line) + "| ";
  for (const std::vector<igsVec3>& area : drawing.areas) text += "A " + words_of(area);
  for (const igsVec3& point : drawing.points) text += "P " + words_of(point) + ' ';
  for (const igsShapeText& note : drawing.texts) {
    text += "T " + note.text + ' ' + words_of(std::vector{note.start, note.along, note.up});
  }
  return text;
}

igsShapeDrawing drawing_of(const ShapedFile& shape, int de = 1) {
  igsShapes shapes(shape.file);
  return igs_draw(*shape.file.entity(de), shapes, {.chord = 0.01});
}

std::string drawn(const std::string& entities) { return words_of(drawing_of(ShapedFile(entities))); }

void set_matrix(ShapedFile& shape, int de, int matrix) {
  shape.file.entity(de)->directory_entry().set_matrix(igsObjectPtr(shape.file.entity(matrix)));
}

TEST(ShapeDrawing, pointsAndStrokes) {
  EXPECT_EQ(drawn("116:0 1.,2.,3.,0"), "P 1,2,3 ");
  EXPECT_EQ(drawn("106:1 1,2,5.,1.,1.,2.,2."), "P 1,1,5 P 2,2,5 ");
  EXPECT_EQ(drawn("106:2 2,2,1.,1.,1.,2.,1.E300,2."), "P 1,1,1 ");
  EXPECT_EQ(drawn("106:20 1,4,5.,0.,0.,1.,0.,2.,0.,3.,0."), "0,0,5 1,0,5 | 2,0,5 3,0,5 | ");
  EXPECT_EQ(drawn("106:31 1,3,0.,0.,0.,1.,0.,2.,0."), "0,0 1,0 | ");
  EXPECT_EQ(drawn("106:40 1,5,0.,0.,0.,1.,0.,2.,0.,3.,0.,4.,0."), "1,0 2,0 | 3,0 4,0 | ");
  ShapedFile shape("106:40 1,3,1.,0.,0.,1.,0.,2.,0. " + far_matrix);
  set_matrix(shape, 1, 3);
  EXPECT_EQ(words_of(drawing_of(shape)), "100,1,8 100,2,8 | ");
}

TEST(ShapeDrawing, leadersHaveArrowheads) {
  const auto leader = [](int form, const std::string& rest = "0.,0.,10.,0.,10.,5.") {
    return drawn("214:" + std::to_string(form) + " 2,2.,1.,5.," + rest);
  };
  const std::string line = "0,0,5 10,0,5 10,5,5 | ", short_line = "1,0,5 10,0,5 10,5,5 | ";
  EXPECT_EQ(leader(1), "2,0.5,5 0,0,5 2,-0.5,5 | " + line);
  EXPECT_EQ(leader(2), "0,0,5 2,0.5,5 2,-0.5,5 0,0,5 | " + line);
  EXPECT_EQ(leader(3), line + "A 0,0,5 2,0.5,5 2,-0.5,5 ");
  EXPECT_EQ(leader(4), line);
  EXPECT_EQ(leader(7), "-1,-0.5,5 1,-0.5,5 1,0.5,5 -1,0.5,5 -1,-0.5,5 | " + short_line);
  EXPECT_EQ(leader(8), line + "A -1,-0.5,5 1,-0.5,5 1,0.5,5 -1,0.5,5 ");
  EXPECT_EQ(leader(9), "-1,-0.5,5 1,0.5,5 | " + line);
  EXPECT_EQ(leader(11), "0,0,5 2,0.5,5 2,-0.5,5 0,0,5 | 2,0,5 10,0,5 10,5,5 | ");
  // Of the round ones an end and the middle; the line goes to their edge, where they are not filled.
  EXPECT_THAT(leader(5), testing::MatchesRegex("1,0,5 .* -0.991,0.068,5 .* 1,0,5 . 1,0,5 10,0,5 .*"));
  EXPECT_EQ(leader(12), leader(5));
  EXPECT_THAT(leader(6), testing::MatchesRegex("0,0,5 10,0,5 10,5,5 . A 1,0,5 .* -0.991,0.068,5 .* 0.963,-0.135,5 "));
  EXPECT_THAT(leader(10), testing::MatchesRegex("-1,-0.5,5 .* 0,0,5 .* 1,0.5,5 .*"));
  // Tails that are the same, one that is missing, and one too far away.
  EXPECT_EQ(leader(1, "0.,0.,0.,0.,0.,9."), "-0.5,2,5 0,0,5 0.5,2,5 | 0,0,5 0,0,5 0,9,5 | ");
  EXPECT_EQ(leader(4, "0.,0.,1.,1."), "0,0,5 1,1,5 | ");
  EXPECT_EQ(leader(4, "0.,0.,1.E300,0.,10.,5."), "");
}

TEST(ShapeDrawing, textsStandAsTheirNoteSays) {
  const auto note = [](const std::string& style, const std::string& text = "3HABC") {
    return drawn("212:0 1,3,6.,2.," + style + ",1.,2.,3.," + text);
  };
  EXPECT_EQ(note("1,1.5707963267949,0.,0,0"), "T ABC 1,2,3 6,0 0,2 ");
  EXPECT_EQ(note("1,1.1071487177941,1.5707963267949,0,0"), "T ABC 1,2,3 0,6 -2,1 ");  // up is half as far along
  EXPECT_EQ(note("1,1.1071487177941,0.,1,0"), "T ABC 1,2,3 -6,0 -1,2 ");
  EXPECT_EQ(note("1,0.,0.,2,0"), "T ABC 1,2,3 6,0 0,-2 ");
  EXPECT_EQ(note("1,,0.,0,1"), "T A 1,2,3 2,0 0,2 T B 1,0,3 2,0 0,2 T C 1,-2,3 2,0 0,2 ");
  EXPECT_EQ(note("1,,0.,0,1", "3HA\xC3\x84"), "T A 1,2,3 3,0 0,2 T \xC3\x84 1,-1,3 3,0 0,2 ");
  EXPECT_EQ(note("2001,,0.,0,1", "8H34413B7A"), "T 3441 1,2,3 3,0 0,2 T 3B7A 1,-1,3 3,0 0,2 ");
  EXPECT_EQ(drawn("212:0 1,2,0.,1.,1,,0.,0,0,0.,0.,0.,2HAB"), "T AB 0,0 1.2,0 0,1 ");
  EXPECT_EQ(
      drawn("212:0 3,1,1.,0.,1,,0.,0,0,0.,0.,0.,1HA,0,1.,1.,1,,0.,0,0,0.,0.,0.,,1,1.,1.,1,,0.,0,0,1.E300,0.,0.,1HA"),
      "");
}

TEST(ShapeDrawing, dimensionsAreDrawnWithTheirParts) {
  // A dimension under a matrix, its note under another; a part that is named twice is drawn once.
  const std::string note = "212:0 1,1,1.,1.,1,,0.,0,0,1.,0.,0.,1HA ", leader = "214:4 1,0.,0.,0.,0.,0.,5.,0. ";
  ShapedFile shape("216:0 3,5,5,7,0 " + note + leader + "106:40 1,3,0.,0.,0.,0.,1.,0.,4. " + far_matrix);
  set_matrix(shape, 1, 9);
  EXPECT_EQ(words_of(drawing_of(shape)), "100,0,7 100,5,7 | 99,0,7 96,0,7 | T A 100,1,7 0,1 -1,0 ");
  set_matrix(shape, 3, 9);
  EXPECT_THAT(words_of(drawing_of(shape)), testing::EndsWith("T A 99,100,14 -1,0 0,-1 "));
  shape.file.entity(3)->directory_entry().set_status_flags({1, 1, 1, 0});
  EXPECT_THAT(words_of(drawing_of(shape)), testing::Not(testing::HasSubstr("T A")));

  EXPECT_EQ(drawn("228:0 0,2,3,5,1,7 110:0 0.,0.,0.,1.,0.,0. 116:0 9.,9.,9.,0 " + leader),
            "0,0 1,0 | 0,0 5,0 | P 9,9,9 ");
  EXPECT_EQ(drawn("204:0 0,3,0,5,0,0,0 106:11 1,3,2.,0.,0.,1.,0.,1.,1. " + leader), "0,0,2 1,0,2 1,1,2 | 0,0 5,0 | ");
  EXPECT_EQ(drawn("208:0 1.,2.,3.,0.,3,0 " + note), "1,2,3 2.4,2,3 3.828,3,3 2.4,4,3 1,4,3 1,2,3 | T A 1,0 1,0 0,1 ");
  EXPECT_EQ(drawn("210:0 3,1,5 " + note + leader), "0,0 5,0 | T A 1,0 1,0 0,1 ");
}

TEST(ShapeDrawing, leadersOfAnglesAreArcs) {
  // The leaders go a quarter round each, on both sides; the second one has a tail at its head, and an end off the
  // circle.
  const igsShapeDrawing drawing = drawing_of(ShapedFile(
      "202:0 0,0,0,1.,1.,10.,3,5 214:4 1,0.,0.,2.,11.,1.,1.,11. 214:4 3,0.,0.,2.,11.,1.,11.,1.,1.,-9.,5.,-9."));
  ASSERT_EQ(drawing.lines.size(), 2U);
  for (const std::vector<igsVec3>& line : drawing.lines) {
    EXPECT_GT(line.size(), 4U);
    for (const igsVec3& point : line) {
      if (point == igsVec3{5, -9, 2}) continue;
      EXPECT_NEAR((point - igsVec3{1, 1, 2}).length(), 10, 1e-9);
    }
  }
  expect_near(drawing.lines[0][drawing.lines[0].size() / 2].unit(), igsVec3{8.07, 8.07, 2}.unit(), 0.2);
  EXPECT_EQ(drawing.lines[1].back(), (igsVec3{5, -9, 2}));
}

/// A square, a square hole in it, and how they are filled.
std::string square(const std::string& distance, const std::string& angle = "0.", const std::string& pattern = "1") {
  return "230:0 3," + pattern + ",1.,1.,2.," + distance + ',' + angle +
         ",2,5,5 106:63 1,5,2.,0.,0.,10.,0.,10.,10.,0.,10.,0.,0. 106:63 1,5,2.,2.,2.,8.,2.,8.,8.,2.,8.,2.,2. ";
}

TEST(ShapeDrawing, hatchingIsClippedToItsArea) {
  const std::string outlines = drawn(square("0."));
  EXPECT_EQ(drawn(square("4.")), outlines + "0,1,2 10,1,2 | 0,5,2 2,5,2 | 8,5,2 10,5,2 | 0,9,2 10,9,2 | ");
  EXPECT_EQ(drawn(square("4.", "1.5707963267949")),
            outlines + "9,0,2 9,10,2 | 5,0,2 5,2,2 | 5,8,2 5,10,2 | 1,0,2 1,10,2 | ");
  EXPECT_EQ(drawn(square("4.", "0.", "0")), outlines);
  for (const char* none : {"-1.", "1.E-320", ""}) {
    EXPECT_EQ(drawn(square(none)), outlines) << none;
  }
  // Lines that are too many are drawn in part, all of them within the area.
  const igsShapeDrawing many = drawing_of(ShapedFile(square("1.D-7", "0.5")));
  EXPECT_GT(many.lines.size(), 300U);
  EXPECT_LT(many.lines.size(), 600U);
  for (const std::vector<igsVec3>& line : many.lines) {
    if (line.size() > 2) continue;  // an outline
    const igsVec3 middle = (line[0] + line[1]) * 0.5;
    const double reach = std::max(std::abs(middle.x - 5), std::abs(middle.y - 5));
    EXPECT_TRUE(reach < 5 && reach > 3) << words_of(line);
  }
}
}  // namespace
