#include "shape/box_shell.h"
#include "shape/shape_fixture.h"

using namespace igs_test;

namespace {
std::string replaced(std::string text, const std::string& part, const std::string& by) {
  return text.replace(text.find(part), part.size(), by);  // throws where there is no such part
}

/// A solid and its shell, the DE number of which is 3.
std::string solid(int num_faces) { return "186:0 3,1,0 " + box_shell(3, {0, 0, 0}, {1, 2, 3}, num_faces); }

TEST(ShellCheck, edgesOfSolids) {
  const std::string top = "508:1 4,0,41,5,1,0,0,41,6,1,0,0,41,7,1,0,0,41,8,1,0";
  const std::string turned = "508:1 4,0,41,8,0,0,0,41,7,0,0,0,41,6,0,0,0,41,5,0,0";
  // The top's surface looks down. Its loop may run about the normal of the face or that of the surface.
  const std::string looks_down = replaced(replaced(solid(6), "0.,0.,1.,3", "0.,0.,-1.,-3"), "7,1,9", "7,0,9");
  const std::vector<std::string> without_face = {"igsShapeFreeBoundary 15 4 51", "igsShapeFreeEdge 3 41 11 67",
                                                 "igsShapeFreeEdge 3 41 3 51", "igsShapeFreeEdge 3 41 7 59",
                                                 "igsShapeFreeEdge 3 41 8 61"};
  const std::vector<std::string> off_vertex = {
      "igsShapeFaultyBoundary 5 29", "igsShapeVertexOffEdge 41 0.5 0.0037417 0 45 0 0",
      "igsShapeVertexOffEdge 41 0.5 0.0037417 3 51 1 0", "igsShapeVertexOffEdge 41 0.5 0.0037417 8 61 0 1",
      "igsShapeVertexOffSurface 29 0.5 0.0037417 41 5 0 0 0.5"};
  const struct {
    std::string entities;
    std::vector<std::string> found, left;
  } cases[] = {
      {solid(6), {}, {}},
      {looks_down, {}, {}},
      {replaced(looks_down, top, turned), {}, {}},
      {solid(5), without_face, without_face},
      {replaced(solid(6), top, turned),
       {"igsShapeFaceNormals 3 41 4 7 9", "igsShapeFaceNormals 3 41 5 7 11", "igsShapeFaceNormals 3 41 6 7 13",
        "igsShapeFaceNormals 3 41 7 7 15", "igsShapeFaultyBoundary 7 31", "igsShapeLoopOrientation 31 7 1 1"},
       {}},
      {replaced(solid(6), "110:0 0,0,0,1,0,0", "110:0 0.002,0,0,1,0,0"),
       {"igsShapeFaultyBoundary 5 29", "igsShapeFaultyBoundary 9 33", "igsShapeOpenLoop 29 0.002 0.0037417 45 51 3",
        "igsShapeOpenLoop 33 0.002 0.0037417 61 45 3", "igsShapeVertexOffEdge 41 0.002 0.0037417 0 45 0 1"},
       {}},
      {replaced(solid(6), "502:1 8,0,0,0,", "502:1 8,0,0,0.5,"), off_vertex, off_vertex},
  };
  for (const auto& tested : cases) {
    SCOPED_TRACE(tested.entities);
    ShapedFile shaped(tested.entities);
    igsShapeCheck(shaped.file);
    EXPECT_EQ(rounded_errors(shaped.file), tested.found);
    igsFixer().fix(shaped.file.error_log(), 1);
    igsShapeCheck(shaped.file);
    EXPECT_EQ(rounded_errors(shaped.file), tested.left);
  }
}
}  // namespace
