#include "explain/rows.h"

// Form 0 is without parameters; form 1 has a reference direction besides.
Rows analytic_texts() {
  using enum Severity;
  constexpr std::string_view no_direction = "is given by another entity than a direction";
  constexpr Repair with_direction = in_turn("The direction is repaired; if that fails, the surface keeps its fault.");
  const Rows location = reference("Location", "@'s location", "is given by another entity than a point",
                                  {in_turn("The point is repaired; if that fails, the surface keeps its fault.")});
  const Rows normal = reference("Normal", "@'s normal", no_direction, {with_direction});
  const Rows axis = reference("Axis", "@'s axis", no_direction, {with_direction});
  const Rows direction = reference("RefDirection", "@'s reference direction", no_direction, {with_direction});
  const Rows parallel{error, "ParallelRefDirection", "@'s reference direction is parallel to its axis"};
  const Rows radius{error, "InvalidRadius", "@'s radius is {0}; it has to be above 0"};
  const Rows cone{{error, "InvalidRadius", "@'s radius is {0}; it has to be 0 or more"},
                  {error, "InvalidSemiAngle", "@'s semi-angle is {0}; it has to be above 0 and below 90 degrees"}};
  const Rows radii{{error, "InvalidMajorRadius", "@'s major radius is {0}; it has to be above 0"},
                   {error, "InvalidMinorRadius", "@'s minor radius is {0}; it has to be above 0"},
                   {warning, "RadiiOutOfSequence", "@'s minor radius {1} is not below its major radius {0}"}};
  return {
      Rows{entity("igs190_0", "the plane"), location, normal},
      Rows{entity("igs190_1", "the plane"),
           location,
           normal,
           direction,
           {error, "ParallelRefDirection", "@'s reference direction is parallel to its normal"}},
      Rows{entity("igs192_0", "the cylinder"), location, axis, radius},
      Rows{entity("igs192_1", "the cylinder"), location, axis, direction, radius, parallel},
      Rows{entity("igs194_0", "the cone"), location, axis, cone},
      Rows{entity("igs194_1", "the cone"), location, axis, direction, cone, parallel},
      Rows{entity("igs196_0", "the sphere"), location, radius},
      Rows{entity("igs196_1", "the sphere"), location, axis, direction, radius, parallel},
      Rows{entity("igs198_0", "the torus"), location, axis, radii},
      Rows{entity("igs198_1", "the torus"), location, axis, direction, radii, parallel},
  };
}
