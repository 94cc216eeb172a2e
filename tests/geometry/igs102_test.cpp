// The list of a composite curve while repairs and hosts take elements out of it.

#include <gtest/gtest.h>

#include <algorithm>

#include "geometry/geometry_fixture.h"
#include "igs/curves/igs102_errors.h"

namespace igs_test {
namespace {
/// Reads a composite of lines (l), lines without a start point (L) and point sets (s), with DE numbers 3, 5, ...
igs102& read_composite(igsFile& file, const std::string& kinds) {
  std::string composite = "102:0 " + std::to_string(kinds.size()), elements;
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    composite += ',' + std::to_string(2 * i + 3);
    elements += kinds[i] == 's' ? " 106:2 2,2," : kinds[i] == 'l' ? " 110:0 " : " 110:0 -1.7976931348623157D308,2.,3.,";
    elements += kinds[i] == 'L' ? "4.,5.,6." : "1.,2.,3.,4.,5.,6.";
  }
  read_entities(file, composite + elements);
  return entity_of<igs102>(file);
}

std::string sub_curves(const igs102& composite) {
  std::string numbers;
  igsObjectPtr sub_curve;
  for (int i = 0; composite.sub_curve(i, sub_curve) != 0; ++i) numbers += std::to_string(sub_curve.de_number()) + ' ';
  return numbers;
}

/// The current indices of the original positions from `first` to `last`, and the original ones of the current.
std::string indices(const igs102& composite, int first, int last) {
  return answers(first, last, [&](int i) { return composite.get_current_index(i); }) + "| " +
         answers(first, last, [&](int i) { return composite.get_original_index(i); });
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
    EXPECT_EQ(sub_curves(composite), "5 9 11 17 ");
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
  const std::vector<int> fixed{bad[1]->fix(), bad[0]->fix(), bad[0]->fix(), bad[2]->fix()};
  EXPECT_EQ(fixed, (std::vector<int>{1, 1, 0, 1}));
  EXPECT_EQ(file.entity(5)->num_references(), 0);
  EXPECT_EQ(indices(composite, -1, 7), "-1 0 -1 1 2 -1 3 4 -1 | -1 0 2 3 5 6 -1 -1 -1 ");
  EXPECT_EQ(sub_curves(composite), "3 7 9 13 15 ");
  composite.check();
  EXPECT_EQ(composite.get_current_index(3), 3);  // a check starts anew
}

TEST(Igs102, TheListFollowsTheHost) {
  igsFile file;
  igs102& composite = read_composite(file, "lll");
  const int moved[] = {-1, 1000, 0, 1};  // where there is no last position
  for (const int i : {0, 2, 3, 1}) composite.set_index(i, moved[i]);
  EXPECT_EQ(indices(composite, 0, 3), "-1 1000 0 -1 | 2 -1 -1 -1 ");
  for (const int i : {0, 1}) EXPECT_EQ(composite.at_original(i), nullptr);
  EXPECT_EQ(composite.at_original(2)->de_number(), 3);
  composite.set_index_list();
  EXPECT_EQ(indices(composite, 0, 2), "0 1 2 | 0 1 2 ");
  EXPECT_EQ(answers(1, 3, [&](int i) { return composite.remove_original(i == 2 ? 1 : i); }), "1 0 0 ");
  EXPECT_EQ(sub_curves(composite), "3 7 ");
  EXPECT_EQ(composite.set_size(-1) * 10 + composite.set_size(3), 1);
  EXPECT_EQ(answers(-1, 3, [&](int i) { return i < 0 || i > 1 ? composite.set_sub_curve(i, igsObjectPtr(5)) : 7; }),
            "0 7 7 1 0 ");
  EXPECT_EQ(sub_curves(composite), "3 7 5 ");
}
}  // namespace
}  // namespace igs_test
