#include "igs/structure/igs308.h"

#include <gtest/gtest.h>

#include "igs/curves/igs116.h"
#include "igs/structure/igs402_1.h"
#include "igs/structure/igs402_7.h"
#include "igs/structure/igs408.h"
#include "igs/surfaces/igs142.h"
#include "objects/test_node.h"
#include "structure/structure_fixture.h"

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

TEST(Subfigure, RepairNotesWhereTheMembersWent) {
  igsFile file;
  igsObject *const second = sound(), *const fourth = sound();
  auto* const subfigure = compound_of<igs308>({nullptr, second, nullptr, fourth});
  EXPECT_EQ(found_by_check(*subfigure),
            (std::vector<std::string>{"igs308NullGeometryPointer 5 0", "igs308NullGeometryPointer 5 2"}));
  const std::vector<igsError*> errors = object_errors(file);
  EXPECT_EQ(errors[0]->fix(), 1);
  EXPECT_EQ(subfigure->number_of_entities(), 4) << "the last fault left does the work";
  file.error_log().mark_as_fixed(errors[0]);
  EXPECT_EQ(errors[1]->fix(), 1);
  ASSERT_EQ(subfigure->number_of_entities(), 2);
  EXPECT_EQ(subfigure->get_entity(0).object(), second);
  EXPECT_EQ(subfigure->get_entity(1).object(), fourth);
  const int current[] = {-1, 0, -1, 1};
  for (int i = 0; i < 4; ++i) EXPECT_EQ(subfigure->get_current_index(i), current[i]) << i;
  EXPECT_TRUE(found_by_check(*subfigure).empty());
  for (int i = 0; i < 2; ++i) EXPECT_EQ(subfigure->get_current_index(i), i) << "a check starts anew";
}

TEST(Subfigure, CyclesAccuseNobody) {
  igsFile file;
  auto* const instance = new igs408;
  instance->set_translation(giPoint3(0, 0, 0));
  auto* const group = compound_of<igs402_7>({instance});
  group->set_entities({instance, group});
  instance->set_subfigure(compound_of<igs308>({sound(), instance, group}));
  for (const int delete_faulty : {0, 1}) {
    file.clean(delete_faulty);
    EXPECT_EQ(active_errors(file), std::vector<std::string>());
    EXPECT_EQ(file.num_entities(), 4);
  }
  EXPECT_EQ(written_data(file, 1), "408,7,0.,0.,0.,1.;");
  EXPECT_NE(printed(file), "");
}

TEST(Subfigure, CountsCurvesOnSurfacesInGroupsAndInstances) {
  igsFile file;
  auto* const instance = new igs408;
  auto* const group = compound_of<igs402_7>({new igs142, instance, nullptr});
  instance->set_subfigure(compound_of<igs308>({new igs142, sound(), instance, group}));
  EXPECT_EQ(compound_of<igs308>({group, new igs142, instance})->count_142(), 3);
}

TEST(Subfigure, ManyFaultyMembersTakeLinearTime) {
  igsFile file;
  igsObjectPtrcoDynArr members;
  for (int i = 0; i < chain_length / 8; ++i) members.insert(members.end(), {new igs408, sound(), nullptr});
  auto* const subfigure = compound_of<igs308>(members);
  file.clean(0);
  EXPECT_EQ(subfigure->number_of_entities(), chain_length / 8);
  EXPECT_EQ(subfigure->num_logged_errors(), 0);
}

TEST(Groups, LongChainsAndManyNullMembers) {
  constexpr int length = chain_length / 4;
  igsFile file;
  igsObject* first = sound();
  for (int i = 0; i < length; ++i) first = compound_of<igs402_1>({first});
  auto* const wide = compound_of<igs402_7>(igsObjectPtrcoDynArr(static_cast<std::size_t>(length)));
  wide->set_entity(length / 2, first);
  file.clean(1);
  EXPECT_EQ(file.num_entities(), length + 2);
  ASSERT_EQ(wide->number_of_entities(), 1);
  EXPECT_EQ(wide->get_entity(0).object(), first);
  EXPECT_EQ(wide->get_current_index(length / 2), 0);
  wide->flatten_groups();
  ASSERT_EQ(wide->number_of_entities(), 1);
  EXPECT_TRUE(wide->get_entity(0)->isa(igs116::type()));
}

TEST(Groups, FlatteningStaysInProportionToTheFile) {
  const auto doubling = [](int levels) {
    igsObject* group = compound_of<igs402_1>({sound(), sound()});
    for (int i = 1; i < levels; ++i) group = compound_of<igs402_1>({group, group});
    return static_cast<igsCompound*>(group);
  };
  igsFile file;
  igsCompound* const modest = doubling(11);
  modest->flatten_groups();
  EXPECT_EQ(modest->number_of_entities(), 2048);
  EXPECT_TRUE(modest->get_entity(2047)->isa(igs116::type()));

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

}  // namespace
}  // namespace igs_test
