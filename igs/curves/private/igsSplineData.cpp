#include "igs/curves/private/igsSplineData.h"

#include <algorithm>
#include <array>

#include "igs/fields/igsBoundedList.h"
#include "igs/input/igsInStream.h"
#include "igs/support/utOstream.h"

namespace {
// Most lists are no longer than what was read before them, so that they are made at once and leave no room unused.
template <class Element>
void reserve_in_proportion(igsList<Element>& list, std::int64_t count, std::size_t read_before) {
  list.reserve(static_cast<std::size_t>(std::clamp<std::int64_t>(count, 0, static_cast<std::int64_t>(read_before))));
}
}  // namespace

double igs_read_supplied(igsInStream& in) {
  double value = 0;
  in.read_double(value);
  return in.take_value_present() != 0 ? value : igs_undefined_real;
}

int igs_read_reals(igsInStream& in, std::int64_t count, igsList<double>& reals, std::size_t read_before) {
  if (!in.frozen()) reserve_in_proportion(reals, count, read_before);
  const auto read = [&in](double& real) {
    if (in.frozen()) return igsSupply::ended;
    in.read_double(real);
    if (in.take_value_present() != 0) return igsSupply::given;
    real = igs_undefined_real;
    return igsSupply::empty;
  };
  return igs_read_bounded(in, count, reals, read, igs_undefined_real);
}

int igs_read_points(igsInStream& in, std::int64_t count, igsList<giPoint3>& points, std::size_t read_before) {
  if (!in.frozen()) reserve_in_proportion(points, count, read_before);
  const auto read = [&in](giPoint3& point) {
    if (in.frozen()) return igsSupply::ended;
    std::array<double, 3> xyz{};
    bool given = false;
    for (double& coordinate : xyz) {
      in.read_double(coordinate);
      given = given || in.value_present() != 0;
    }
    point = giPoint3(xyz[0], xyz[1], xyz[2]);
    return given ? igsSupply::given : igsSupply::empty;
  };
  return igs_read_bounded(in, count, points, read);
}

void igs_print_flag(utOstream& os, const char* label, int value, int true_value) {
  const char* const meaning = !igs_is_flag(value) ? "(Unknown)" : value == true_value ? "(True)" : "(False)";
  os << label << " = " << value << meaning << utEndl;
}

igsWeightSpread igs_weight_spread(const igsList<double>& weights, double tolerance) {
  igsWeightSpread spread;
  for (const double weight : weights) {
    spread.all_exact &= weight == weights.front();
    spread.all_close &= std::abs(weight - weights.front()) <= tolerance;
  }
  return spread;
}
