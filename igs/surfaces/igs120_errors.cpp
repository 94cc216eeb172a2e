#include "igs/surfaces/igs120_errors.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "igs/support/coResourceTable.h"
#include "igs/surfaces/private/igsTrimmedAngles.h"

namespace {
constexpr double full_turn = 2 * std::numbers::pi;

double sum_in_memory(double angle, double range) {
  const volatile double sum = angle + range;  // registers may be longer
  return sum;
}

// Refuses what would not pass the next check: angles that are infinite, or so large that a turn is lost in them.
int set_angles(igs120& surface, double start, double end) {
  const double tolerance = kel_resource_table_inquire().value(kelTolCoincAngles);
  if (!(end - start >= tolerance && end - start <= full_turn + tolerance)) return 0;
  surface.set_start_angle(start);
  surface.set_terminate_angle(end);
  return 1;
}

igsRepairRun::Range trimmed_angles(const igs120& surface) {
  igsRepairRun* const run = igsRepairRun::current();
  std::optional<igsRepairRun::Ranges> of_this_call;
  std::optional<igsRepairRun::Ranges>& ranges = run != nullptr ? run->trimmed_angles : of_this_call;
  if (!ranges.has_value()) ranges = igs_trimmed_angles(surface.file());
  const auto found = ranges->find(surface.de_number());
  return found != ranges->end() ? found->second : igs_nowhere;
}
}  // namespace

int igs120AnglesOutOfSequence::fix() {
  return igs_repair<igs120>(object_at_key(), [](igs120& surface) {
    const double tolerance = kel_resource_table_inquire().value(kelTolCoincAngles);
    const double below = std::fmod(surface.terminate_angle() - surface.start_angle(), full_turn);
    const double range = below < 0 ? below + full_turn : below;
    const double start = surface.start_angle();
    return set_angles(surface, start, sum_in_memory(start, range < tolerance ? full_turn : range));
  });
}

int igs120AngleRangeTooLarge::fix() {
  return igs_repair<igs120>(object_at_key(), [](igs120& surface) {
    const auto [first, last] = trimmed_angles(surface);
    const double start = std::min(std::max(surface.start_angle(), sum_in_memory(last, -full_turn)), first);
    return set_angles(surface, start, std::max(sum_in_memory(start, full_turn), last));
  });
}
