// Lists of entities: what hosts do to them, and how groups, instances and solids among them are taken apart.

#include "igs/structure/igsCompound.h"

#include <gtest/gtest.h>

#include <climits>

#include "geometry/geometry_fixture.h"
#include "igs/curves/igs116.h"
#include "igs/solids/igs186.h"
#include "igs/solids/igs510.h"
#include "igs/solids/igs514.h"
#include "igs/structure/igs308.h"
#include "igs/structure/igs310.h"
#include "igs/structure/igs402_1.h"
#include "igs/structure/igs402_7.h"
#include "igs/structure/igs408.h"
#include "igs/surfaces/igs142.h"
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

std::vector<int> numbers_of(const igsCompound& compound) {
  std::vector<int> numbers;
  for (const igsObjectPtr& member : compound.entities()) numbers.push_back(member.de_number());
  return numbers;
}

TEST(Compounds, CountsAndPositions) {
  igsFile file;
  auto* const compound = new TestCompound;
  EXPECT_EQ(compound->number_of_entities(), igs_unset_int);
  compound->set_index_list();
  EXPECT_EQ(compound->get_current_index(0), -1);
  igsObject* const point = sound();
  compound->set_number_of_entities(2);
  EXPECT_EQ(compound->get_current_index(1), 1) << "before the first index list";
  EXPECT_EQ(compound->set_entity(1, point), 1);
  EXPECT_EQ(compound->get_entity(1).object(), point);
  for (const int outside : {INT_MIN, -1, 2, INT_MAX}) {
    EXPECT_EQ(compound->set_entity(outside, point), 0);
    EXPECT_EQ(compound->get_entity(outside).object(), nullptr);
    compound->set_index(outside, 0);
    EXPECT_EQ(compound->get_current_index(outside), -1);
  }
  compound->set_number_of_entities(-5);
  EXPECT_EQ(compound->number_of_entities(), -5);
  EXPECT_EQ(compound->get_original_index(0), -1) << "a count below 1 has no positions";
  compound->set_number_of_entities(4);
  EXPECT_EQ(point->num_references(), 0);
  compound->set_index_list();
  const int moved[] = {-1, 0, -1, 1};
  for (int i = 0; i < 4; ++i) compound->set_index(i, moved[i]);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(compound->get_current_index(i), moved[i]);
  EXPECT_EQ(compound->get_original_index(1), 3);
  EXPECT_EQ(compound->get_original_index(-1), 0) << "the first position that holds the value";
  EXPECT_EQ(compound->get_original_index(2), -1);
}

TEST(Compounds, TheLastFaultLeftDoesTheWork) {
  igsFile file;
  auto* const subfigure = compound_of<igs308>({nullptr, sound(), nullptr, sound()});
  subfigure->check();
  const std::vector<igsError*> errors = object_errors(file);
  EXPECT_EQ(errors[0]->fix(), 1);
  EXPECT_EQ(subfigure->number_of_entities(), 4);
  file.error_log().mark_as_fixed(errors[0]);
  EXPECT_EQ(errors[1]->fix(), 1);
  EXPECT_EQ(numbers_of(*subfigure), (std::vector<int>{1, 3}));
  const int current[] = {-1, 0, -1, 1};
  for (int i = 0; i < 4; ++i) EXPECT_EQ(subfigure->get_current_index(i), current[i]) << i;
  EXPECT_EQ(subfigure->check(), 1);
  EXPECT_EQ(subfigure->get_current_index(1), 1) << "a check starts anew";
}

