#include "igs/surfaces/igs120_errors.h"

#include <cmath>
#include <numbers>

#include "igs/support/coResourceTable.h"

namespace {
constexpr double full_turn = 2 * std::numbers::pi;

// Refuses what would not pass the next check: angles that are infinite, or so large that a turn is lost in them.
int set_range(igs120& surface, double range) {
  const double tolerance = kel_resource_table_inquire().value(kelTolCoincAngles);
  const double start = surface.start_angle();
  const volatile double stored = start + range;  // as memory rounds it; registers may be longer
  const double end = stored;
  if (!(end - start >= tolerance && end - start <= full_turn + tolerance)) return 0;
  surface.set_terminate_angle(end);
  return 1;
}
}  // namespace

int igs120AnglesOutOfSequence::fix() {
  return igs_repair<igs120>(object_at_key(), [](igs120& surface) {
    const double tolerance = kel_resource_table_inquire().value(kelTolCoincAngles);
    const double below = std::fmod(surface.terminate_angle() - surface.start_angle(), full_turn);
    const double range = below < 0 ? below + full_turn : below;
    return set_range(surface, range < tolerance ? full_turn : range);
  });
}

int igs120AngleRangeTooLarge::fix() {
  return igs_repair<igs120>(object_at_key(), [](igs120& surface) { return set_range(surface, full_turn); });
}
