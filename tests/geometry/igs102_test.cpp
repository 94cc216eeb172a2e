// The list of a composite curve while repairs and hosts take elements out of it.

#include "igs/curves/igs102.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "geometry/geometry_fixture.h"
#include "igs/curves/igs102_errors.h"
#include "igs/curves/igs110.h"
#include "igs/curves/igsPolyline.h"

namespace igs_test {
namespace {
using Numbers = std::vector<int>;

/// Reads a composite of lines (l), lines without a start point (L) and point sets (s), with DE numbers 3, 5, ...
igs102& read_composite(igsFile& file, const std::string& kinds) {
  IgesBuilder builder;
  std::string data = std::to_string(kinds.size());
  for (std::size_t i = 0; i < kinds.size(); ++i) data += ',' + std::to_string(2 * i + 3);
  builder.entity(102, 0, data);
  for (const char kind : kinds) {
    if (kind == 's') builder.entity(106, 2, "2,2,1.,2.,3.,4.,5.,6.");
    if (kind != 's')
      builder.entity(110, 0, kind == 'l' ? "0.,0.,0.,1.,2.,3." : "-1.7976931348623157D308,0.,0.,1.,2.,3.");
  }
  read_text(file, builder.text());
  return entity_of<igs102>(file);
}

Numbers sub_curves(const igs102& composite) {
  Numbers numbers;
  igsObjectPtr sub_curve;
  for (int i = 0; composite.sub_curve(i, sub_curve) != 0; ++i) numbers.push_back(sub_curve.de_number());
  return numbers;
}

TEST(Igs102, FaultsAreRepairedInAnyOrder) {
  std::vector<std::size_t> order{0, 1, 2, 3, 4, 5, 6};  // of the seven faults
  for (int turn = 0; turn < 200; ++turn) {
    igsFile file;
    igs102& composite = read_composite(file, "LsLlsLLs");
    composite.check();
    std::vector<igsError*> errors;
    for (igsError* error : object_errors(file)) {
      if (static_cast<igsObjectError*>(error)->key() == 1) errors.push_back(error);
    }
    ASSERT_EQ(errors.size(), order.size());
    for (const std::size_t number : order) {
      EXPECT_EQ(errors[number]->fix(), 1);
      if (turn % 2 != 0) composite.set_sub_curve(-1, {});  // a look at the list between the repairs
    }
    EXPECT_EQ(sub_curves(composite), (Numbers{5, 9, 11, 17}));
    EXPECT_EQ(composite.check(), 1);
    for (const int de : {5, 11, 17}) EXPECT_TRUE(file.entity(de)->isa(igsPolyline::type()));
    for (int step = 0; step < 25; ++step) std::next_permutation(order.begin(), order.end());
  }
}

TEST(Igs102, AFaultKnowsItsSubCurveWhereverThatIs) {
  igsFile file;
  igs102& composite = read_composite(file, "lLlLLls");
  file.check();
  std::vector<igsError*> bad;
  for (igsError* error : object_errors(file)) {
    if (error->isa(igs102InvalidSubCurveData::type())) bad.push_back(error);
    EXPECT_EQ(error->isa(igs102InvalidSubCurveType::type()), static_cast<igsObjectError*>(error)->obj() == 15);
  }
  ASSERT_EQ(bad.size(), 3U);
  EXPECT_EQ(static_cast<igsObjectError*>(bad[0])->obj(), 5);
  static_cast<igs110*>(file.entity(9))->set_start_point({0, 0, 0});
  file.entity(9)->check();  // has become clean
  const Numbers answers{bad[1]->fix(), bad[0]->fix(), bad[0]->fix(), bad[2]->fix()};
  EXPECT_EQ(answers, (Numbers{1, 1, 0, 1}));
  EXPECT_EQ(file.entity(5)->num_references(), 0);
  Numbers current, original;
  for (int i = -1; i <= 7; ++i) current.push_back(composite.get_current_index(i));
  for (int i = -1; i <= 5; ++i) original.push_back(composite.get_original_index(i));
  EXPECT_EQ(current, (Numbers{-1, 0, -1, 1, 2, -1, 3, 4, -1}));
  EXPECT_EQ(original, (Numbers{-1, 0, 2, 3, 5, 6, -1}));
  EXPECT_EQ(sub_curves(composite), (Numbers{3, 7, 9, 13, 15}));
  composite.check();
  EXPECT_EQ(composite.get_current_index(3), 3);  // a check starts anew
}

TEST(Igs102, TheListFollowsTheHost) {
  igsFile file;
  igs102& composite = read_composite(file, "lll");
  composite.set_index(0, -1);
  composite.set_index(2, 0);
  composite.set_index(3, 1);  // no such position
  composite.set_index(1, 1000);
  Numbers current;
  for (const int i : {0, 1, 2, 3}) current.push_back(composite.get_current_index(i));
  EXPECT_EQ(current, (Numbers{-1, 1000, 0, -1}));
  EXPECT_EQ(composite.get_original_index(0), 2);
  EXPECT_EQ(composite.at_original(0), nullptr);
  EXPECT_EQ(composite.at_original(1), nullptr);
  EXPECT_EQ(composite.at_original(2)->de_number(), 3);
  composite.set_index_list();
  EXPECT_EQ(composite.get_current_index(0), 0);
  EXPECT_EQ(composite.get_original_index(2), 2);
  EXPECT_EQ(composite.remove_original(1), 1);
  EXPECT_EQ(composite.remove_original(1) + composite.remove_original(3), 0);
  EXPECT_EQ(sub_curves(composite), (Numbers{3, 7}));
  EXPECT_EQ(composite.set_size(-1), 0);
  EXPECT_EQ(composite.set_size(3), 1);
  EXPECT_EQ(composite.set_sub_curve(3, igsObjectPtr(3)) + composite.set_sub_curve(-1, igsObjectPtr(3)), 0);
  EXPECT_EQ(composite.set_sub_curve(2, igsObjectPtr(5)), 1);
  EXPECT_EQ(sub_curves(composite), (Numbers{3, 7, 5}));
}
}  // namespace
}  // namespace igs_test