TEST(Compounds, ListsAreRepairedAgainAfterAnotherCheck) {
  const struct {
    int type, form;
    const char* data;
    int target;                          // type of DE 3 and 5
    const char *target_data, *repaired;  // where the second one is DE 3
  } cases[] = {
      {308, 0, "0,1HA,3,0,3,5", 116, "0.,0.,0.", "308,0,1HA,1,3;"},
      {402, 7, "3,0,3,5", 116, "0.,0.,0.", "402,1,3;"},
      {402, 3, "3,0,0,3,5", 410, "1,1.", "402,1,0,3;"},
      {404, 0, "3,0,1.,2.,3,3.,4.,5,5.,6.,0", 410, "1,1.", "404,1,3,5.,6.,0;"},
      {404, 0, "0,3,0,3,5", 116, "0.,0.,0.", "404,0,1,3;"},
      {208, 0, "0.,0.,0.,0.,0,3,0,3,5", 214, "1,1.,1.,0.,0.,0.,1.,1.", "208,0.,0.,0.,0.,0,1,3;"},
      {228, 0, "0,3,0,3,5,3,0,3,5", 214, "1,1.,1.,0.,0.,0.,1.,1.", "228,0,1,3,1,3;"},
      {230, 0, "5,1,0.,0.,0.,1.,1.,3,0,3,5", 110, "0.,0.,0.,1.,0.,0.", "230,3,1,0.,0.,0.,1.,1.,1,3;"},
      {144, 0, "0,0,3,0,0,3,5", 142, "0,0,0,0,0", "144,0,0,1,0,3;"},
  };
  for (const auto& c : cases) {
    IgesBuilder builder;
    builder.entity(c.type, c.form, c.data);
    for (int i = 0; i < 2; ++i) builder.entity(c.target, c.target == 214 ? 1 : 0, c.target_data);
    igsFile file;
    ASSERT_EQ(read_text(file, builder.text()), 1);
    file.clean(0);
    delete file.entity(3);
    file.clean(0);
    EXPECT_EQ(written_data(file), c.repaired);
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
  ASSERT_EQ(wide->number_of_entities(), 1);
  EXPECT_EQ(wide->get_current_index(length / 2), 0);
  wide->flatten_groups();
  EXPECT_EQ(numbers_of(*wide), std::vector<int>{1});
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
  EXPECT_EQ(numbers_of(*around), (std::vector<int>{3, 1, 3, 0, 0, 1}))
      << "a group within itself gives its members once";
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
    const auto* const compound = igs_cast<igsCompound>(entities());
    if (compound != nullptr) members += compound->number_of_entities();
  }
  EXPECT_LT(members, 2 * 2 * igsCompound::always_flattened);
}

TEST(Compounds, SolidsGiveTheirFaces) {
  igsFile file;
  igsObject* const faces[] = {new igs510, new igs510, new igs510};  // 1, 3, 5
  auto* const shell = new igs514;                                   // 7
  auto* const hollow = new igs514;                                  // 9
  auto* const solid = new igs186;                                   // 11
  shell->set_size(3);
  for (const int i : {0, 2}) shell->set_face(i, {faces[i / 2], i / 2});
  hollow->set_size(1);
  hollow->set_face(0, {faces[2], 1});
  solid->set_outer_shell({shell, 1});
  solid->set_size(1);
  solid->set_void_shell(0, {hollow, 1});
  igsObject* const point = sound();  // 13
  const auto exploded = [](const std::vector<igsObject*>& members) {
    TestCompound* const compound = make_compound(members);
    compound->explode_solids();
    return numbers_of(*compound);
  };
  EXPECT_EQ(exploded({point, nullptr, point}), (std::vector<int>{13, 0, 13}));
  EXPECT_EQ(exploded({point, solid, nullptr}), (std::vector<int>{13, 1, 3, 5, 0}));
  for (const int i : {0, 1, 2}) {
    EXPECT_EQ(static_cast<igs510*>(faces[i])->orientation(), i == 0 ? 0 : 1);
    EXPECT_EQ(static_cast<igs510*>(faces[i])->solid_id(), 11);
  }
  EXPECT_EQ(exploded({hollow, solid, solid}), (std::vector<int>{5, 1, 3, 5, 1, 3, 5}));
  EXPECT_EQ(exploded({shell, shell}), (std::vector<int>{1, 3, 1, 3}));
  const std::vector<int> endless = exploded(std::vector<igsObject*>(4000, shell));
  EXPECT_EQ(endless.size(), 2 * 2500 + 1500) << "too many to stand here";
  EXPECT_EQ(endless.back(), 7);
  EXPECT_EQ(static_cast<igs510*>(faces[0])->solid_id(), 0);
  igsObjectPtrcoDynArr list;
  shell->set_face(1, {point, 1});
  for (igsObject* const object : {static_cast<igsObject*>(shell), static_cast<igsObject*>(solid)}) {
    igsCompound::add_514_faces(object, list, 77);
  }
  igsCompound::add_514_faces({}, list, 77);
  ASSERT_EQ(list.size(), 3U);
  EXPECT_EQ(list[1].object(), point);
  EXPECT_EQ(static_cast<igs510*>(faces[1])->solid_id(), 77);
}

// Every character claims as many motions as are always believed.
TEST(Compounds, AFontHoldsNoMoreMotionsThanItsRecordCanMean) {
  std::string record = "1,0H,0,8,256";
  for (int i = 0; i < 256; ++i) record += ",65,0,0,256";
  IgesBuilder builder;
  builder.entity(310, 0, record);
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  std::size_t motions = 0;
  for (const igsFontCharacter& character : entity_of<igs310>(file).characters()) motions += character.motions.size();
  EXPECT_LE(motions, 1024U / 3 + 256);
}
}  // namespace
}  // namespace igs_test
