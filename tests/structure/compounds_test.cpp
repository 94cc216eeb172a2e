// Lists of entities: what hosts do to them, and how groups, instances and solids among them are taken apart.

#include <gtest/gtest.h>

#include <climits>

#include "geometry/geometry_fixture.h"
#include "objects/test_node.h"

namespace igs_test {
namespace {
/// A point, which is sound.
igsObject* sound() {
  auto* const point = new igs116;
  point->set_point(giPoint3(0, 0, 0));
  return point;
}

template <class T>
T* compound_of(igsObjectPtrcoDynArr members) {
  auto* const made = new T;
  made->set_entities(std::move(members));
  return made;
}

std::string numbers_of(const igsCompound& compound) {
  const int last = compound.number_of_entities() - 1;
  return answers(0, last, [&](int i) { return compound.get_entity(i).de_number(); });
}

TEST(Compounds, CountsAndPositions) {
  igsFile file;
  auto* const compound = new TestCompound;
  const auto current = [&](int i) { return compound->get_current_index(i); };
  EXPECT_EQ(compound->number_of_entities(), igs_unset_int);
  igsObject* const point = sound();
  compound->set_number_of_entities(2);
  EXPECT_EQ(current(1), 1) << "before the first index list";
  EXPECT_TRUE(compound->set_entity(1, point) == 1 && compound->get_entity(1).object() == point);
  for (const int outside : {INT_MIN, -1, 2, INT_MAX}) {
    EXPECT_EQ(compound->set_entity(outside, point), 0);
    EXPECT_EQ(compound->get_entity(outside).object(), nullptr);
    compound->set_index(outside, 0);
    EXPECT_EQ(current(outside), -1);
  }
  compound->set_number_of_entities(-5);
  EXPECT_EQ(compound->number_of_entities() * 10 + compound->get_original_index(0), -51) << "no positions then";
  compound->set_number_of_entities(4);
  EXPECT_EQ(point->num_references(), 0);
  compound->set_index_list();
  const int moved[] = {-1, 0, -1, 1};
  for (int i = 0; i < 4; ++i) compound->set_index(i, moved[i]);
  EXPECT_EQ(answers(0, 3, current), "-1 0 -1 1 ");
  EXPECT_EQ(answers(-1, 2, [&](int i) { return compound->get_original_index(i); }), "0 1 3 -1 ")
      << "the first position that holds the value";
}

TEST(Compounds, TheLastFaultLeftDoesTheWork) {
  igsFile file;
  auto* const subfigure = compound_of<igs308>({nullptr, sound(), nullptr, sound()});
  subfigure->check();
  const std::vector<igsError*> errors = object_errors(file);
  EXPECT_EQ(errors[0]->fix() * 10 + subfigure->number_of_entities(), 14);
  file.error_log().mark_as_fixed(errors[0]);
  EXPECT_EQ(errors[1]->fix(), 1);
  EXPECT_EQ(numbers_of(*subfigure), "1 3 ");
  EXPECT_EQ(answers(0, 3, [&](int i) { return subfigure->get_current_index(i); }), "-1 0 -1 1 ");
  EXPECT_EQ(subfigure->check(), 1);
  EXPECT_EQ(subfigure->get_current_index(1), 1) << "a check starts anew";
}

TEST(Compounds, ListsAreRepairedAgainAfterAnotherCheck) {
  const std::string point = " 116:0 0.,0.,0.", view = " 410:0 1,1.", line = " 110:0 0.,0.,0.,1.,0.,0.",
                    leader = " 214:1 1,1.,1.,0.,0.,0.,1.,1.";
  const std::string cases[][3] = {
      // the list, DE 3 as well as 5, and what is left when the second of these is DE 3
      {"308:0 0,1HA,3,0,3,5", point, "308,0,1HA,1,3;"},
      {"402:7 3,0,3,5", point, "402,1,3;"},
      {"402:3 3,0,0,3,5", view, "402,1,0,3;"},
      {"404:0 3,0,1.,2.,3,3.,4.,5,5.,6.,0", view, "404,1,3,5.,6.,0;"},
      {"404:0 0,3,0,3,5", point, "404,0,1,3;"},
      {"208:0 0.,0.,0.,0.,0,3,0,3,5", leader, "208,0.,0.,0.,0.,0,1,3;"},
      {"228:0 0,3,0,3,5,3,0,3,5", leader, "228,0,1,3,1,3;"},
      {"230:0 5,1,0.,0.,0.,1.,1.,3,0,3,5", line, "230,3,1,0.,0.,0.,1.,1.,1,3;"},
      {"144:0 0,0,3,0,0,3,5", " 142:0 0,0,0,0,0", "144,0,0,1,0,3;"},
  };
  for (const auto& [list, target, repaired] : cases) {
    igsFile file;
    read_entities(file, list + target + target);
    file.clean(0);
    delete file.entity(3);
    file.clean(0);
    EXPECT_EQ(written_data(file), repaired);
  }
}

TEST(Compounds, CurvesOnSurfacesAreCountedInGroupsAndInstances) {
  igsFile file;
  auto* const instance = new igs408;
  auto* const group = compound_of<igs402_7>({new igs142, instance, nullptr});
  instance->set_subfigure(compound_of<igs308>({new igs142, sound(), instance, group}));
  auto* const of_its_own = compound_of<igs308>({new igs142});
  EXPECT_EQ(compound_of<igs308>({group, new igs142, instance, of_its_own})->count_142(), 3);
}

TEST(Compounds, LongListsAndDeepChains) {
  constexpr int length = chain_length / 4;
  igsFile file;
  igsObject* first = sound();
  for (int i = 0; i < length; ++i) first = compound_of<igs402_1>({first});
  auto* const wide = compound_of<igs402_7>(igsObjectPtrcoDynArr(static_cast<std::size_t>(length)));
  wide->set_entity(length / 2, first);
  file.clean(1);
  EXPECT_EQ(file.num_entities(), length + 2);
  EXPECT_EQ(wide->get_current_index(length / 2), 0);
  wide->flatten_groups();
  EXPECT_EQ(numbers_of(*wide), "1 ");
}

TEST(Compounds, FlatteningKeepsTheOrderAndStaysInProportionToTheFile) {
  igsFile file;
  igsObject* const a = sound();  // 1
  igsObject* const b = sound();  // 3
  igsObject* const inner = compound_of<igs402_1>({b, nullptr});
  auto* const cyclic = compound_of<igs402_7>({a, nullptr, inner});
  cyclic->set_entity(1, cyclic);
  auto* const around = compound_of<igs308>({b, cyclic, nullptr, a});
  around->flatten_groups();
  EXPECT_EQ(numbers_of(*around), "3 1 3 0 0 1 ") << "a group within itself gives its members once";
  const auto doubling = [](int levels) {
    igsObject* group = compound_of<igs402_1>({sound(), sound()});
    for (int i = 1; i < levels; ++i) group = compound_of<igs402_1>({group, group});
    return static_cast<igsCompound*>(group);
  };
  igsCompound* const modest = doubling(11);
  modest->flatten_groups();
  EXPECT_EQ(modest->number_of_entities(), 2048);
  igsCompound* const endless = doubling(100);
  endless->flatten_groups();
  ASSERT_EQ(endless->number_of_entities(), 2) << "too many to stand here";
  EXPECT_TRUE(endless->get_entity(1)->isa(igs402_1::type()));
  std::int64_t members = 0;
  igsFileIT entities(&file);
  while (++entities != 0) {
    if (const auto* const compound = igs_cast<igsCompound>(entities())) members += compound->number_of_entities();
  }
  EXPECT_LT(members, 2 * 2 * igsCompound::always_flattened);
}

TEST(Compounds, SolidsGiveTheirFaces) {
  igsFile file;
  igs510* const faces[] = {new igs510, new igs510, new igs510};  // 1, 3, 5
  auto* const shell = new igs514;                                // 7
  auto* const hollow = new igs514;                               // 9
  auto* const solid = new igs186;                                // 11
  igsObject* const point = sound();                              // 13
  shell->set_size(3);
  for (const int i : {0, 2}) shell->set_face(i, {faces[i / 2], i / 2});
  hollow->set_size(1);
  hollow->set_face(0, {faces[2], 1});
  solid->set_outer_shell({shell, 1});
  solid->set_size(1);
  solid->set_void_shell(0, {hollow, 1});
  TestCompound* compound = nullptr;
  const auto exploded = [&](const std::vector<igsObject*>& members) {
    compound = make_compound(members);
    compound->explode_solids();
    return numbers_of(*compound);
  };
  EXPECT_EQ(exploded({point, solid, nullptr}), "13 1 3 5 0 ");
  EXPECT_EQ(answers(0, 2, [&](int i) { return faces[i]->orientation(); }), "0 1 1 ");
  EXPECT_EQ(answers(0, 2, [&](int i) { return faces[i]->solid_id(); }), "11 11 11 ");
  EXPECT_EQ(exploded({hollow, solid, solid}), "5 1 3 5 1 3 5 ");
  exploded(std::vector<igsObject*>(4000, shell));
  EXPECT_EQ(compound->number_of_entities(), 2 * 2500 + 1500) << "too many to stand here";
  EXPECT_EQ(compound->get_entity(2 * 2500 + 1500 - 1).object(), shell);
  EXPECT_EQ(faces[0]->solid_id(), 0);
  igsObjectPtrcoDynArr list;
  shell->set_face(1, {point, 1});
  for (igsObject* const object : {static_cast<igsObject*>(shell), static_cast<igsObject*>(solid), sound()}) {
    igsCompound::add_514_faces(object, list, 77);
  }
  igsCompound::add_514_faces({}, list, 77);
  EXPECT_TRUE(list.size() == 3 && list[1].object() == point && faces[1]->solid_id() == 77);
}

// Every character claims as many motions as are always believed.
TEST(Compounds, AFontHoldsNoMoreMotionsThanItsRecordCanMean) {
  std::string record = "310:0 1,0H,0,8,256";
  for (int i = 0; i < 256; ++i) record += ",65,0,0,256";
  igsFile file;
  read_entities(file, record);
  std::size_t motions = 0;
  for (const igsFontCharacter& character : entity_of<igs310>(file).characters()) motions += character.motions.size();
  EXPECT_LE(motions, 1024U / 3 + 256);
}
}  // namespace
}  // namespace igs_test
