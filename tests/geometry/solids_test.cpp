// What hosts do to the lists of boundary representations, and how shells keep track of their faces.

#include <gtest/gtest.h>

#include <climits>

#include "geometry/geometry_fixture.h"
#include "objects/test_node.h"

namespace igs_test {
namespace {
TEST(Solids, RecordsAreValidOnceEverythingIsGiven) {
  igsFile file;
  const igsObjectPtr line(new igs110), none;
  for (int flag = -1; flag <= 2; ++flag) {
    const std::vector<bool> valid{igsOrientedFace(line, flag).valid(), igsOrientedShell(line, flag).valid(),
                                  igsHalfEdge(line, flag).valid()};
    EXPECT_EQ(valid, std::vector<bool>(3, flag == 0 || flag == 1)) << flag;
    EXPECT_FALSE(igsOrientedFace(none, flag).valid() || igsOrientedShell(none, flag).valid() ||
                 igsHalfEdge(none, flag).valid());
  }
  for (int fault = 0; fault <= 5; ++fault) {  // 0 is none
    igsEdge made, copy;
    made.set_curve(fault == 1 ? none : line);
    made.set_first_vertex(fault == 2 ? none : line, fault == 3 ? -1 : 0);
    made.set_second_vertex(fault == 4 ? none : line, fault == 5 ? -1 : INT_MAX);
    copy.become(made);
    EXPECT_EQ(copy.valid(), fault == 0) << fault;
  }
  for (int fault = 0; fault <= 15; ++fault) {  // of either flag value in turn
    const int flag = fault % 2, number = fault / 2;
    igsOrientedEdge made, copy;
    made.set_edge_type(number == 1 ? -1 : number == 2 ? 2 : flag);
    made.set_edge(number == 3 ? none : line, number == 4 ? -1 : 9 * flag);
    made.set_orientation(number == 5 ? -1 : number == 6 ? 2 : flag);
    EXPECT_EQ(made.set_num_half_edges(-1) * 10 + made.set_num_half_edges(2), 1);
    EXPECT_EQ(made.set_half_edge(2, {line, 1}), 0);
    EXPECT_EQ(made.set_half_edge(0, {line, 1}) + made.set_half_edge(1, {line, number == 7 ? 2 : flag}), 2);
    copy.become(made);
    EXPECT_EQ(copy.valid(), number == 0) << fault;
  }
}

TEST(Solids, FacesAreFoundByTheirOriginalPositionsInLinearTime) {
  igsFile file;
  read_entities(file, "514:1 0 108:0 0.,0.,1.,0. 508:1 1,1,7,1,1,0 502:1 1,0.,0.,0.");
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
    EXPECT_TRUE(shell.get_current_index(3 * i) == i && shell.get_original_index(i) == 3 * i) << i;
    EXPECT_EQ(shell.face(i).orientation(), 1);
  }
  for (const int gone : {INT_MIN, 1, 2, INT_MAX}) EXPECT_EQ(shell.get_current_index(gone), -1);
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
    EXPECT_EQ(solid->outer_shell().shell().object(), &entity_of<igs514>(file, de));
    EXPECT_EQ(solid->outer_shell().orientation(), 0);
  }
}
}  // namespace
}  // namespace igs_test
