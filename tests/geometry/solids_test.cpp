// What hosts do to the lists of boundary representations, and how shells keep track of their faces.

#include <gtest/gtest.h>

#include <climits>

#include "geometry/geometry_fixture.h"
#include "igs/curves/igs110.h"
#include "igs/solids/igs186.h"
#include "igs/solids/igs504.h"
#include "igs/solids/igs508.h"
#include "igs/solids/igs510.h"
#include "igs/solids/igs514.h"
#include "objects/test_node.h"

namespace igs_test {
namespace {
template <class Record>
std::string printed_record(const Record& record) {
  std::ostringstream text;
  utOstream os(text);
  record.print_pd_data(os);
  return text.str();
}

TEST(Solids, RecordsAreValidOnceEverythingIsGiven) {
  igsFile file;
  const igsObjectPtr line(new igs110), none;
  for (int flag = -1; flag <= 2; ++flag) {
    const bool is_flag = flag == 0 || flag == 1;
    EXPECT_EQ(igsOrientedFace(line, flag).valid(), is_flag) << flag;
    EXPECT_EQ(igsOrientedShell(line, flag).valid(), is_flag) << flag;
    EXPECT_EQ(igsHalfEdge(line, flag).valid(), is_flag) << flag;
    EXPECT_FALSE(igsOrientedFace(none, flag).valid() || igsOrientedShell(none, flag).valid());
    EXPECT_FALSE(igsHalfEdge(none, flag).valid());
  }
  const struct {
    igsObjectPtr curve, list1;
    int i;
    igsObjectPtr list2;
    int j;
    bool valid;
  } edges[] = {{line, line, 0, line, INT_MAX, true}, {none, line, 0, line, 0, false},
               {line, none, 0, line, 0, false},      {line, line, 0, none, 0, false},
               {line, line, -1, line, 0, false},     {line, line, 0, line, -1, false}};
  for (const auto& e : edges) {
    igsEdge made, copy;
    made.set_curve(e.curve);
    made.set_first_vertex(e.list1, e.i);
    made.set_second_vertex(e.list2, e.j);
    copy.become(made);
    EXPECT_EQ(copy.valid(), e.valid) << &e - edges;
  }
  const struct {
    int type;
    igsObjectPtr list;
    int i, orientation;
    igsHalfEdge second;
    bool valid;
  } oriented[] = {
      {0, line, 0, 0, {line, 0}, true},   {1, line, 9, 1, {line, 1}, true},   {2, line, 0, 0, {line, 0}, false},
      {-1, line, 0, 0, {line, 0}, false}, {0, none, 0, 0, {line, 0}, false},  {0, line, -1, 0, {line, 0}, false},
      {0, line, 0, 2, {line, 0}, false},  {0, line, 0, -1, {line, 0}, false}, {0, line, 0, 0, {line, 2}, false}};
  for (const auto& o : oriented) {
    igsOrientedEdge made, copy;
    made.set_edge_type(o.type);
    made.set_edge(o.list, o.i);
    made.set_orientation(o.orientation);
    EXPECT_EQ(made.set_num_half_edges(-1), 0);
    EXPECT_EQ(made.set_num_half_edges(2), 1);
    EXPECT_EQ(made.set_half_edge(2, o.second), 0);
    EXPECT_EQ(made.set_half_edge(0, {line, 1}) + made.set_half_edge(1, o.second), 2);
    copy.become(made);
    EXPECT_EQ(copy.valid(), o.valid) << &o - oriented;
  }
  const std::string null = " = {\n\t(NullPointer)\n}\n";
  EXPECT_EQ(printed_record(igsEdge()), "Curve" + null + "FirstVertexList" + null + "FirstVertexIndex = 0\n" +
                                           "SecondVertexList" + null + "SecondVertexIndex = 0\n");
  EXPECT_EQ(printed_record(igsHalfEdge()), "IsoparametricFlag = 0\nCurve" + null);
  EXPECT_EQ(printed_record(igsOrientedEdge()),
            "EdgeType = 0\nList" + null + "Index = 0\nOrientation = 0\nNumberOfHalfEdges = 0\nHalfEdges = {\n}\n");
  EXPECT_EQ(printed_record(igsOrientedFace()), "Face" + null + "Orientation = 0\n");
  EXPECT_EQ(printed_record(igsOrientedShell()), "Shell" + null + "Orientation = 0\n");
}

TEST(Solids, FacesAreFoundByTheirOriginalPositionsInLinearTime) {
  IgesBuilder builder;
  builder.entity(514, 1, "0");
  builder.entity(108, 0, "0.,0.,1.,0.");
  builder.entity(508, 1, "1,1,7,1,1,0");
  builder.entity(502, 1, "1,0.,0.,0.");
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  auto& shell = entity_of<igs514>(file);
  const int thirds = chain_length / 30;
  shell.set_size(3 * thirds);
  for (int i = 0; i < 3 * thirds; ++i) {  // in turn to be repaired, to be taken out without its loops, and no face
    auto* const face = i % 3 < 2 ? new igs510 : nullptr;
    if (face != nullptr) {
      face->set_surface(file.entity(3));
      face->set_size(i % 3 == 0 ? 1 : 0);
      face->set_loop(file.entity(5), 0);
      face->set_outer_loop_flag(7);
    }
    shell.set_face(i, {face != nullptr ? face : file.entity(3), 7});
  }
  for (const int outside : {-1, 3 * thirds}) EXPECT_EQ(shell.set_face(outside, {file.entity(3), 1}), 0);
  EXPECT_EQ(shell.face(-1).face().object(), nullptr);
  EXPECT_EQ(shell.set_size(-1), 0);
  file.check();
  EXPECT_EQ(shell.num_logged_errors(), 6 * thirds);
  file.clean(0);
  EXPECT_EQ(shell.number_of_faces(), thirds);
  for (const int i : {0, 1, thirds - 1}) {
    EXPECT_EQ(shell.get_current_index(3 * i), i);
    EXPECT_EQ(shell.get_original_index(i), 3 * i);
    EXPECT_EQ(shell.face(i).orientation(), 1);
  }
  for (const int gone : {INT_MIN, -1, 1, 2, 3 * thirds, INT_MAX}) EXPECT_EQ(shell.get_current_index(gone), -1);
  for (const int none : {-2, thirds, INT_MAX}) EXPECT_EQ(shell.get_original_index(none), -1) << none;
  EXPECT_EQ(shell.num_logged_errors(), 0);
  shell.set_index(0, -1);
  EXPECT_EQ(shell.get_current_index(0), -1);
  file.check();
  EXPECT_EQ(shell.get_current_index(0), 0) << "a check starts anew";
  EXPECT_EQ(shell.num_logged_errors(), 0);
}

TEST(Solids, AWrongOuterShellIsReplacedWhateverStandsThereByThen) {
  igsFile file;
  auto* const solid = new igs186;           // DE 1
  solid->set_outer_shell({new igs510, 1});  // DE 3
  EXPECT_EQ(solid->check(), 0);
  igsError* const error = object_errors(file).front();
  for (const int de : {5, 7}) {
    EXPECT_EQ(error->fix(), 0);
    EXPECT_EQ(solid->outer_shell().shell().object(), file.entity(de));
    EXPECT_TRUE(file.entity(de)->isa(igs514::type()));
    EXPECT_EQ(solid->outer_shell().orientation(), 0);
  }
}
}  // namespace
}  // namespace igs_test
