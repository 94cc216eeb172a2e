#include "explain/rows.h"

Rows annotation_texts() {
  constexpr std::string_view other = "is an entity of another type";
  constexpr std::string_view with_line = "The line is repaired; if that fails, nothing is changed.";
  constexpr std::string_view with_leader = "The leader is repaired; if that fails, nothing is changed.";
  constexpr std::string_view with_curve = "The curve is repaired; if that fails, nothing is changed.";
  constexpr std::string_view without_missing = "All missing ones are taken out of the list.";
  constexpr std::string_view not_flat = "@'s dimensionality is {0}; it has to be 1";
  const Rows level{"InvalidZLevel", "@'s plane height is undefined"};
  const Rows flat{{"InvalidDimensionality", not_flat, "It is made 1; of points in space, x and y are kept."}, level};
  const Rows point{"InvalidPoint", "point {#0} is undefined"};
  const Rows pairs_of_points{{"BadNumPoints", "@ cannot have {0} points, or the record cannot hold them",
                              "Of an odd number of 3 or more, the last point is dropped; others are not repaired."},
                             point};
  const Rows note =
      reference("Note", "@'s note", "is no general note", {"The note is repaired; if that fails, nothing is changed."});
  const Rows leader = reference("Leader", "@'s leader", other, {with_leader});
  const Rows leader1 = reference("Leader1", "@'s first leader", other, {with_leader});
  const Rows leader2 = reference("Leader2", "@'s second leader", other, {with_leader});
  const Rows witness_lines{optional(reference("Witness1", "@'s first witness line", other, {with_line})),
                           optional(reference("Witness2", "@'s second witness line", other, {with_line}))};
  const Rows leader_list =
      reference("Leader", "leader {#0}", other, {.of_faults = with_leader, .of_null = without_missing});
  const Rows count_of_leaders{"BadNumLeaders", "the record cannot hold {0} leaders; the entity was left out"};
  return {
      Rows{entity("igsCentreLine", "the centre line"), flat, pairs_of_points},
      Rows{entity("igsSection", "the section"), flat, pairs_of_points},
      Rows{entity("igsWitnessLine", "the witness line"), flat},
      {"BadNumPoints", "@ cannot have {0} points, or the record cannot hold them"},
      point,
      {"CoincidentPoints", "@'s first and last point are at most {0} apart",
       "It is accepted as suppressed; nothing is changed."},
      {"NotCollinear", "point {#0} is {1} away from the line through @'s first and last point",
       "It is accepted; nothing is changed."},
      entity("igsSimpleClosedPlanarCurve", "the closed planar curve"),
      {"InvalidDimensionality", not_flat,
       "It is made 1; where the points have no common z, the curve is made a polyline through them."},
      level,
      {"BadNumPoints", "the record cannot hold {0} points; the entity was left out"},
      point,
      {"TooFewPoints", "@ has fewer than 3 points: {0}"},
      {"NotClosed", "@'s ends are {0} apart", "The curve is made a polyline through the same points."},
      Rows{entity("igs202", "the angular dimension"), note, witness_lines, leader1, leader2},
      {"InvalidVertex", "@'s vertex is undefined"},
      {"InvalidRadius", "the radius of the dimension's leaders is {0}; it has to be above 0"},
      Rows{entity("igs204", "the curve dimension"), note},
      reference("Curve1", "@'s first curve", "is of a type that is no curve", {with_curve}),
      optional(reference("Curve2", "@'s second curve", "is of a type that is no curve", {with_curve})),
      Rows{leader1, leader2, witness_lines},
      Rows{entity("igs206", "the diameter dimension"), note, leader1},
      optional(leader2),
      {"InvalidCentre", "@'s centre is undefined"},
      Rows{entity("igs208", "the flag note"), note, leader_list},
      {"InvalidCorner", "the corner of @'s frame is undefined"},
      {"InvalidAngle", "the angle of @'s frame is undefined"},
      count_of_leaders,
      Rows{entity("igs210", "the label"), note},
      {"NoLeaders", "@ has no leader"},
      Rows{leader_list, count_of_leaders},
      Rows{entity("igs216", "the linear dimension"), note, leader1, leader2, witness_lines},
      Rows{entity("igs218", "the ordinate dimension"), note},
      reference("WitnessOrLeader", "@'s line", "is neither a witness line nor a leader", {with_line}),
      reference("Witness", "@'s witness line", other, {with_line}),
      leader,
      Rows{entity("igs220", "the point dimension"), note, leader},
      optional(reference("Geometry", "@'s outline", "is neither an arc nor a composite curve nor a closed planar curve",
                         {"The outline is repaired; if that fails, nothing is changed."})),
      Rows{entity("igs222", "the radius dimension"), note, leader},
      {"InvalidCentre", "@'s centre is undefined"},
      optional(leader2),
      Rows{entity("igs228", "the symbol"), note},
      {"NoGeometry", "there is no geometry to form @"},
      {"NullGeometry", "entity {#0} of @'s geometry is missing", without_missing},
      {"InvalidGeometry", "entity {#0} of @'s geometry has faults of its own",
       "The entity is repaired; if that fails, nothing is changed."},
      leader_list,
      {"BadNumGeometry", "the record cannot hold {0} entities that form @; the entity was left out"},
      count_of_leaders,
      entity("igs212", "string {#0}"),
      {"BadNumStrings", "the record cannot hold {0} strings; the note was left out"},
      {"NoStrings", "the note has no strings"},
      {"BadCharacterCount", "@ is said to have {1} characters, but its text has {2}",
       "The number is set to the length of the text."},
      {"InvalidBoxWidth", "the box around @ has the width {1}"},
      {"InvalidBoxHeight", "the box around @ has the height {1}"},
      {"WrongFontType", "the font of @ is no text font"},
      {"InvalidFont", "the text font of @ has faults of its own",
       "The font is repaired; if that fails, the note keeps its fault."},
      {"InvalidMirrorFlag", "the mirror flag of @ is {1}; it has to be 0, 1 or 2", "It becomes 0: not mirrored."},
      {"InvalidRotateFlag", "the rotate flag of @ is {1}; it has to be 0 or 1",
       "It becomes 0: the letters follow the base line."},
      {"InvalidStartPoint", "the start of @ is undefined"},
      entity("igs214", "the leader"),
      {"BadNumSegments", "the record cannot hold {0} segments; @ was left out"},
      {"NoSegments", "@ has no segments"},
      {"InvalidArrowHeight", "the height of @'s arrowhead is {0}"},
      {"InvalidArrowWidth", "the width of @'s arrowhead is {0}"},
      {"InvalidZLevel", "the height of @'s plane is undefined"},
      {"InvalidArrowHead", "the place of @'s arrowhead is undefined"},
      {"InvalidTail", "tail {#0} of @ is undefined"},
      entity("igs230", "the sectioned area"),
      {"BadNumIslands", "the record cannot hold {0} islands; @ was left out"},
      reference("Boundary", "@'s boundary", "is no curve",
                {"The boundary is repaired; if that fails, @ keeps its fault.",
                 "A point set is converted to a polyline; anything else stays as it is."}),
      {"InvalidPattern", "@'s pattern is {0}; it cannot be below 0", "It becomes 1."},
      {"InvalidPoint", "the point that a line of @ runs through is undefined"},
      {"InvalidDistance", "the distance between @'s lines is {0}"},
      {"InvalidAngle", "the angle of @'s lines is undefined"},
      reference("Island", "island {#0} of @", "is no curve",
                {.of_faults = "The island is repaired; if that fails, @ keeps its fault.",
                 .of_null = "All islands that are missing are taken out of the list."}),
  };
}
