// Subfigures, groups, drawings and views: what all of them have in common.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "igs/structure/igs308.h"
#include "igs/structure/igs402_16.h"
#include "igs/structure/igs402_3.h"
#include "igs/structure/igs404.h"
#include "structure/structure_fixture.h"

namespace igs_test {
namespace {
using Model = StructureModel;

TEST(Structure, SoundEntitiesAreReadAndWritten) {
  const struct {
    const char *record, *written;  // "": the same
  } cases[] = {
      {"308/0,2,6HA ,;1B,3,1,17,1", "308,2,6HA ,;1B,3,1,17,1"},
      {"308,0,0H,0", ""},
      {"308", "308,0,0H,0"},
      {"402/1,2,1,3,0,0", "402,2,1,3"},  // members may be faulty, and need not point back
      {"402/7,1,21", "402,1,21"},
      {"402/14,2,23,1", "402,2,23,1"},
      {"402/15,1,7", "402,1,7"},
      {"402/16,1,2,15,1,7", "402,1,2,15,1,7"},
      {"402/16,1,1,0,1,1,23,0", "402,1,1,0,1"},
      {"402/3,1,0,9", "402,1,0,9"},
      {"402/3,2,3,9,9,1,3,21", "402,2,3,9,9,1,3,21"},
      {"404,1,9,10.,20.,2,1,17", ""},
      {"404,2,9,0.,0.,9,,5.", "404,2,9,0.,0.,9,0.,5.,0"},
      {"404/1,1,9,10.,20.,0.5,1,1", "404,1,9,10.,20.,0.5,1,1"},
      {"404/1,2,9,1.,2.,3.,9,4.,5.,,0,0,0", "404,2,9,1.,2.,3.,9,4.,5.,0.,0"},
      {"404,0,0", ""},
      {"408,17,1.,2.,3.", "408,17,1.,2.,3.,1."},
      {"408,17,1.,,3.,-2.", "408,17,1.,0.,3.,-2."},
      {"410,7,0.5,7,0,7,0,0,7", ""},
      {"410", "410,-2147483647,1.,0,0,0,0,0,0"},
      {"410,,,0,7", "410,-2147483647,1.,0,7,0,0,0,0"},
      {"416/1,9H a,;b.igs", "416,9H a,;b.igs"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.record);
    Model model(c.record);
    ASSERT_EQ(model.read, 1);
    EXPECT_EQ(model.found(), "");
    EXPECT_EQ(written_data(model.file, Model::subject), without_form(*c.written != '\0' ? c.written : c.record) + ';');
    const std::string first = written(model.file), printed_first = printed(model.entity());
    igsFile again;
    ASSERT_EQ(read_text(again, first), 1);
    EXPECT_EQ(printed(*again.entity(Model::subject)), printed_first);
    EXPECT_EQ(records_of(written(again), 'P'), records_of(first, 'P'));
    EXPECT_EQ(records_of(written(again), 'D'), records_of(first, 'D'));
  }
}

TEST(Structure, Print) {
  const std::string null = " = {\n\t(NullPointer)\n}\n",
                    members = "Entities = {\n\t(0) = {\n\t\t(NullPointer)\n\t}\n}\n";
  const std::string in_view =
      "Views = {\n\t(0) = {\n\t\tView = {\n\t\t\t(NullPointer)\n\t\t}\n\t\tXOrigin = 1\n\t\tYOrigin = 2\n";
  const struct {
    const char* record;
    std::string printed;
  } cases[] = {
      {"308,1,2HAB,1,0", "Depth = 1\nName = AB\nNumberOfEntities = 1\n" + members},
      {"402/1,1,0", "NumberOfEntities = 1\n" + members},
      {"402/16,1,1,0,0", "NumberOfTransforms = 1\nNumberOfEntities = 1\nMatrix" + null + members},
      {"402/16,0,1,0", "NumberOfTransforms = 0\nNumberOfEntities = 1\nMatrices = {\n}\n" + members},
      {"402/3,1,1,0,0",
       "NumberOfViews = 1\nNumberOfEntities = 1\nViews = {\n\t(0) = {\n\t\t(NullPointer)\n\t}\n}\n" + members},
      {"404,1,0,1.,2.,1,0", "NumberOfViews = 1\n" + in_view + "\t}\n}\nNumberOfEntities = 1\n" + members},
      {"404/1,1,0,1.,2.,3.,1,0",
       "NumberOfViews = 1\n" + in_view + "\t\tAngle = 3\n\t}\n}\nNumberOfEntities = 1\n" + members},
      {"408,0,1.,2.,3.,4.", "Subfigure" + null + "Translation = (1, 2, 3)\nScale = 4\n"},
      {"410,4,2.", "ViewNumber = 4\nScale = 2\nLeftPlane" + null + "TopPlane" + null + "RightPlane" + null +
                       "BottomPlane" + null + "BackPlane" + null + "FrontPlane" + null},
      {"416/1,3HA B", "FileName = A B\n"},
  };
  for (const auto& c : cases) EXPECT_EQ(printed_data(Model(c.record).entity()), c.printed);
}

TEST(Structure, EveryReferenceIsTested) {
  // `back` is an entity that is faulty in that it refers back; entities without it do not test each other.
  const char* const composite = "102,1,21";
  const struct {
    const char *record, *null, *wrong_type, *faulty, *back;
  } cases[] = {
      {"308,0,1HA,2,1,@", "igs308NullGeometryPointer 1", "", "igs308BadSubEntity 1", composite},
      {"402/1,2,1,@", "igsGroupNullEntity 1", "", "", composite},
      {"402/7,2,1,@", "igsGroupNullEntity 1", "", "", composite},
      {"402/14,2,1,@", "igsGroupNullEntity 1", "", "", composite},
      {"402/15,2,1,@", "igsGroupNullEntity 1", "", "", composite},
      {"402/16,1,2,0,1,@", "igsGroupNullEntity 1", "", "", composite},
      {"402/16,1,1,@,1", "", "igs402_16WrongMatrixType", "", "124,1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,1.,0."},
      {"402/3,2,0,9,@", "igs402_3NullView 1", "igs402_3WrongViewType 1", "igs402_3InvalidView 1", "410,8,1.,21"},
      {"402/3,1,2,9,1,@", "igs402_3NullEntity 1", "", "", composite},
      {"404,2,9,0.,0.,@,0.,0.,0", "igs404NullViewPointer 1", "igs404InvalidViewPointer 1", "igs404BadViewPointer 1",
       "410,8,1.,21"},
      {"404/1,1,@,0.,0.,0.,0", "igs404NullViewPointer 0", "igs404InvalidViewPointer 0", "igs404BadViewPointer 0",
       "410,8,1.,,21"},
      {"404,0,2,1,@", "igs404NullEntityPointer 1", "", "igs404BadEntityPointer 1", composite},
      {"408,@,0.,0.,0.", "igs408NullSubfigure", "igs408WrongSubfigureType", "igs408InvalidSubfigure",
       "308,0,1HA,2,21,3"},
      {"410,9,1.,@", "", "igs410_0WrongPlaneType 0", "igs410_0InvalidPlane 0", "108,0.,0.,1.,0.,21"},
      {"410,9,1.,0,@", "", "igs410_0WrongPlaneType 1", "igs410_0InvalidPlane 1", "108,0.,0.,1.,0.,21"},
      {"410,9,1.,0,0,@", "", "igs410_0WrongPlaneType 2", "igs410_0InvalidPlane 2", "108,0.,0.,1.,0.,21"},
      {"410,9,1.,0,0,0,@", "", "igs410_0WrongPlaneType 3", "igs410_0InvalidPlane 3", "108,0.,0.,1.,0.,21"},
      {"410,9,1.,7,7,7,7,@", "", "igs410_0WrongPlaneType 4", "igs410_0InvalidPlane 4", "108,0.,0.,1.,0.,21"},
      {"410,9,1.,0,0,0,0,0,@", "", "igs410_0WrongPlaneType 5", "igs410_0InvalidPlane 5", "108,0.,0.,1.,0.,21"},
  };
  for (const auto& c : cases) {
    const auto expect = [&c](int reference, const std::string& found) {
      const std::string record = with_reference(c.record, reference);
      SCOPED_TRACE(record);
      Model model(record, c.back);
      expect_found_and_cleanable(model, found);
    };
    for (const int null : {0, 99, 8, -5, 2147483647}) expect(null, c.null);
    for (const int wrong : {1, Model::subject}) expect(wrong, c.wrong_type);
    expect(23, c.faulty);
  }
}

TEST(Structure, OtherFaults) {
  const struct {
    const char *record, *found;
  } cases[] = {
      {"308,-1,1HA,2,0,3", "igs308InvalidDepth -1; igs308NullGeometryPointer 0; igs308BadSubEntity 1"},
      {"402/1,0", "igsGroupNoEntities"},
      {"402/7", "igsGroupNoEntities"},
      {"402/14,3,1", "igsGroupNullEntity 1; igsGroupNullEntity 2"},
      {"402/16,0,1,1", "igs402_16InvalidNumberOfTransforms 0"},
      {"402/16,3,0,1,19,0", "igs402_16InvalidNumberOfTransforms 3; igs402_16WrongMatrixType; igsGroupNoEntities"},
      {"402/16,1,1,19,0", "igs402_16InvalidMatrix; igsGroupNullEntity 0"},
      {"402/3,0,2,1,0", "igs402_3NoViews; igs402_3NullEntity 1"},
      {"402/3,3,0,13,1", "igs402_3InvalidView 0; igs402_3WrongViewType 1; igs402_3NullView 2"},
      {"404,3,13,1.,2.,1,1.,2.",
       "igs404BadViewPointer 0; igs404InvalidViewPointer 1; igs404NullViewPointer 2; "
       "igs404InvalidOrigin 2"},
      {"404/1,1,0,-1.7976931348623157D308,2.,0.,2,0,3",
       "igs404NullViewPointer 0; igs404InvalidOrigin 0; igs404NullEntityPointer 0; igs404BadEntityPointer 1"},
      {"408,0,0.,0.,0.,0.", "igs408NullSubfigure; igs408InvalidScale 0"},
      {"408,17,-1.7976931348623157D308,0.,0.,-1.7976931348623157D308",
       "igs408InvalidTranslation; igs408InvalidScale -1.79769313486232e+308"},
      {"410,9,0.", "igs410_0InvalidScale 0"},
      {"410,9,-2.,5", "igs410_0InvalidScale -2; igs410_0InvalidPlane 0"},
      {"416/1", "igs416NoFileName"},
      {"416/1,3H   ", "igs416NoFileName"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.record);
    EXPECT_EQ(Model(c.record).found(), c.found);
  }
}

TEST(Structure, Repairs) {
  const struct {
    const char *record, *repaired;  // "": nothing is changed
    const char *left, *another = "";
  } cases[] = {
      {"308,-3,1HA,1,5", "308,0,1HA,1,5", ""},
      {"308,0,1HA,4,0,1,0,17", "308,0,1HA,2,1,17", ""},
      {"308,0,1HA,4,3,1,5,13", "308,0,1HA,2,1,5", ""},  // members that can be repaired stay
      {"308,-1,1HA,2,3,0", "308,0,1HA,0", ""},
      {"402/1,4,0,3,0,1", "402,2,3,1", ""},
      {"402/14,3,0,0,0", "402,0", "igsGroupNoEntities"},
      {"402/16,0,2,1,0", "402,1,1,0,1", ""},
      {"402/16,3,2,15,19,19,0,7", "402,1,1,15,7", ""},
      {"402/16,1,1,1,7", "402,1,1,1,7", "igs402_16WrongMatrixType"},
      {"402/3,5,3,0,9,1,11,0,0,3,0", "402,2,1,9,11,3", ""},
      {"402/3,2,0,1,13", "402,1,0,13", "igs402_3InvalidView 0"},
      {"402/3,2,0,0,1", "402,0,0", "igs402_3NoViews"},
      {"404,4,0,1.,1.,9,2.,2.,0,3.,3.,11,4.,4.,3,0,1,3", "404,2,9,2.,2.,11,4.,4.,1,1", ""},
      {"404/1,3,0,1.,1.,1.,9,2.,2.,2.,0,3.,3.,3.,0", "404,1,9,2.,2.,2.,0", ""},
      {"404,2,0,1.,1.,13,2.,2.,2,1,5", "404,1,13,2.,2.,2,1,5", "igs404BadViewPointer 0"},
      {"404,1,1,1.,1.,2,0,1", "", "igs404InvalidViewPointer 0; igs404NullEntityPointer 0"},  // waits for the view
      {"408,23,1.,2.,3.,0.", "408,23,1.,2.,3.,1.", "", "308,0,1HB,2,0,3"},
      {"408,0,1.,2.,3.,0.", "408,0,1.,2.,3.,1.", "igs408NullSubfigure"},
      {"410,9,-1.,5,5,7", "410,9,1.,5,5,7,0,0,0", ""},
      {"410,9,0.,1,23", "410,9,1.,1,23,0,0,0,0", "igs410_0WrongPlaneType 0; igs410_0InvalidPlane 1", "108"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.record);
    Model model(c.record, c.another);
    model.file.clean(0);
    if (*c.left == '\0') {
      EXPECT_EQ(model.errors(), "");
    }
    EXPECT_EQ(model.found(), c.left);
    std::string record = *c.repaired != '\0' ? c.repaired : c.record;
    EXPECT_EQ(written_data(model.file, Model::subject), without_form(record) + ';');
  }
}

TEST(Structure, DataErrorsConcernTheReferencedEntity) {
  const struct {
    const char* record;
    std::vector<int> concerned;
  } cases[] = {{"308,0,1HA,3,3,0,5", {3, Model::subject, 5}},
               {"402/16,1,1,19,1", {19}},
               {"402/3,2,0,13,11", {13, 11}},
               {"404,3,13,0.,0.,0,0.,0.,11,0.,0.,3,3,0,5", {13, Model::subject, 11, 3, Model::subject, 5}},
               {"408,23,0.,0.,0.", {23}},
               {"410,9,1.,5,0,5", {5, 5}}};
  for (const auto& c : cases) {
    Model model(c.record, "308,-1,0H,0");
    model.entity().check();
    std::vector<int> concerned;
    for (igsError* const error : object_errors(model.file)) {
      auto* const own = static_cast<igsObjectError*>(error);
      if (own->key() == Model::subject) concerned.push_back(own->obj());
    }
    EXPECT_EQ(concerned, c.concerned) << c.record;
  }
}

TEST(Structure, ACountThatCannotBeUsedLosesTheEntity) {
  const struct {
    const char *record, *error;
  } cases[] = {{"308,0,1HA,-1", "igs308BadNumEntities 21 -1"},
               {"308,0,1HA,257,1", "igs308BadNumEntities 21 257"},
               {"402/1,-2147483647", "igsGroupBadNumEntities 21 -2147483647"},
               {"402/7,2147483647,1", "igsGroupBadNumEntities 21 2147483647"},
               {"402/14,257,1", "igsGroupBadNumEntities 21 257"},
               {"402/16,-1,1,1", "igs402_16BadNumTransforms 21 -1"},
               {"402/16,1,-1,1", "igs402_16BadNumEntities 21 -1"},
               {"402/3,-1,0", "igs402_3BadNumViews 21 -1"},
               {"402/3,1,2000000000,9,1", "igs402_3BadNumEntities 21 2000000000"},
               {"404,-1,0", "igs404BadNumViews 21 -1"},
               {"404/1,2000000000,9,0.,0.,0.", "igs404BadNumViews 21 2000000000"},
               {"404,1,9,0.,0.,-1", "igs404BadNumEntities 21 -1"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.error);
    const Model model(c.record);
    EXPECT_EQ(model.file.entity(Model::subject), nullptr);
    std::vector<std::string> bad_counts;
    for (const igsError* const error : object_errors(model.file)) bad_counts.push_back(describe(*error));
    EXPECT_EQ(bad_counts, std::vector<std::string>{c.error});
  }
}

TEST(Structure, DeletedMembersLeaveNullOnesUntilTheNextRepair) {
  for (const char* const record : {"402/1,3,1,3,7", "402/16,1,3,15,1,3,7", "402/3,1,3,9,1,3,7"}) {
    SCOPED_TRACE(record);
    Model model(record);
    model.file.clean(1);  // deletes entity 3
    const auto& compound = entity_of<igsCompound>(model.file, Model::subject);
    EXPECT_EQ(compound.number_of_entities(), 3);
    ASSERT_EQ(compound.entities().size(), 3U);
    EXPECT_EQ(compound.get_entity(1).object(), nullptr);
    model.file.clean(1);
    EXPECT_EQ(compound.number_of_entities(), 2);
    ASSERT_EQ(compound.entities().size(), 2U);
    EXPECT_EQ(compound.get_entity(1).de_number(), 7);
    EXPECT_EQ(compound.get_current_index(2), 1);
  }
}

TEST(Structure, DirectoryEntriesKeepTheirViews) {
  for (const char* const view : {"410,1,1.", "402/3,1,0,3"}) {
    IgesBuilder builder;
    add_record(builder, view, {.status = "00000100"});
    add_record(builder, "410,2,1.");
    builder.entity(116, 0, "0.,0.,0.,0", {.view = 1});
    igsFile file;
    ASSERT_EQ(read_text(file, builder.text()), 1);
    file.check();
    EXPECT_THAT(active_errors(file), testing::IsEmpty());
    EXPECT_EQ(number_at(records_of(written(file), 'D')[4], 41, 8), 1);
    EXPECT_THAT(printed(*file.entity(5)), testing::HasSubstr("\tView = 1\n"));
  }
}

}  // namespace
}  // namespace igs_test
