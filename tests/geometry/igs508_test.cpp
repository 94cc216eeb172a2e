// The lists of the boundary representation entities, their records and what these print.

#include "igs/solids/igs508.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>

#include "geometry/geometry_fixture.h"
#include "geometry/solid_text.h"
#include "igs/curves/igs110.h"
#include "igs/solids/igs186.h"
#include "igs/solids/igs502.h"
#include "igs/solids/igs504.h"
#include "igs/solids/igs510.h"
#include "igs/solids/igs514.h"

namespace igs_test {
namespace {
using Found = std::vector<std::string>;

template <class Record>
std::string printed_record(const Record& record) {
  std::ostringstream text;
  utOstream os(text);
  record.print_pd_data(os);
  return text.str();
}

const char* const null_pointer = " = {\n\t(NullPointer)\n}\n";

TEST(SolidRecords, AreValidOnceEverythingIsGiven) {
  igsFile file;
  const igsObjectPtr object(new igs110);
  igsEdge edge;
  EXPECT_FALSE(edge.valid());
  edge.set_curve(object);
  edge.set_first_vertex(object, 0);
  EXPECT_FALSE(edge.valid());
  edge.set_second_vertex(object, INT_MAX);
  EXPECT_TRUE(edge.valid());
  igsEdge copy;
  copy.become(edge);
  EXPECT_TRUE(copy.valid());
  for (const int bad : {-1, INT_MIN}) {
    copy.set_first_vertex(object, bad);
    EXPECT_FALSE(copy.valid());
  }

  igsOrientedEdge oriented;
  EXPECT_FALSE(oriented.valid());
  oriented.set_edge(object, 0);
  EXPECT_TRUE(oriented.valid());
  EXPECT_EQ(oriented.set_num_half_edges(-1), 0);
  EXPECT_EQ(oriented.set_num_half_edges(1), 1);
  EXPECT_FALSE(oriented.valid());
  EXPECT_EQ(oriented.set_half_edge(0, {object, 2}), 1);
  EXPECT_EQ(oriented.set_half_edge(1, {object, 1}), 0);
  EXPECT_FALSE(oriented.valid());
  oriented.half_edge_at(0)->set_isoparametric_flag(1);
  EXPECT_TRUE(oriented.valid());
  for (const int bad : {-1, 2}) {
    igsOrientedEdge other;
    other.become(oriented);
    other.set_edge_type(bad);
    EXPECT_FALSE(other.valid());
    other.set_edge_type(1);
    other.set_orientation(bad);
    EXPECT_FALSE(other.valid());
    EXPECT_FALSE(igsOrientedFace(object, bad).valid());
    EXPECT_FALSE(igsOrientedShell(object, bad).valid());
  }
  EXPECT_FALSE(igsOrientedFace({}, 1).valid());
  EXPECT_FALSE(igsOrientedShell({}, 1).valid());
  EXPECT_TRUE(igsOrientedFace(object, 0).valid());
  EXPECT_TRUE(igsOrientedShell(object, 1).valid());
}

TEST(SolidRecords, Print) {
  const std::string null = null_pointer;
  EXPECT_EQ(printed_record(igsEdge()), "Curve" + null + "FirstVertexList" + null + "FirstVertexIndex = 0\n" +
                                           "SecondVertexList" + null + "SecondVertexIndex = 0\n");
  EXPECT_EQ(printed_record(igsHalfEdge()), "IsoparametricFlag = 0\nCurve" + null);
  EXPECT_EQ(printed_record(igsOrientedEdge()),
            "EdgeType = 0\nList" + null + "Index = 0\nOrientation = 0\nNumberOfHalfEdges = 0\nHalfEdges = {\n}\n");
  EXPECT_EQ(printed_record(igsOrientedFace()), "Face" + null + "Orientation = 0\n");
  EXPECT_EQ(printed_record(igsOrientedShell()), "Shell" + null + "Orientation = 0\n");
}

/// A list of an entity seen through its accessors: 0 or 1 for each of set_size and the setting of an element.
struct List {
  const char* name;
  igsObject* (*make)();
  std::function<int(igsObject&, int)> set_size, set;
  std::function<bool(const igsObject&, int)> is_set;
  const char* without;  // what is found in a new entity
  const char* data;     // written with two elements, the second set to refer to entity 3 or to be (1, 2, 3)
  const char* printed;  // of the new entity
};

template <class T>
igsObject* make() {
  return new T;
}
template <class T, class Call>
auto on(Call call) {
  return [call](auto& object, auto... rest) {
    using Object = std::conditional_t<std::is_const_v<std::remove_reference_t<decltype(object)>>, const T, T>;
    return call(static_cast<Object&>(object), rest...);
  };
}
template <class T>
auto set_size() {
  return on<T>([](T& entity, int size) { return entity.set_size(size); });
}

igsEdge edge_of(const igsObjectPtr& object) {
  igsEdge edge;
  edge.set_curve(object);
  edge.set_second_vertex({}, 4);
  return edge;
}
igsOrientedEdge oriented_edge_of(const igsObjectPtr& object) {
  igsOrientedEdge edge;
  edge.set_edge(object, INT_MAX);
  edge.set_num_half_edges(1);
  edge.set_half_edge(0, {object, 1});
  return edge;
}

TEST(SolidLists, ByPosition) {
  const List lists[] = {
      {"igs502", make<igs502>, set_size<igs502>(),
       on<igs502>([](igs502& e, int i) { return e.set_vertex(i, giPoint3(1, 2, 3)); }),
       on<igs502>([](const igs502& e, int i) { return e.vertex(i) == giPoint3(1, 2, 3); }), "igs502NoVertices 1",
       "502,2,-1.7976931348623157D+308,-1.7976931348623157D+308,-1.7976931348623157D+308,1.,2.,3.;",
       "NumberOfVertices = 0\nVertices = {\n}\n"},
      {"igs504", make<igs504>, set_size<igs504>(),
       on<igs504>([](igs504& e, int i) { return e.set_edge(i, edge_of(e.file().entity(3))); }),
       on<igs504>([](const igs504& e, int i) { return e.edge(i).curve().de_number() == 3; }), "igs504NoEdges 1",
       "504,2,0,0,1,0,1,3,0,1,0,5;", "NumberOfEdges = 0\nEdges = {\n}\n"},
      {"igs508", make<igs508>, set_size<igs508>(),
       on<igs508>([](igs508& e, int i) { return e.set_oriented_edge(i, oriented_edge_of(e.file().entity(3))); }),
       on<igs508>([](const igs508& e, int i) { return e.oriented_edge(i).half_edge(0).curve().de_number() == 3; }),
       "igs508NoOrientatedEdges 1", "508,2,0,0,1,0,0,0,3,2147483647,0,1,1,3;",
       "NumberOfOrientedEdges = 0\nOrientedEdges = {\n}\n"},
      {"igs510", make<igs510>, set_size<igs510>(),
       on<igs510>([](igs510& e, int i) { return e.set_loop(e.file().entity(3), i); }),
       on<igs510>([](const igs510& e, int i) { return e.loop(i).de_number() == 3; }), "igs510NoLoops 1",
       "510,0,2,0,0,3;", "Surface = {\n\t(NullPointer)\n}\nNumberOfLoops = 0\nOuterLoopFlag = 0\nLoops = {\n}\n"},
      {"igs514", make<igs514>, set_size<igs514>(), on<igs514>([](igs514& e, int i) {
         return e.set_face(i, {e.file().entity(3), 1});
       }),
       on<igs514>([](const igs514& e, int i) { return e.face(i).face().de_number() == 3; }), "igs514NoFaces 1",
       "514,2,0,0,3,1;", "NumberOfFaces = 0\nFaces = {\n}\n"},
      {"igs186", make<igs186>, set_size<igs186>(), on<igs186>([](igs186& e, int i) {
         return e.set_void_shell(i, {e.file().entity(3), 1});
       }),
       on<igs186>([](const igs186& e, int i) { return e.void_shell(i).shell().de_number() == 3; }),
       "igs186OuterShellNullShell 1", "186,0,0,2,0,0,3,1;",
       "OuterShell = {\n\tShell = {\n\t\t(NullPointer)\n\t}\n\tOrientation = 0\n}\nNumberOfVoidShells = 0\n"
       "VoidShells = {\n}\n"},
  };
  for (const List& list : lists) {
    SCOPED_TRACE(list.name);
    igsFile file;
    igsObject& entity = *list.make();
    const igsObject* const referenced = new igs110;
    EXPECT_EQ(printed_data(entity), list.printed);
    entity.check();
    const Found found = active_errors(file);
    EXPECT_EQ(std::count(found.begin(), found.end(), list.without), 1);
    EXPECT_EQ(list.set_size(entity, -1), 0);
    EXPECT_EQ(list.set_size(entity, 3), 1);
    for (const int outside : {-1, 3, INT_MIN, INT_MAX}) {
      EXPECT_EQ(list.set(entity, outside), 0);
      EXPECT_FALSE(list.is_set(entity, outside));
    }
    for (const int i : {1, 2}) {
      EXPECT_FALSE(list.is_set(entity, i));
      EXPECT_EQ(list.set(entity, i), 1);
      EXPECT_TRUE(list.is_set(entity, i));
    }
    const int references = referenced->num_references();
    EXPECT_EQ(list.set_size(entity, 2), 1);
    EXPECT_EQ(referenced->num_references(), references / 2);
    EXPECT_EQ(written_data(file), list.data);
    entity.unreference_children();
    EXPECT_EQ(file.num_entities(), references > 0 ? 1 : 2);
  }
}

TEST(Igs508, PrintsPositionsFromZero) {
  igsFile file;
  ASSERT_EQ(read_text(file, SolidText(2).text()), 1);
  igs508& loop = entity_of<igs508>(file, SolidText::loop(1));
  loop.set_size(1);
  igsOrientedEdge edge = loop.oriented_edge(0);
  edge.set_edge({}, edge.index());
  edge.set_half_edge(0, {});
  loop.set_oriented_edge(0, edge);
  EXPECT_EQ(printed_data(loop),
            "NumberOfOrientedEdges = 1\nOrientedEdges = {\n\t(0) = {\n\t\tEdgeType = 0\n\t\tList = {\n"
            "\t\t\t(NullPointer)\n\t\t}\n\t\tIndex = 3\n\t\tOrientation = 1\n\t\tNumberOfHalfEdges = 1\n"
            "\t\tHalfEdges = {\n\t\t\t(0) = {\n\t\t\t\tIsoparametricFlag = 0\n\t\t\t\tCurve = {\n"
            "\t\t\t\t\t(NullPointer)\n\t\t\t\t}\n\t\t\t}\n\t\t}\n\t}\n}\n");
}

TEST(Igs514, FacesAreFoundByTheirOriginalPositions) {
  igsFile file;
  ASSERT_EQ(read_text(file, SolidText(6).text()), 1);
  igs514& shell = entity_of<igs514>(file, SolidText::shell);
  for (const int i : {0, 2, 3}) shell.set_face(i, {shell.face(i).face(), 7});
  shell.set_face(1, {file.entity(SolidText::line), 1});
  entity_of<igs510>(file, SolidText::face(2)).set_size(0);
  shell.check();
  std::vector<igsError*> errors;
  for (igsError* error : object_errors(file)) {
    if (static_cast<igsObjectError*>(error)->key() == SolidText::shell) errors.push_back(error);
  }
  Found found;
  for (const igsError* error : errors) found.push_back(describe(*error));
  ASSERT_EQ(found, (Found{"igs514OrientatedFaceInvalidOrientation 3 0", "igs514OrientatedFaceWrongFaceType 3 1",
                          "igs514OrientatedFaceInvalidFace 3 2", "igs514OrientatedFaceInvalidOrientation 3 2",
                          "igs514OrientatedFaceInvalidOrientation 3 3"}));
  EXPECT_EQ(static_cast<igsObjectError*>(errors[2])->obj(), SolidText::face(2));
  EXPECT_EQ(errors[2]->fix(), 1);  // takes face 1 out, too
  EXPECT_EQ(errors[1]->fix(), 1);
  EXPECT_EQ(errors[3]->fix(), 1);  // gone with the face
  EXPECT_EQ(errors[4]->fix(), 1);
  EXPECT_EQ(errors[0]->fix(), 1);
  const int current[] = {0, -1, -1, 1, 2}, original[] = {0, 3, 4};
  for (int i = -1; i <= 5; ++i) EXPECT_EQ(shell.get_current_index(i), i < 0 || i > 4 ? -1 : current[i]) << i;
  for (int i = -1; i <= 3; ++i) EXPECT_EQ(shell.get_original_index(i), i < 0 || i > 2 ? -1 : original[i]) << i;
  ASSERT_EQ(shell.number_of_faces(), 3);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(shell.face(i).face().de_number(), SolidText::face(original[i]));
    EXPECT_EQ(shell.face(i).orientation(), 1);
  }
  shell.set_index(0, -1);
  EXPECT_EQ(shell.get_current_index(0), -1);
  shell.check();
  EXPECT_EQ(shell.num_logged_errors(), 0);
  EXPECT_EQ(shell.get_current_index(0), 0);
}
}  // namespace
}  // namespace igs_test
