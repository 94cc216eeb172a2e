#include "igs/catalogue/igsFactory.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <string>

#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/objects/igsObject.h"

namespace {

struct Row {
  int type, min_form, max_form;
  const char *name, *parent;
};
void PrintTo(const Row& row, std::ostream* os) { *os << row.name; }

/// One row a class. A new entity class adds its own.
const Row rows[] = {
    {-1, INT_MIN + 1, INT_MAX, "igsUnknown", "igsObject"},
    {0, INT_MIN + 1, INT_MAX, "igsNull", "igsObject"},
    {100, 0, 0, "igs100", "igsTrimmedConic"},
    {102, 0, 0, "igs102", "igsCurve"},
    {104, 0, 3, "igs104", "igsTrimmedConic"},
    {106, 1, 3, "igsPointset", "igsObject"},
    {106, 11, 13, "igsPolyline", "igsCurve"},
    {106, 20, 21, "igsCentreLine", "igs106Base"},
    {106, 31, 38, "igsSection", "igs106Base"},
    {106, 40, 40, "igsWitnessLine", "igs106Base"},
    {106, 63, 63, "igsSimpleClosedPlanarCurve", "igsCurve"},
    {108, -1, 1, "igs108", "igsUnparameterizedSurface"},
    {110, 0, 0, "igs110", "igsCurve"},
    {112, 0, 0, "igs112", "igsCurve"},
    {114, 0, 0, "igs114", "igsParameterizedSurface"},
    {116, 0, 0, "igs116", "igsObject"},
    {118, 0, 1, "igs118", "igsParameterizedSurface"},
    {120, 0, 0, "igs120", "igsParameterizedSurface"},
    {122, 0, 0, "igs122", "igsParameterizedSurface"},
    {123, 0, 0, "igs123", "igsObject"},
    {124, 0, 1, "igs124", "igsObject"},
    {126, 0, 5, "igs126", "igsCurve"},
    {128, 0, 9, "igs128", "igsParameterizedSurface"},
    {130, 0, 0, "igs130", "igsCurve"},
    {140, 0, 0, "igs140", "igsParameterizedSurface"},
    {141, 0, 0, "igs141", "igsObject"},
    {142, 0, 0, "igs142", "igsObject"},
    {143, 0, 0, "igs143", "igsObject"},
    {144, 0, 0, "igs144", "igsObject"},
    {186, 0, 0, "igs186", "igsSolid"},
    {190, 0, 0, "igs190_0", "igsUnparameterizedSurface"},
    {190, 1, 1, "igs190_1", "igsParameterizedSurface"},
    {192, 0, 0, "igs192_0", "igsUnparameterizedSurface"},
    {192, 1, 1, "igs192_1", "igsParameterizedSurface"},
    {194, 0, 0, "igs194_0", "igsUnparameterizedSurface"},
    {194, 1, 1, "igs194_1", "igsParameterizedSurface"},
    {196, 0, 0, "igs196_0", "igsUnparameterizedSurface"},
    {196, 1, 1, "igs196_1", "igsParameterizedSurface"},
    {198, 0, 0, "igs198_0", "igsUnparameterizedSurface"},
    {198, 1, 1, "igs198_1", "igsParameterizedSurface"},
    {202, 0, 0, "igs202", "igsDimension"},
    {204, 0, 0, "igs204", "igsDimension"},
    {206, 0, 0, "igs206", "igsDimension"},
    {208, 0, 0, "igs208", "igsDimension"},
    {210, 0, 0, "igs210", "igs208"},
    {212, 0, 105, "igs212", "igsAnnotation"},
    {214, 1, 12, "igs214", "igsAnnotation"},
    {216, 0, 2, "igs216", "igsDimension"},
    {218, 0, 1, "igs218", "igsDimension"},
    {220, 0, 0, "igs220", "igsDimension"},
    {222, 0, 1, "igs222", "igsDimension"},
    {228, 0, 1, "igs228", "igsDimension"},
    {230, 0, 0, "igs230", "igsAnnotation"},
    {304, 1, 1, "igs304_1", "igsStructure"},
    {304, 2, 2, "igs304_2", "igsStructure"},
    {308, 0, 0, "igs308", "igsCompound"},
    {310, 0, 0, "igs310", "igsStructure"},
    {312, 0, 1, "igs312", "igsStructure"},
    {314, 0, 0, "igs314", "igsStructure"},
    {402, 1, 1, "igs402_1", "igsGroup"},
    {402, 14, 15, "igsGroup", "igsCompound"},
    {402, 16, 16, "igs402_16", "igsGroup"},
    {402, 3, 3, "igs402_3", "igsCompound"},
    {402, 7, 7, "igs402_7", "igsGroup"},
    {404, 0, 1, "igs404", "igsCompound"},
    {408, 0, 0, "igs408", "igsDefinition"},
    {410, 0, 0, "igs410_0", "igsDefinition"},
    {416, 1, 1, "igs416", "igsDefinition"},
    {502, 1, 1, "igs502", "igsObject"},
    {504, 1, 1, "igs504", "igsObject"},
    {508, 1, 1, "igs508", "igsObject"},
    {510, 1, 1, "igs510", "igsObject"},
    {514, 1, 1, "igs514", "igsObject"},
};

const char* class_of(int type, int form) {
  for (const Row& row : rows) {
    if (row.type == type && row.min_form <= form && form <= row.max_form) return row.name;
  }
  return "igsUnknown";
}

class EachClass : public testing::TestWithParam<Row> {};

TEST_P(EachClass, IsMadeForItsFormsAndNoOthers) {
  const Row& row = GetParam();
  igsFile file;
  std::set<int> forms{row.min_form, row.max_form, 0, 5001};
  if (row.min_form > INT_MIN + 1) forms.insert({row.min_form - 1, row.max_form + 1});
  for (const int form : forms) {
    const igsObject* object = igsFactory::make_one(static_cast<igsEntityType>(row.type), form);
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->objtype().id_string(), class_of(row.type, form)) << row.type << " form " << form;
    EXPECT_EQ(&object->file(), &file);
  }
}

