// Boundary representations as a whole: what a fault in one of their entities means to all those above it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "geometry/geometry_fixture.h"
#include "geometry/solid_text.h"
#include "igs/curves/igs110.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/solids/igs186.h"
#include "igs/solids/igs502.h"
#include "igs/solids/igs504.h"
#include "igs/solids/igs508.h"
#include "igs/solids/igs510.h"
#include "igs/solids/igs514.h"
#include "objects/test_node.h"

namespace igs_test {
namespace {
using Found = std::vector<std::string>;
using testing::UnorderedElementsAreArray;

constexpr int faces = 4;
constexpr int loop0 = 15, face0 = 17;  // in the outer shell
constexpr std::size_t type_field = 1, list_field = 2, index_field = 3, direction_field = 4, count_field = 5,
                      flag_field = 6, curve_field = 7;                  // of the first edge of a loop
constexpr std::size_t vertex_list_field = 30, vertex_index_field = 31;  // of its last, a vertex

/// The errors of all entities above this one.
Found above(int de) {
  if (de == SolidText::solid) return {};
  if (de == SolidText::shell) return {"igs186OuterShellInvalidShell 1"};
  if (de == SolidText::void_shell) return {"igs186InnerShellInvalidShell 1 0"};
  const int number = (de - 15) / 4;
  const int shell = number == faces - 1 ? SolidText::void_shell : SolidText::shell;
  Found found = above(shell);
  found.push_back("igs514OrientatedFaceInvalidFace " + std::to_string(shell) +
                  (shell == SolidText::shell ? ' ' + std::to_string(number) : " 0"));
  if (de == SolidText::loop(number)) found.push_back("igs510InvalidLoop " + std::to_string(de + 2) + " 0");
  return found;
}
Found with_above(const std::string& own, int de) {
  Found found = above(de);
  found.push_back(own);
  return found;
}

/// What checking the file finds in its entities.
Found found_in(const SolidText& text) {
  igsFile file;
  EXPECT_EQ(read_text(file, text.text()), 1);
  file.check();
  Found found;
  for (const igsError* error : object_errors(file)) found.push_back(describe(*error));
  return found;
}

std::string rewritten(const std::string& text) {
  igsFile file;
  EXPECT_EQ(read_text(file, text), 1);
  EXPECT_EQ(active_errors(file), Found());
  return written(file);
}

/// Whatever can be done to a file, none of which may end badly.
void put_through_everything(const std::string& text) {
  for (const int delete_faulty : {0, 1}) {
    igsFile file;
    EXPECT_EQ(read_text(file, text), 1);
    for (int de = 1; igsObject* const entity = file.entity(de); de += 2) EXPECT_NE(printed(*entity), "");
    file.clean(delete_faulty);
    EXPECT_EQ(column_fault(written(file)), "");
    igsObjectPtr(file.entity(1)).unreference();
    file.check();
  }
}

TEST(Solids, ASoundSolid) {
  for (const int count : {2, 4, 100}) {
    igsFile file;
    ASSERT_EQ(read_text(file, SolidText(count).text()), 1);
    EXPECT_EQ(entity_of<igs514>(file, 3).number_of_faces(), count - 1);
    file.check();
    EXPECT_EQ(active_errors(file), Found());
    const std::string text = written(file);
    EXPECT_EQ(column_fault(text), "");
    EXPECT_EQ(rewritten(text), text);
    igsObjectPtr solid(file.entity(1));
    solid.unreference();
    EXPECT_EQ(file.num_entities(), 0);
  }
}

TEST(Solids, MalformedReferences) {
  using Text = SolidText;
  const struct {
    int de;
    std::size_t field;
    std::string null_error, wrong_type_error;
    std::vector<int> legal;
  } fields[] = {
      {Text::solid, 0, "igs186OuterShellNullShell 1", "igs186OuterShellWrongShellType 1", {Text::shell}},
      {Text::solid, 3, "igs186InnerShellNullShell 1 0", "igs186InnerShellWrongShellType 1 0", {Text::shell}},
      {Text::shell, 1, "igs514OrientatedFaceNullFace 3 0", "igs514OrientatedFaceWrongFaceType 3 0", {face0}},
      {Text::void_shell, 1, "igs514OrientatedFaceNullFace 5 0", "igs514OrientatedFaceWrongFaceType 5 0", {face0}},
      {face0, 0, "igs510NullSurface 17", "igs510WrongSurfaceType 17", {Text::surface}},
      {face0, 3, "igs510NullLoop 17 0", "igs510WrongLoopType 17 0", {loop0}},
      {loop0,
       list_field,
       "igs508OrientatedEdgeNullList 15 0",
       "igs508OrientatedEdgeWrongListType 15 0",
       {Text::edges, Text::vertices}},
      {loop0,
       vertex_list_field,
       "igs508OrientatedEdgeNullList 15 4",
       "igs508OrientatedEdgeWrongListType 15 4",
       {Text::edges, Text::vertices}},
      {loop0, curve_field, "igs508HalfEdgeNullCurve 15 0,0", "igs508HalfEdgeWrongCurveType 15 0,0", {Text::line}},
      {Text::edges,
       1,
       "igs508OrientatedEdge504EdgeNullCurve 15 0,0",
       "igs508OrientatedEdge504EdgeWrongCurveType 15 0,0",
       {Text::line}},
      {Text::edges,
       2,
       "igs508OrientatedEdge504EdgeNullFirstList 15 0,0",
       "igs508OrientatedEdge504EdgeWrongFirstListType 15 0,0",
       {Text::vertices}},
      {Text::edges,
       4,
       "igs508OrientatedEdge504EdgeNullSecondList 15 0,0",
       "igs508OrientatedEdge504EdgeWrongSecondListType 15 0,0",
       {Text::vertices}},
  };
  const auto expect = [](int de, std::size_t field, const std::string& value, const std::string& error) {
    SCOPED_TRACE(error + " for " + value);
    const SolidText text = SolidText().set(de, field, value);
    EXPECT_THAT(found_in(text), UnorderedElementsAreArray(with_above(error, de == SolidText::edges ? loop0 : de)));
    put_through_everything(text.text());
  };
  const int one_of_each[] = {Text::solid, Text::shell, Text::surface, Text::line, Text::vertices,
                             Text::edges, loop0,       face0};  // the entity itself and what refers to it among them
  for (const auto& f : fields) {
    for (const char* value : {"0", "", "9999999", "2147483647", "-5", "2", "-2147483648"}) {
      expect(f.de, f.field, value, f.null_error);
    }
    for (const int target : one_of_each) {
      if (std::count(f.legal.begin(), f.legal.end(), target) != 0) continue;
      expect(f.de, f.field, std::to_string(target), f.wrong_type_error);
    }
  }
}

TEST(Solids, MalformedIndices) {
  const struct {
    int de;
    std::size_t field;
    int size;
    const char* error;
  } fields[] = {
      {loop0, index_field, 3 * faces, "igs508OrientatedEdge504OffsetOutOfRange 15 0"},
      {loop0, vertex_index_field, 2 * faces, "igs508OrientatedEdge502OffsetOutOfRange 15 4"},
      {SolidText::edges, 3, 2 * faces, "igs508OrientatedEdge504EdgeOutOfRangeFirstListOffset 15 0,0"},
      {SolidText::edges, 5, 2 * faces, "igs508OrientatedEdge504EdgeOutOfRangeSecondListOffset 15 0,0"},
  };
  for (const auto& f : fields) {
    EXPECT_EQ(found_in(SolidText().set(f.de, f.field, std::to_string(f.size))), Found());
    for (const std::string& value :
         {std::string("0"), std::string(), std::to_string(f.size + 1), std::string("2147483647"),
          std::string("-2147483648"), std::string("-2147483647")}) {
      SCOPED_TRACE(f.error + (" for " + value));
      const SolidText text = SolidText().set(f.de, f.field, value);
      EXPECT_THAT(found_in(text), UnorderedElementsAreArray(with_above(f.error, loop0)));
      put_through_everything(text.text());
    }
  }
}

TEST(Solids, AnUnusableCountLosesTheEntity) {
  const struct {
    int de;
    std::size_t field;
    const char* error;
  } fields[] = {
      {SolidText::solid, 2, "igs186BadNumInnerShells 1 "},
      {SolidText::shell, 0, "igs514NoFaces 3"},
      {SolidText::vertices, 0, "igs502NoVertices 11"},
      {SolidText::edges, 0, "igs504NoEdges 13"},
      {loop0, 0, "igs508NoOrientatedEdges 15"},
      {loop0, count_field, "igs508NoOrientatedEdges 15"},
      {face0, 1, "igs510NoLoops 17"},
  };
  for (const auto& f : fields) {
    for (const std::string value : {"-1", "2000000000", "-2147483648"}) {
      SCOPED_TRACE(f.error);
      igsFile file;
      const std::string text = SolidText().set(f.de, f.field, value).text();
      ASSERT_EQ(read_text(file, text), 1);
      EXPECT_EQ(file.entity(f.de), nullptr);
      const std::string error = f.error + (f.de == SolidText::solid ? value : std::string());
      const Found errors = active_errors(file);
      EXPECT_EQ(std::count(errors.begin(), errors.end(), error), 1);
      put_through_everything(text);
    }
  }
}

TEST(Solids, RepairableFaultsEndCleanAtEveryLevel) {
  SolidText base;  // face 0 has a surface, and its first edge curves, of their own
  const int surface = base.add(128, 0, {1, 1, 1, 1, 0, 0, 1, 0, 0, 0, 0, 1, 1, 0, 0, 1, 1, 1, 1,
                                        1, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0, 0, 1, 0, 1});
  const int curve = base.add(106, 12, {2, 2, 0, 0, 0, 1, 0, 0});
  const int half_curve = base.add(106, 12, {2, 2, 0, 0, 0, 1, 0, 0});
  base.set(face0, 0, std::to_string(surface)).set(SolidText::edges, 1, std::to_string(curve));
  base.set(loop0, curve_field, std::to_string(half_curve));
  const std::string polyline_error = "igsPolylineInvalidDimensionality ";
  const struct {
    int de;
    std::size_t field;
    const char *bad, *repaired;
    Found own;
    int first_above;
  } faults[] = {
      {loop0, type_field, "1", "0", {"igs508OrientatedEdgeWrong504EdgeType 15 0"}, loop0},
      {loop0, vertex_list_field - 1, "0", "1", {"igs508OrientatedEdgeWrong502EdgeType 15 4"}, loop0},
      {loop0, direction_field, "7", "1", {"igs508OrientatedEdgeInvalidEdgeDirection 15 0"}, loop0},
      {loop0, flag_field, "-2147483648", "1", {"igs508HalfEdgeInvalidCurveFlag 15 0,0"}, loop0},
      {face0, 2, "-1", "0", {"igs510InvalidOuterLoopFlag 17"}, face0},
      {face0 + 12, 2, "2", "0", {"igs510InvalidOuterLoopFlag 29"}, face0 + 12},
      {SolidText::shell, 2, "5", "1", {"igs514OrientatedFaceInvalidOrientation 3 0"}, SolidText::shell},
      {surface, 4, "7", "0", {"igs128InvalidClosedUFlag 31 7", "igs510InvalidSurface 17"}, face0},
      {curve, 0, "9", "2", {polyline_error + "33 9", "igs508OrientatedEdge504EdgeInvalidCurve 15 0,0"}, loop0},
      {half_curve, 0, "9", "2", {polyline_error + "35 9", "igs508HalfEdgeInvalidCurve 15 0,0"}, loop0},
  };
  for (const auto& f : faults) {
    SCOPED_TRACE(f.own.back());
    igsFile file;
    ASSERT_EQ(read_text(file, SolidText(base).set(f.de, f.field, f.bad).text()), 1);
    file.check();
    Found expected = above(f.first_above);
    expected.insert(expected.end(), f.own.begin(), f.own.end());
    EXPECT_THAT(active_errors(file), UnorderedElementsAreArray(expected));
    file.clean(0);
    EXPECT_EQ(active_errors(file), Found());
    file.check();
    EXPECT_EQ(active_errors(file), Found());
    EXPECT_EQ(written(file), rewritten(SolidText(base).set(f.de, f.field, f.repaired).text()));
  }
}

/// The DE numbers of the outer shell's faces.
std::vector<int> outer_faces(const igsFile& file) {
  std::vector<int> numbers;
  const igs514& shell = entity_of<igs514>(file, SolidText::shell);
  for (int i = 0; i < shell.number_of_faces(); ++i) numbers.push_back(shell.face(i).face().de_number());
  return numbers;
}

// The fault stays in the face, which leaves the shell: shell and solid are sound without it. A fault of an edge in the
// edge list is one of every loop that uses the edge; the list itself is never faulted for it, and stays. A vertex list
// with one undefined vertex is a fault of every edge, whether or not the edge uses that vertex.
TEST(Solids, AFaultThatStaysCostsTheFace) {
  const struct {
    int de;
    std::size_t field;
    const char* value;
    std::vector<int> left;
    Found found_after;         // by a check after clean(0), in entities that are still used
    std::vector<int> deleted;  // by clean(1)
  } cases[] = {
      {face0 + 4, 0, "0", {17, 25}, {}, {21}},
      {face0 + 4, 0, "9", {17, 25}, {}, {21}},
      {loop0 + 4, index_field, "0", {17, 25}, {}, {19, 21}},
      {SolidText::edges, 16, "0", {17, 25}, {}, {19, 21}},      // the lower edge of one face
      {SolidText::edges, 21, "0", {25}, {}, {15, 17, 19, 21}},  // an edge of two faces
      {SolidText::shell, 3, "9", {17, 25}, {}, {}},
      {SolidText::shell, 3, "0", {17, 0, 25}, {"igs514OrientatedFaceNullFace 3 1"}, {1, 3}},
      {SolidText::vertices, 0, "9", {}, {"igs514NoFaces 3"}, {11, 15, 17, 19, 21, 23, 25, 27, 29}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.de) + ' ' + std::to_string(c.field));
    const std::string text = SolidText().set(c.de, c.field, c.value).text();
    igsFile file, deleting;
    ASSERT_EQ(read_text(file, text), 1);
    ASSERT_EQ(read_text(deleting, text), 1);
    deleting.clean(1);
    std::vector<int> deleted;
    for (int de = 1; de < SolidText::loop(faces); de += 2) {
      if (deleting.entity(de) == nullptr) deleted.push_back(de);
    }
    EXPECT_EQ(deleted, c.deleted);
    const igsFileScope current(file);
    file.clean(0);
    EXPECT_EQ(outer_faces(file), c.left);
    file.entity(SolidText::shell)->check();
    Found found;
    for (const std::string& error : active_errors(file)) {
      if (error.find("igs514") == 0 && error.find(" 3") != std::string::npos) found.push_back(error);
    }
    EXPECT_EQ(found, c.found_after);
  }
}

TEST(Solids, WhatIsNotRepaired) {
  const struct {
    int de;
    std::size_t field;
    const char* value;
    const char* error;
  } cases[] = {
      {SolidText::solid, 1, "7", "igs186OuterShellInvalidOrientation 1"},
      {SolidText::solid, 4, "-1", "igs186InnerShellInvalidOrientation 1 0"},
      {SolidText::solid, 3, "17", "igs186InnerShellWrongShellType 1 0"},
      {SolidText::solid, 0, "0", "igs186OuterShellNullShell 1"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.error);
    const std::string text = SolidText().set(c.de, c.field, c.value).text();
    igsFile file;
    ASSERT_EQ(read_text(file, text), 1);
    const std::string before = written(file);
    file.clean(0);
    EXPECT_EQ(active_errors(file), Found{c.error});
    EXPECT_EQ(written(file), before);
  }
}

TEST(Solids, AnOuterShellThatIsNoneIsReplacedByAnEmptyOne) {
  igsFile file;
  ASSERT_EQ(read_text(file, SolidText().set(SolidText::solid, 0, "17").text()), 1);
  igs186& solid = entity_of<igs186>(file);
  EXPECT_EQ(found_by_check(solid), Found{"igs186OuterShellWrongShellType 1"});
  igsError* const error = object_errors(file).front();
  const int before = file.num_entities();
  EXPECT_EQ(error->fix(), 0);
  EXPECT_EQ(error->fix(), 0);  // has been done
  EXPECT_EQ(file.num_entities(), before + 1);
  EXPECT_TRUE(solid.outer_shell().shell()->isa(igs514::type()));
  EXPECT_EQ(&solid.outer_shell().shell()->file(), &file);
  EXPECT_EQ(solid.outer_shell().orientation(), 0);
  EXPECT_THAT(found_by_check(solid), testing::Contains("igs186OuterShellInvalidShell 1"));
  EXPECT_THAT(active_errors(file), testing::Contains("igs514NoFaces " + std::to_string(2 * before + 1)));
}

TEST(Solids, AListWithAFaultIsOneOfItsLoop) {
  igsFile file;
  auto* const vertices = new igs502;  // DE 1
  auto* const edges = new igs504;     // DE 3
  auto* const loop = new igs508;      // DE 5
  EXPECT_EQ(vertices->set_size(2), 1);
  EXPECT_EQ(vertices->set_vertex(1, giPoint3(1, 2, 3)), 1);
  EXPECT_EQ(loop->set_size(3), 1);
  igsOrientedEdge edge;
  edge.set_edge(edges, 0);
  EXPECT_EQ(loop->set_oriented_edge(0, edge), 1);
  edge.set_edge_type(1);
  for (const int i : {0, 1}) {
    edge.set_edge(vertices, i);
    EXPECT_EQ(loop->set_oriented_edge(i + 1, edge), 1);
  }
  EXPECT_EQ(found_by_check(*loop),
            (Found{"igs508OrientatedEdge504OffsetOutOfRange 5 0", "igs504NoEdges 3",
                   "igs508OrientatedEdge504InvalidList 5 0", "igs502InvalidVertex 1 0",
                   "igs508OrientatedEdge502InvalidList 5 1", "igs508OrientatedEdge502InvalidList 5 2"}));
  const std::vector<igsError*> errors = object_errors(file);
  for (const std::size_t i : {2U, 4U, 5U}) EXPECT_EQ(static_cast<igsObjectError*>(errors[i])->obj(), i == 2 ? 3 : 1);
  EXPECT_EQ(errors[2]->fix(), 0);
  EXPECT_EQ(errors[4]->fix(), 0);
  EXPECT_EQ(errors[5]->fix(), 1);  // the vertex in use is sound
  EXPECT_EQ(edges->set_size(1), 1);
  edges->check();
  EXPECT_EQ(errors[2]->fix(), 1);

  igsEdge of_list;
  of_list.set_curve(new igs110);  // DE 7, without end points
  of_list.set_first_vertex(vertices, 0);
  of_list.set_second_vertex(vertices, 1);
  EXPECT_EQ(of_list.first_offset(), 0);
  EXPECT_EQ(edges->set_edge(0, of_list), 1);
  loop->set_size(1);
  EXPECT_THAT(found_by_check(*loop), testing::IsSupersetOf({"igs508OrientatedEdge504EdgeInvalidCurve 5 0,0",
                                                            "igs508OrientatedEdge504EdgeInvalidFirstList 5 0,0",
                                                            "igs508OrientatedEdge504EdgeInvalidSecondList 5 0,0"}));
}

TEST(Solids, UseFlag) {
  for (const std::string use : {"00", "01", "02", "03", "04", "05", "06"}) {
    igsFile file;
    ASSERT_EQ(read_text(file, SolidText().set_status(SolidText::solid, "0000" + use + "00").text()), 1);
    const bool sound = use != "04" && use != "05";
    file.clean(0);
    EXPECT_EQ(fixed_errors(file), sound ? Found() : Found{"igsDEInvalidEntityUse 1 0"}) << use;
    EXPECT_EQ(file.entity(1)->directory_entry().status_flags().entity_use(), sound ? std::stoi(use) : 0);
    EXPECT_EQ(active_errors(file), Found());
  }
}

TEST(Solids, AreExplodedIntoFaces) {
  igsFile file;
  ASSERT_EQ(read_text(file, SolidText().set(SolidText::shell, 2, "0").text()), 1);
  igsObject* const line = file.entity(SolidText::line);
  const auto exploded = [](const std::vector<igsObject*>& members) {
    TestCompound* const compound = make_compound(members);
    EXPECT_EQ(compound->count_142(), 0);
    compound->explode_solids();
    std::vector<int> numbers;
    for (int i = 0; i < compound->number_of_entities(); ++i) numbers.push_back(compound->get_entity(i).de_number());
    return numbers;
  };
  EXPECT_EQ(exploded({line, nullptr, line}), (std::vector<int>{9, 0, 9}));
  EXPECT_EQ(exploded({line, file.entity(1), nullptr}), (std::vector<int>{9, 17, 21, 25, 29, 0}));
  for (const int i : {0, 1, 3}) {
    EXPECT_EQ(entity_of<igs510>(file, SolidText::face(i)).orientation(), i == 0 ? 0 : 1);
    EXPECT_EQ(entity_of<igs510>(file, SolidText::face(i)).solid_id(), 1);
  }
  EXPECT_EQ(exploded({file.entity(SolidText::void_shell), file.entity(1), file.entity(1)}),
            (std::vector<int>{29, 17, 21, 25}));
  EXPECT_EQ(entity_of<igs510>(file, 29).solid_id(), 0);

  igsObjectPtrcoDynArr list;
  entity_of<igs514>(file, SolidText::shell).set_face(0, {});
  entity_of<igs514>(file, SolidText::shell).set_face(1, {line, 1});
  for (const int de : {SolidText::shell, SolidText::solid}) igsCompound::add_514_faces(file.entity(de), list, 77);
  igsCompound::add_514_faces({}, list, 77);
  ASSERT_EQ(list.size(), 2U);
  EXPECT_EQ(list[0].object(), line);
  EXPECT_EQ(entity_of<igs510>(file, list[1].de_number()).solid_id(), 77);
}

TEST(Solids, ManyFaultyFacesTakeLinearTime) {
  igsFile file;
  ASSERT_EQ(read_text(file, SolidText(2).text()), 1);
  igs514& shell = entity_of<igs514>(file, SolidText::shell);
  const int thirds = chain_length / 30;
  shell.set_size(3 * thirds);
  for (int i = 0; i < 3 * thirds; ++i) {
    if (i % 3 == 2) {
      shell.set_face(i, {file.entity(SolidText::line), 7});
      continue;
    }
    auto* const face = new igs510;  // to be repaired, or to be taken out: without loops
    face->set_surface(file.entity(SolidText::surface));
    face->set_size(i % 3 == 0 ? 1 : 0);
    face->set_loop(file.entity(loop0), 0);
    face->set_outer_loop_flag(7);
    shell.set_face(i, {face, 7});
  }
  file.check();
  EXPECT_EQ(shell.num_logged_errors(), 6 * thirds);
  file.clean(0);
  EXPECT_EQ(shell.number_of_faces(), thirds);
  EXPECT_EQ(shell.get_current_index(3 * (thirds - 1)), thirds - 1);
  EXPECT_EQ(shell.get_original_index(1), 3);
  EXPECT_EQ(shell.get_current_index(1), -1);
  EXPECT_EQ(shell.num_logged_errors(), 0);
  file.check();
  EXPECT_EQ(shell.num_logged_errors(), 0);
  EXPECT_EQ(file.entity(SolidText::solid)->num_logged_errors(), 0);
}
}  // namespace
}  // namespace igs_test
