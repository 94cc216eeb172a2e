#include <functional>

#include "shape/shape_fixture.h"

using namespace igs_test;

namespace {
// In millimetres. What is shown is about 140 in size; a minimum resolution of 0.001 and a tolerance of 0.01 go with it.
struct LoopFile {
  explicit LoopFile(const std::string& entities) {
    IgesBuilder builder;
    builder.global(14, "2").global(15, "2HMM").global(19, "0.001");
    std::istringstream words(entities);
    char colon = 0;
    int type = 0, form = 0;
    for (std::string data; words >> type >> colon >> form >> data;) builder.entity(type, form, data);
    if (read_text(file, builder.text()) != 1) throw std::runtime_error("the file cannot be read");
  }

  /// The findings but for free edges of loose faces.
  std::vector<std::string> found() {
    igsShapeCheck(file);
    std::vector<std::string> found = rounded_errors(file);
    std::erase_if(found, [](const std::string& text) { return text.starts_with("igsShapeFreeBoundary"); });
    return found;
  }

  /// What is left when all that can be has been repaired.
  std::vector<std::string> left() {
    found();
    igsFixer().fix(file.error_log(), 1);
    return found();
  }

  igsFile file;
};

std::string line(const std::string& from, const std::string& to) { return "110:0 " + from + ",0.," + to + ",0. "; }

/// A face of a plane, 100 by 100, bounded by the members of a composite curve: 5 surface, 7 composite curve, 9 and on
/// its members. By an igs142, unless the boundary says otherwise.
const std::string plane =
    "128:0 1,1,1,1,0,0,1,0,0,0.,0.,1.,1.,0.,0.,1.,1.,1.,1.,1.,1.,0.,0.,0.,100.,0.,0.,0.,100.,0.,"
    "100.,100.,0.,0.,1.,0.,1. ";
std::string bounded(const std::string& members, const std::string& composite = "102:0 4,9,11,13,15 ") {
  return "142:0 0,5,0,7,2 144:0 5,1,0,1 " + plane + composite + members;
}
std::string square(const std::string& third_corner, const std::string& second = line("90.,10.", "90.,90.")) {
  return line("10.,10.", "90.,10.") + second + line(third_corner, "10.,90.") + line("10.,90.", "10.,10.");
}

TEST(LoopCheck, gapsAreMeasuredInTheBestWayRound) {
  const struct {
    std::string entities;
    std::vector<std::string> found, left;
  } cases[] = {
      {bounded(square("90.,90.")), {}, {}},
      {bounded(square("90.0005,90.")), {}, {}},
      {bounded(square("90.005,90.")), {"igsShapeFaultyBoundary 3 1", "igsShapeLoopGap 1 0.005 0.01 1 11 13"}, {}},
      {bounded(square("90.05,90.")),
       {"igsShapeFaultyBoundary 3 1", "igsShapeLoopGap 1 0.05 0.01 1 11 13"},
       {"igsShapeFaultyBoundary 3 1", "igsShapeLoopGap 1 0.05 0.01 1 11 13"}},
      {bounded(square("90.,90.", line("90.,90.", "90.,10."))),
       {"igsShapeFaultyBoundary 3 1", "igsShapeWrongSense 1 1 11"},
       {}},
      {bounded(square("90.,90.", "106:12 2,3,90.,90.,0.,91.,50.,0.,90.,10.,0. ")),
       {"igsShapeFaultyBoundary 3 1", "igsShapeWrongSense 1 1 11"},
       {}},
      {bounded(square("90.,90.", "126:0 1,1,0,0,1,0,0.,0.,2.,2.,1.,1.,90.,90.,0.,90.,10.,0.,0.,2.,0.,0.,1. ")),
       {"igsShapeFaultyBoundary 3 1", "igsShapeWrongSense 1 1 11"},
       {}},
      {bounded(square("90.,90."), "102:0 3,9,11,13 "),
       {"igsShapeFaultyBoundary 3 1", "igsShapeOpenLoop 1 80 0.01 13 9 2"},
       {"igsShapeFaultyBoundary 3 1", "igsShapeOpenLoop 1 80 0.01 13 9 2"}},
  };
  for (const auto& tested : cases) {
    SCOPED_TRACE(tested.entities);
    EXPECT_EQ(LoopFile(tested.entities).found(), tested.found);
    EXPECT_EQ(LoopFile(tested.entities).left(), tested.left);
  }
}

/// Straight, in the parameter space of a surface.
std::string uv_line(const std::string& from, const std::string& to) { return "110:0 " + from + ",0.," + to + ",0. "; }

/// The square in both spaces: 17 is the composite curve in parameter space, 19 and on its members.
std::string in_both(const std::string& corner, const std::string& model = square("90.,90.")) {
  return "142:0 0,5,17,7,2 144:0 5,1,0,1 " + plane + "102:0 4,9,11,13,15 " + model + "102:0 4,19,21,23,25 " +
         uv_line("0.1,0.1", "0.9,0.1") + uv_line("0.9,0.1", corner) + uv_line(corner, "0.1,0.9") +
         uv_line("0.1,0.9", "0.1,0.1");
}

TEST(LoopCheck, formsSurfaceAndDomainAreHeldAgainstEachOther) {
  const struct {
    std::string entities;
    std::vector<std::string> found;
  } cases[] = {
      {in_both("0.9,0.9"), {}},
      // The members of one form may begin elsewhere and run the other way.
      {in_both("0.9,0.9", line("90.,90.", "90.,10.") + line("90.,10.", "10.,10.") + line("10.,10.", "10.,90.") +
                              line("10.,90.", "90.,90.")),
       {}},
      {in_both("0.9,0.95"), {"igsShapeFaultyBoundary 3 1", "igsShapeTrimFormsDiffer 1 5 0.01 21 11 90 95 0"}},
      // What leaves the domain counts as its end there.
      {in_both("0.9,1.1"),
       {"igsShapeFaultyBoundary 3 1", "igsShapeOutsideDomain 1 10 0.01 21 1 0.9 1.1",
        "igsShapeTrimFormsDiffer 1 10 0.01 21 11 90 100 0"}},
      {bounded(line("10.,10.", "90.,10.") + "106:12 2,3,90.,10.,0.,90.,50.,2.,90.,90.,0. " +
               line("90.,90.", "10.,90.") + line("10.,90.", "10.,10.")),
       {"igsShapeFaultyBoundary 3 1", "igsShapeOffSurface 1 2 0.01 11 3 90 50 2"}},
      {bounded(line("10.,10.", "90.,90.") + line("90.,90.", "90.,10.") + line("90.,10.", "10.,90.") +
               line("10.,90.", "10.,10.")),
       {"igsShapeFaultyBoundary 3 1", "igsShapeSelfIntersection 1 9 13 50 50 0"}},
  };
  for (const auto& tested : cases) {
    SCOPED_TRACE(tested.entities);
    EXPECT_EQ(LoopFile(tested.entities).found(), tested.found);
  }
}

/// A face of the plane with the loops 5, 9 and 13, squares with these corners.
std::string with_holes(const std::vector<std::array<std::string, 2>>& corners) {
  std::string text = "108:0 0.,0.,1.,0.,0,0.,0.,0.,0. 144:0 1,1,2,5,9,13 ";
  for (std::size_t i = 0; i < corners.size(); ++i) {
    text += "142:0 0,1,0," + std::to_string(7 + 4 * i) + ",2 106:12 2,5";
    const auto& [low, high] = corners[i];
    for (const std::string& point :
         {low + ',' + low, high + ',' + low, high + ',' + high, low + ',' + high, low + ',' + low}) {
      text += ',' + point + ",0.";
    }
    text += ' ';
  }
  return text;
}

TEST(LoopCheck, innerLoopsLieInTheOuterOneAndApart) {
  const struct {
    std::vector<std::array<std::string, 2>> corners;
    std::vector<std::string> found;
  } cases[] = {
      {{{"0.", "100."}, {"10.", "20."}, {"30.", "40."}}, {}},
      {{{"0.", "100."}, {"10.", "40."}, {"20.", "30."}}, {"igsShapeLoopInLoop 3 13 9"}},
      {{{"0.", "100."}, {"110.", "120."}, {"20.", "30."}}, {"igsShapeLoopOutside 3 9 5"}},
      {{{"0.", "100."}, {"10.", "40."}, {"30.", "50."}}, {"igsShapeLoopsCross 3 9 13 40 30 0"}},
      {{{"10.", "20."}, {"0.", "100."}, {"30.", "40."}}, {"igsShapeLoopOutside 3 13 5", "igsShapeLoopOutside 3 9 5"}},
      // A loop that touches another one does not cross it.
      {{{"0.", "100."}, {"0.", "20."}, {"20.", "40."}}, {}},
  };
  for (const auto& tested : cases) {
    EXPECT_EQ(LoopFile(with_holes(tested.corners)).found(), tested.found) << with_holes(tested.corners);
  }
}

// Round a cylinder, seam up and down, and half a ball, from pole to pole; both in parameter space alone.
TEST(LoopCheck, seamsAndPolesAreClosed) {
  const std::string turn = "6.28318530717959";
  const std::string cylinder = "120:0 9,11,0.,6.28318530717959 110:0 0.,0.,0.,0.,0.,1. 110:0 50.,0.,0.,50.,0.,80. ";
  const std::string round = uv_line("0.,0.", "0.," + turn) + uv_line("0.," + turn, "1.," + turn) +
                            uv_line("1.," + turn, "1.,0.") + uv_line("1.,0.", "0.,0.");
  const std::string ball = "120:0 9,11,0.,6.28318530717959 110:0 0.,0.,0.,1.,0.,0. 100:0 0.,0.,0.,50.,0.,-50.,0. ";
  const std::string meridians = uv_line("0.,1.", "3.14159265358979,1.") + uv_line("3.14159265358979,2.", "0.,2.");
  EXPECT_EQ(LoopFile("142:0 0,7,5,0,1 144:0 7,1,0,1 102:0 4,13,15,17,19 " + cylinder + round).found(),
            std::vector<std::string>{});
  EXPECT_EQ(LoopFile("142:0 0,7,5,0,1 144:0 7,1,0,1 102:0 2,13,15 " + ball + meridians).found(),
            std::vector<std::string>{});
}
}  // namespace