TEST_P(EachClass, FollowsTheTypeProtocol) {
  const Row& row = GetParam();
  igsFile file;
  igsObject* object = igsObject::create(static_cast<igsEntityType>(row.type), row.min_form);
  ASSERT_EQ(object->objtype().id_string(), row.name);
  const kluTypeInfo& own = object->objtype();
  ASSERT_NE(own.parent(), nullptr);
  EXPECT_EQ(own.parent()->id_string(), row.parent);
  EXPECT_TRUE(object->isa(own));
  EXPECT_TRUE(object->typeof(own));
  for (const kluTypeInfo* base = own.parent(); base != nullptr; base = base->parent()) {
    EXPECT_FALSE(object->isa(*base)) << base->id_string();
    EXPECT_TRUE(object->typeof(*base)) << base->id_string();
    EXPECT_FALSE(base->childof(own)) << base->id_string();
  }
  const igsObject* twin = object->make_one();
  EXPECT_TRUE(twin->isa(own));
  EXPECT_EQ(twin->de_number(), 3);
  if (row.type > 0) {
    EXPECT_EQ(static_cast<int>(twin->directory_entry().entity_type()), row.type);
    EXPECT_EQ(class_of(row.type, twin->directory_entry().form_number()), std::string(row.name));
  }
}

INSTANTIATE_TEST_SUITE_P(Factory, EachClass, testing::ValuesIn(rows), [](const auto& info) {
  const Row& row = info.param;
  return std::string(row.name) + "_" + std::to_string(info.index);
});

TEST(Factory, TypesThatNobodyReadsAreUnknown) {
  igsFile file;
  for (const int type :
       {INT_MIN, -2, 1, 99, 101, 125, 132, 146, 184, 213, 302, 306, 322, 406, 412, 430, 515, INT_MAX}) {
    EXPECT_EQ(igsFactory::make_one(static_cast<igsEntityType>(type), 0)->objtype().id_string(), "igsUnknown") << type;
  }
}

TEST(Factory, PrototypesBelongToNoFile) {
  igsObjectSystem::initialize_system();
  igsFilecoDynArr files;
  igsObjectSystem::get_all_files(files);
  ASSERT_FALSE(files.empty());
  EXPECT_EQ(files[0]->num_entities(), 0);
  igsFile file;
  delete igsFactory::make_one(igsEntity110, 0);
  EXPECT_EQ(file.num_entities(), 0);
  EXPECT_EQ(files[0]->num_entities(), 0);
}

}  // namespace
