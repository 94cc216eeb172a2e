// What hosts do to the lists of boundary representations, and how shells keep track of their faces.

#include <gtest/gtest.h>

#include <climits>
#include <functional>

#include "geometry/geometry_fixture.h"
#include "igs/curves/igs110.h"
#include "igs/solids/igs186.h"
#include "igs/solids/igs502.h"
#include "igs/solids/igs504.h"
#include "igs/solids/igs508.h"
#include "igs/solids/igs510.h"
#include "igs/solids/igs514.h"
#include "objects/test_node.h"

namespace igs_test {
namespace {
TEST(Solids, RecordsAreValidOnceEverythingIsGiven) {
  igsFile file;
  const igsObjectPtr object(new igs110);
  const auto edge = [](const igsObjectPtr& curve, const igsObjectPtr& list1, int i, const igsObjectPtr& list2, int j) {
    igsEdge made;
    made.set_curve(curve);
    made.set_first_vertex(list1, i);
    made.set_second_vertex(list2, j);
    igsEdge copy;
    copy.become(made);
    return copy.valid();
  };
  EXPECT_TRUE(edge(object, object, 0, object, INT_MAX));
  EXPECT_FALSE(edge({}, object, 0, object, 0));
  EXPECT_FALSE(edge(object, {}, 0, object, 0));
  EXPECT_FALSE(edge(object, object, 0, {}, 0));
  EXPECT_FALSE(edge(object, object, -1, object, 0));
  EXPECT_FALSE(edge(object, object, 0, object, INT_MIN));
  const auto oriented = [&object](int type, const igsObjectPtr& list, int i, int orientation, const igsHalfEdge& half) {
    igsOrientedEdge made;
    made.set_edge_type(type);
    made.set_edge(list, i);
    made.set_orientation(orientation);
    EXPECT_EQ(made.set_num_half_edges(-1), 0);
    EXPECT_EQ(made.set_num_half_edges(2), 1);
    EXPECT_EQ(made.set_half_edge(2, half), 0);
    EXPECT_EQ(made.set_half_edge(0, {object, 1}) + made.set_half_edge(1, half), 2);
    igsOrientedEdge copy;
    copy.become(made);
    return copy.valid();
  };
  const igsHalfEdge half(object, 0);
  for (const int flag : {0, 1}) {
    EXPECT_TRUE(oriented(flag, object, 0, flag, half));
    EXPECT_TRUE(igsOrientedFace(object, flag).valid());
    EXPECT_TRUE(igsOrientedShell(object, flag).valid());
    EXPECT_FALSE(igsOrientedFace({}, flag).valid());
    EXPECT_FALSE(igsOrientedShell({}, flag).valid());
  }
  for (const int bad : {-1, 2}) {
    EXPECT_FALSE(oriented(bad, object, 0, 1, half));
    EXPECT_FALSE(oriented(0, object, 0, bad, half));
    EXPECT_FALSE(oriented(0, object, 0, 0, {object, bad}));
    EXPECT_FALSE(igsOrientedFace(object, bad).valid());
    EXPECT_FALSE(igsOrientedShell(object, bad).valid());
  }
  EXPECT_FALSE(oriented(0, {}, 0, 0, half));
  EXPECT_FALSE(oriented(0, object, -1, 0, half));
  EXPECT_FALSE(oriented(0, object, 0, 0, {{}, 0}));
}

/// A list of an entity seen through its accessors; `set` and `is_set` put a reference to the line, or (1, 2, 3), there.
struct List {
  igsObject* entity;
  std::function<int(int)> set_size, set;
  std::function<bool(int)> is_set;
  std::string data;  // written with two elements, the second one set
};

template <class T, class Set, class Get>
List list_of(std::string data, Set set, Get is_set) {
  T* const entity = new T;
  return {entity, [=](int size) { return entity->set_size(size); }, [=](int i) { return set(*entity, i); },
          [=](int i) { return is_set(*entity, i); }, std::move(data)};
}

TEST(Solids, ListsByPosition) {
  igsFile file;
  const igsObjectPtr line(new igs110);  // 1
  const std::string unset = "-1.7976931348623157D+308";
  const List lists[] = {
      list_of<igs502>(
          "502,2," + unset + ',' + unset + ',' + unset + ",1.,2.,3.;",
          [](igs502& e, int i) { return e.set_vertex(i, giPoint3(1, 2, 3)); },
          [](const igs502& e, int i) { return e.vertex(i) == giPoint3(1, 2, 3); }),
      list_of<igs504>(
          "504,2,0,0,1,0,1,1,0,1,0,5;",
          [&line](igs504& e, int i) {
            igsEdge edge;
            edge.set_curve(line);
            edge.set_second_vertex({}, 4);
            return e.set_edge(i, edge);
          },
          [&line](const igs504& e, int i) { return e.edge(i).curve() == line; }),
      list_of<igs508>(
          "508,2,0,0,1,0,0,0,1,2147483647,0,0;",
          [&line](igs508& e, int i) {
            igsOrientedEdge edge;
            edge.set_edge(line, INT_MAX);
            return e.set_oriented_edge(i, edge);
          },
          [&line](const igs508& e, int i) { return e.oriented_edge(i).list() == line; }),
      list_of<igs510>(
          "510,0,2,0,0,1;", [&line](igs510& e, int i) { return e.set_loop(line, i); },
          [&line](const igs510& e, int i) { return e.loop(i) == line; }),
      list_of<igs514>(
          "514,2,0,0,1,1;",
          [&line](igs514& e, int i) {
            return e.set_face(i, {line, 1});
          },
          [&line](const igs514& e, int i) { return e.face(i).face() == line; }),
      list_of<igs186>(
          "186,0,0,2,0,0,1,1;",
          [&line](igs186& e, int i) {
            return e.set_void_shell(i, {line, 1});
          },
          [&line](const igs186& e, int i) { return e.void_shell(i).shell() == line; }),
  };
  for (const List& list : lists) {
    SCOPED_TRACE(list.data);
    EXPECT_EQ(list.set_size(-1), 0);
    EXPECT_EQ(list.set_size(3), 1);
    for (const int outside : {-1, 3, INT_MIN, INT_MAX}) {
      EXPECT_EQ(list.set(outside), 0);
      EXPECT_FALSE(list.is_set(outside));
    }
    for (const int i : {1, 2}) {
      EXPECT_FALSE(list.is_set(i));
      EXPECT_EQ(list.set(i), 1);
      EXPECT_TRUE(list.is_set(i));
    }
    EXPECT_EQ(list.set_size(2), 1);
    EXPECT_EQ(written_data(file, list.entity->de_number()), list.data);
    EXPECT_EQ(line->num_references(), list.data[1] == '0' && list.data[2] == '2' ? 1 : 2);
    list.entity->unreference_children();
    EXPECT_EQ(line->num_references(), 1);
  }
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
}  // namespace
}  // namespace igs_test
