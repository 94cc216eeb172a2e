#include "igs/curves/igs102.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "geometry/geometry_fixture.h"
#include "igs/curves/igs110.h"
#include "igs/curves/igs116.h"
#include "igs/curves/igs124.h"
#include "igs/curves/igsPointset.h"
#include "igs/curves/igsPolyline.h"
#include "objects/test_node.h"

namespace igs_test {
namespace {
using Found = std::vector<std::string>;

/// A member by letter: l line, p point, s point set, m matrix, upper case with a fault; '-' none.
igsObject* make_member(char kind) {
  const giPoint3 here(1, 2, 3), nowhere;
  switch (kind) {
    case 'l':
    case 'L': {
      auto* const line = new igs110;
      line->set_start_point(giPoint3(0, 0, 0));
      line->set_end_point(kind == 'l' ? here : nowhere);
      return line;
    }
    case 'p':
    case 'P': {
      auto* const point = new igs116;
      point->set_point(kind == 'p' ? here : nowhere);
      return point;
    }
    case 's':
    case 'S': {
      auto* const pointset = new igsPointset;
      pointset->set_size(igsCopiousData::spatial, 2);
      pointset->set_point(0, here);
      if (kind == 's') pointset->set_point(1, giPoint3(4, 5, 6));
      return pointset;
    }
    case 'm':
      return new igs124;
    default:
      return nullptr;
  }
}

igs102* make_composite(const std::vector<igsObject*>& members) {
  auto* const composite = new igs102;
  composite->set_size(static_cast<int>(members.size()));
  for (int i = 0; igsObject* const member : members) composite->set_sub_curve(i++, member);
  return composite;
}

/// A composite with DE number 1 and its members with DE numbers 3, 5, ... (null members take none).
igs102* make_composite(const std::string& kinds) {
  igs102* const composite = make_composite(std::vector<igsObject*>());
  composite->set_size(static_cast<int>(kinds.size()));
  for (int i = 0; const char kind : kinds) composite->set_sub_curve(i++, make_member(kind));
  return composite;
}

igsObject* sub_curve(const igs102& composite, int i) {
  igsObjectPtr pointer;
  return composite.sub_curve(i, pointer) != 0 ? pointer.object() : nullptr;
}

std::vector<int> sub_curves(const igs102& composite) {
  std::vector<int> numbers;
  for (int i = 0; i < composite.number_of_sub_curves(); ++i) {
    const igsObject* const object = sub_curve(composite, i);
    numbers.push_back(object != nullptr ? object->de_number() : 0);
  }
  return numbers;
}

igsObjectError& error_named(const igsFile& file, const std::string& description) {
  for (igsError* error : object_errors(file)) {
    if (describe(*error) == description) return *static_cast<igsObjectError*>(error);
  }
  throw std::runtime_error("no " + description);
}

TEST(Igs102, Checks) {
  const struct {
    const char* members;
    Found found;
  } cases[] = {
      {"l", {}},
      {"lplpl", {}},
      {"", {"igs102NoSubCurves 1"}},
      {"l-", {"igs102NullSubCurvePtr 1 1"}},
      {"ms", {"igs102InvalidSubCurveType 1 0", "igs102InvalidSubCurveType 1 1"}},
      {"S", {"igs102InvalidSubCurveType 1 0"}},  // a wrong class is not looked at any closer
      {"lL", {"igs110InvalidEndPoint 5", "igs102InvalidSubCurveData 1 1"}},
      {"lP", {"igs116InvalidPoint 5", "igs102InvalidSubCurveData 1 1"}},
      {"p", {"igs102OnlyPoint 1"}},
      {"P", {"igs116InvalidPoint 3", "igs102InvalidSubCurveData 1 0", "igs102OnlyPoint 1"}},
      {"pp", {}},
      {"ppp", {"igs102AdjacentPoints 1 0,1", "igs102AdjacentPoints 1 1,2"}},
      {"lpp", {"igs102AdjacentPoints 1 1,2"}},
      {"p-p", {"igs102NullSubCurvePtr 1 1"}},
      {"pp-", {"igs102NullSubCurvePtr 1 2", "igs102AdjacentPoints 1 0,1"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.members);
    igsFile file;
    EXPECT_EQ(found_by_check(*make_composite(c.members)), c.found);
  }
}

TEST(Igs102, WhatIsNotRepaired) {
  for (const char* members : {"", "-", "p", "m"}) {
    SCOPED_TRACE(members);
    igsFile file;
    igs102* const composite = make_composite(members);
    const std::vector<int> before = sub_curves(*composite);
    EXPECT_EQ(fix_the_fault(*composite), 0);
    EXPECT_EQ(sub_curves(*composite), before);
  }
  igsFile file;
  igs102* const composite = make_composite("ppl");
  EXPECT_EQ(fix_the_fault(*composite), 1);  // accepted as it is
  EXPECT_EQ(sub_curves(*composite), (std::vector<int>{3, 5, 7}));
}

TEST(Igs102, AFaultySubCurveIsRepairedOrRemoved) {
  igsFile file;
  RecordingSink sink;
  file.set_message_stream(&sink);
  igs102* const composite = make_composite("lLlLLl");
  composite->check();
  igsObjectError& second = error_named(file, "igs102InvalidSubCurveData 1 1");
  EXPECT_EQ(second.obj(), 5);

  static_cast<igs110*>(sub_curve(*composite, 3))->set_end_point(giPoint3(1, 1, 1));
  file.entity(9)->check();  // has become clean
  EXPECT_EQ(error_named(file, "igs102InvalidSubCurveData 1 3").fix(), 1);
  EXPECT_EQ(composite->number_of_sub_curves(), 6);
  EXPECT_EQ(sink.text, "");

  EXPECT_EQ(second.fix(), 1);
  EXPECT_EQ(file.entity(5)->num_references(), 0);
  EXPECT_EQ(second.fix(), 0);  // gone: nothing left to do it to
  EXPECT_EQ(sub_curves(*composite), (std::vector<int>{3, 7, 9, 11, 13}));
  EXPECT_EQ(error_named(file, "igs102InvalidSubCurveData 1 4").fix(), 1);
  EXPECT_EQ(sub_curves(*composite), (std::vector<int>{3, 7, 9, 13}));
  EXPECT_EQ(sink.text,
            "Warning : sub curve DE 5 has been removed from composite curve DE 1\n"
            "Warning : sub curve DE 11 has been removed from composite curve DE 1\n");

  const int current[] = {0, -1, 1, 2, -1, 3};
  const int original[] = {0, 2, 3, 5};
  for (int i = -1; i <= 6; ++i) EXPECT_EQ(composite->get_current_index(i), i < 0 || i > 5 ? -1 : current[i]) << i;
  for (int i = -1; i <= 4; ++i) EXPECT_EQ(composite->get_original_index(i), i < 0 || i > 3 ? -1 : original[i]) << i;

  EXPECT_EQ(composite->check(), 1);
  EXPECT_EQ(composite->get_current_index(3), 3);  // a check starts anew
  EXPECT_NE(file.entity(5), nullptr);
  EXPECT_EQ(file.entity(5)->num_references(), 0);
  EXPECT_EQ(written_data(file), "102,4,3,7,9,13;");
}

TEST(Igs102, FaultsAreRepairedInAnyOrder) {
  const std::string members = "LsLlsLLs";
  std::vector<std::size_t> order{0, 1, 2, 3, 4, 5, 6};  // of the seven faults
  for (int turn = 0; turn < 200; ++turn) {
    igsFile file;
    igs102* const composite = make_composite(members);
    composite->check();
    std::vector<igsError*> errors;
    for (igsError* error : object_errors(file)) {
      if (static_cast<igsObjectError*>(error)->key() == 1) errors.push_back(error);
    }
    ASSERT_EQ(errors.size(), order.size());
    for (const std::size_t number : order) {
      EXPECT_EQ(errors[number]->fix(), 1);
      if (turn % 2 != 0) composite->set_sub_curve(-1, {});  // a look at the list between the repairs
    }
    EXPECT_EQ(sub_curves(*composite), (std::vector<int>{5, 9, 11, 17}));
    EXPECT_EQ(composite->check(), 1);
    for (const int de : {5, 11, 17}) EXPECT_TRUE(file.entity(de)->isa(igsPolyline::type()));
    for (int step = 0; step < 25; ++step) std::next_permutation(order.begin(), order.end());
  }
}

TEST(Igs102, APointSetIsConverted) {
  igsFile file;
  igs102* const composite = make_composite("ls");
  file.entity(5)->directory_entry().set_level(igsLevel(3));
  composite->check();
  igsObjectError& error = error_named(file, "igs102InvalidSubCurveType 1 1");
  EXPECT_EQ(error.obj(), 5);
  EXPECT_EQ(error.fix(), 1);
  EXPECT_EQ(error.fix(), 0);  // a curve now
  EXPECT_EQ(sub_curves(*composite), (std::vector<int>{3, 5}));
  const igsPolyline& polyline = entity_of<igsPolyline>(file, 5);
  EXPECT_EQ(polyline.point(1), giPoint3(4, 5, 6));
  EXPECT_EQ(polyline.directory_entry().level().level(), 3);
  EXPECT_EQ(polyline.num_references(), 1);
  EXPECT_EQ(file.num_entities(), 3);
  EXPECT_EQ(composite->check(), 1);
}

TEST(Igs102, ASharedPointSetStaysForTheOthers) {
  igsFile file;
  igsObject* const pointset = make_member('s');  // DE 1
  igs102* const twice = make_composite(std::vector<igsObject*>{pointset, make_member('l'), pointset});
  igs102* const once = make_composite(std::vector<igsObject*>{pointset});
  twice->check();
  once->check();
  EXPECT_EQ(error_named(file, "igs102InvalidSubCurveType 5 0").fix(), 1);
  EXPECT_EQ(sub_curves(*twice), (std::vector<int>{9, 3, 1}));
  EXPECT_EQ(error_named(file, "igs102InvalidSubCurveType 5 2").fix(), 1);
  EXPECT_EQ(sub_curves(*twice), (std::vector<int>{9, 3, 11}));
  EXPECT_TRUE(file.entity(1)->isa(igsPointset::type()));
  EXPECT_EQ(pointset->num_references(), 1);
  EXPECT_EQ(error_named(file, "igs102InvalidSubCurveType 7 0").fix(), 1);  // nobody else's any more
  EXPECT_TRUE(file.entity(1)->isa(igsPolyline::type()));
  EXPECT_EQ(sub_curves(*once), std::vector<int>{1});
  EXPECT_EQ(file.num_entities(), 6);
  file.check();
  EXPECT_EQ(object_errors(file).size(), 0U);
}

TEST(Igs102, APointSetHasToBeConvertibleButNotSound) {
  igsFile file;
  igs102* const composite = make_composite("SLs");
  auto* const sextuples = static_cast<igsPointset*>(sub_curve(*composite, 2));
  sextuples->set_size(igsCopiousData::with_vectors, 1);
  sextuples->set_point(0, giPoint3(1, 2, 3));
  file.check();
  EXPECT_EQ(error_named(file, "igs102InvalidSubCurveType 1 0").fix(), 1);
  EXPECT_TRUE(file.entity(3)->isa(igsPolyline::type()));
  EXPECT_EQ(error_named(file, "igs102InvalidSubCurveType 1 2").fix(), 0);
  EXPECT_EQ(sub_curves(*composite), (std::vector<int>{3, 5, 7}));
  EXPECT_EQ(file.num_entities(), 4);
}

TEST(Igs102, CleaningRepairsPartsFirst) {
  igsFile file;
  igs102* const composite = make_composite("slLl");
  file.entity(3)->directory_entry().set_form_number(1);                    // does not fit, but can be repaired
  static_cast<igs110*>(file.entity(5))->set_end_point(giPoint3(0, 0, 0));  // becomes a polyline
  file.clean(1);
  EXPECT_EQ(composite->check(), 1);
  EXPECT_EQ(sub_curves(*composite), (std::vector<int>{3, 5, 9}));
  EXPECT_EQ(file.entity(7), nullptr);
  EXPECT_EQ(column_fault(written(file)), "");
  EXPECT_EQ(sub_curves(*composite), (std::vector<int>{3, 5, 7}));
}

TEST(Igs102, ReadsWritesAndPrints) {
  IgesBuilder builder;
  builder.entity(102, 0, "3,3,0,8");
  builder.point(1);
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  igs102& composite = entity_of<igs102>(file);
  EXPECT_EQ(sub_curves(composite), (std::vector<int>{3, 0, 0}));
  EXPECT_EQ(composite.set_sub_curve(0, {}), 1);
  EXPECT_EQ(
      printed_data(composite),
      "NumberOfSubCurves = 3\nSubCurves = {\n\t(0) = {\n\t\t(NullPointer)\n\t}\n\t(1) = {\n\t\t(NullPointer)\n\t}\n"
      "\t(2) = {\n\t\t(NullPointer)\n\t}\n}\n");
  EXPECT_EQ(composite.set_size(-1), 0);
  EXPECT_EQ(composite.set_size(2), 1);
  igsObjectPtr untouched(file.entity(3));
  EXPECT_EQ(composite.sub_curve(2, untouched), 0);
  EXPECT_EQ(composite.sub_curve(-1, untouched), 0);
  EXPECT_EQ(untouched.de_number(), 3);
  EXPECT_EQ(composite.set_sub_curve(2, untouched), 0);
  EXPECT_EQ(composite.set_sub_curve(1, untouched), 1);
  EXPECT_EQ(written_data(file), "102,2,0,3;");
}

TEST(Igs102, ACountThatCannotBeUsedLosesTheEntity) {
  const struct {
    const char* data;
    const char* error;
  } cases[] = {{"-1,3", "igs102BadNumCurves 1 -1"}, {"2000000000,3,3", "igs102BadNumCurves 1 2000000000"}};
  for (const auto& c : cases) {
    IgesBuilder builder;
    builder.entity(102, 0, c.data);
    builder.line();
    igsFile file;
    ASSERT_EQ(read_text(file, builder.text()), 1);
    EXPECT_EQ(file.entity(1), nullptr);
    const Found errors = active_errors(file);
    EXPECT_EQ(std::count(errors.begin(), errors.end(), c.error), 1);
  }
}

TEST(Igs102, TheIndexListFollowsTheHost) {
  igsFile file;
  igs102* const composite = make_composite("lll");
  composite->set_index(0, -1);
  composite->set_index(2, 0);
  composite->set_index(3, 1);  // no such position
  EXPECT_EQ(composite->get_current_index(0), -1);
  EXPECT_EQ(composite->get_current_index(1), 1);
  EXPECT_EQ(composite->get_current_index(2), 0);
  EXPECT_EQ(composite->get_original_index(0), 2);
  EXPECT_EQ(composite->at_original(0), nullptr);
  EXPECT_EQ(composite->at_original(2)->de_number(), 3);
  composite->set_index(1, 1000);
  EXPECT_EQ(composite->at_original(1), nullptr);
  composite->set_index_list();
  EXPECT_EQ(composite->get_current_index(0), 0);
  EXPECT_EQ(composite->get_original_index(2), 2);
  EXPECT_EQ(composite->remove_original(1), 1);
  EXPECT_EQ(composite->remove_original(1), 0);
  EXPECT_EQ(composite->remove_original(3), 0);
  EXPECT_EQ(sub_curves(*composite), (std::vector<int>{3, 7}));
}

/// Checks, prints and cleans a sound file of composites in chains and cycles; what it then writes.
std::string put_through_everything(igsFile& file) {
  file.check();
  EXPECT_EQ(object_errors(file).size(), 0U);
  EXPECT_NE(printed(*file.entity(1)).find("NumberOfSubCurves"), std::string::npos);
  const int count = file.num_entities();
  file.clean(1);
  EXPECT_EQ(file.num_entities(), count);
  return written(file);
}

TEST(Igs102, LongChainsEnd) {
  igsFile file;
  auto* const first = new igs102;
  igs102* last = first;
  for (int i = 1; i < chain_length; ++i) {
    igs102* const next = make_composite(std::vector<igsObject*>());
    last->set_size(1);
    last->set_sub_curve(0, next);
    last = next;
  }
  last->set_size(1);
  auto* const line = static_cast<igs110*>(make_member('L'));
  last->set_sub_curve(0, line);
  EXPECT_EQ(first->check(), 0);
  EXPECT_EQ(first->num_logged_errors(), 1);  // the fault at the end is seen through the whole chain ...
  file.clean(0);
  EXPECT_EQ(first->num_logged_errors(), 0);  // ... and taken away there alone
  EXPECT_EQ(first->number_of_sub_curves(), 1);
  EXPECT_EQ(last->number_of_sub_curves(), 0);
  line->set_end_point(giPoint3(1, 0, 0));
  last->set_size(1);
  last->set_sub_curve(0, line);
  EXPECT_NE(put_through_everything(file).find("102,1," + std::to_string(line->de_number())), std::string::npos);
  first->unreference_children();
  EXPECT_EQ(file.num_entities(), 1);
}

TEST(Igs102, CyclesEnd) {
  igsFile file;
  igs102* const self = make_composite(std::vector<igsObject*>{nullptr});
  self->set_sub_curve(0, self);
  igs102* const a = make_composite(std::vector<igsObject*>{self, nullptr});
  a->set_sub_curve(1, make_composite(std::vector<igsObject*>{a, a}));
  const std::vector<std::string> data = records_of(put_through_everything(file), 'P');
  ASSERT_EQ(data.size(), 3U);
  EXPECT_EQ(data[0].substr(0, 8), "102,1,1;");
  EXPECT_EQ(data[1].substr(0, 10), "102,2,1,5;");
  EXPECT_EQ(data[2].substr(0, 10), "102,2,3,3;");
}

TEST(Igs102, ManyFaultsOfOneCurveTakeLinearTime) {
  igsFile file;
  igsObject* const line = make_member('L');
  std::vector<igsObject*> members;
  for (int i = 0; i < chain_length / 4; ++i) members.insert(members.end(), {line, make_member('s')});
  igs102* const composite = make_composite(members);
  file.clean(0);
  EXPECT_EQ(composite->number_of_sub_curves(), chain_length / 4);
  EXPECT_EQ(composite->check(), 1);
}
}  // namespace
}  // namespace igs_test
