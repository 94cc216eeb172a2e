#include "explain/rows.h"

Rows annotation_texts() {
  using enum Severity;
  constexpr std::string_view other = "is an entity of another type";
  constexpr Repair with_line = in_turn("The line is repaired; if that fails, nothing is changed.");
  constexpr Repair with_leader = in_turn("The leader is repaired; if that fails, nothing is changed.");
  constexpr Repair with_curve = in_turn("The curve is repaired; if that fails, nothing is changed.");
  constexpr Repair without_missing = nulls("All missing ones are taken out of the list.");
  constexpr std::string_view not_flat = "@'s dimensionality is {0}; it has to be 1";
  const Rows level{error, "InvalidZLevel", "@'s plane height is undefined"};
  const Rows flat{
      {warning, "InvalidDimensionality", not_flat, geometry("It is made 1; of points in space, x and y are kept.")},
      level};
  const Rows point{error, "InvalidPoint", "point {#0} is undefined"};
  const Rows pairs_of_points{
      {error, "BadNumPoints", "@ cannot have {0} points, or the record cannot hold them",
       removal("Of an odd number of 3 or more, the last point is dropped; others are not repaired.")},
      point};
  const Rows general_note = reference("Note", "@'s note", "is no general note",
                                      {in_turn("The note is repaired; if that fails, nothing is changed.")});
  const Rows leader = reference("Leader", "@'s leader", other, {with_leader});
  const Rows leader1 = reference("Leader1", "@'s first leader", other, {with_leader});
  const Rows leader2 = reference("Leader2", "@'s second leader", other, {with_leader});
  const Rows witness_lines{optional(reference("Witness1", "@'s first witness line", other, {with_line})),
                           optional(reference("Witness2", "@'s second witness line", other, {with_line}))};
  const Rows leader_list =
      reference("Leader", "leader {#0}", other, {.of_faults = with_leader, .of_null = without_missing});
  const Rows count_of_leaders{error, "BadNumLeaders", "the record cannot hold {0} leaders; the entity was left out"};
  return {
      Rows{entity("igsCentreLine", "the centre line"), flat, pairs_of_points},
      Rows{entity("igsSection", "the section"), flat, pairs_of_points},
      Rows{entity("igsWitnessLine", "the witness line"), flat},
      {error, "BadNumPoints", "@ cannot have {0} points, or the record cannot hold them"},
      point,
      {note, "CoincidentPoints", "@'s first and last point are at most {0} apart",
       accepted("It is accepted as suppressed; nothing is changed.")},
      {warning, "NotCollinear", "point {#0} is {1} away from the line through @'s first and last point",
       accepted("It is accepted; nothing is changed.")},
      entity("igsSimpleClosedPlanarCurve", "the closed planar curve"),
      {warning, "InvalidDimensionality", not_flat,
       geometry("It is made 1; where the points have no common z, the curve is made a polyline through them.")},
      level,
      {error, "BadNumPoints", "the record cannot hold {0} points; the entity was left out"},
      point,
      {error, "TooFewPoints", "@ has fewer than 3 points: {0}"},
      {warning, "NotClosed", "@'s ends are {0} apart",
       geometry("The curve is made a polyline through the same points.")},
      Rows{entity("igs202", "the angular dimension"), general_note, witness_lines, leader1, leader2},
      {error, "InvalidVertex", "@'s vertex is undefined"},
      {error, "InvalidRadius", "the radius of the dimension's leaders is {0}; it has to be above 0"},
      Rows{entity("igs204", "the curve dimension"), general_note},
      reference("Curve1", "@'s first curve", "is of a type that is no curve", {with_curve}),
      optional(reference("Curve2", "@'s second curve", "is of a type that is no curve", {with_curve})),
      Rows{leader1, leader2, witness_lines},
      Rows{entity("igs206", "the diameter dimension"), general_note, leader1},
      optional(leader2),
      {error, "InvalidCentre", "@'s centre is undefined"},
      Rows{entity("igs208", "the flag note"), general_note, leader_list},
      {error, "InvalidCorner", "the corner of @'s frame is undefined"},
      {error, "InvalidAngle", "the angle of @'s frame is undefined"},
      count_of_leaders,
      Rows{entity("igs210", "the label"), general_note},
      {warning, "NoLeaders", "@ has no leader"},
      Rows{leader_list, count_of_leaders},
      Rows{entity("igs216", "the linear dimension"), general_note, leader1, leader2, witness_lines},
      Rows{entity("igs218", "the ordinate dimension"), general_note},
      reference("WitnessOrLeader", "@'s line", "is neither a witness line nor a leader", {with_line}),
      reference("Witness", "@'s witness line", other, {with_line}),
      leader,
      Rows{entity("igs220", "the point dimension"), general_note, leader},
      optional(reference("Geometry", "@'s outline", "is neither an arc nor a composite curve nor a closed planar curve",
                         {in_turn("The outline is repaired; if that fails, nothing is changed.")})),
      Rows{entity("igs222", "the radius dimension"), general_note, leader},
      {error, "InvalidCentre", "@'s centre is undefined"},
      optional(leader2),
      Rows{entity("igs228", "the symbol"), general_note},
      {error, "NoGeometry", "there is no geometry to form @"},
      {error, "NullGeometry", "entity {#0} of @'s geometry is missing", without_missing},
      consequence("InvalidGeometry", "entity {#0} of @'s geometry has faults of its own",
                  in_turn("The entity is repaired; if that fails, nothing is changed.")),
      leader_list,
      {error, "BadNumGeometry", "the record cannot hold {0} entities that form @; the entity was left out"},
      count_of_leaders,
      entity("igs212", "string {#0}"),
      {error, "BadNumStrings", "the record cannot hold {0} strings; the note was left out"},
      {warning, "NoStrings", "the note has no strings"},
      {warning, "BadCharacterCount", "@ is said to have {1} characters, but its text has {2}",
       value("The number is set to the length of the text.")},
      {warning, "InvalidBoxWidth", "the box around @ has the width {1}"},
      {warning, "InvalidBoxHeight", "the box around @ has the height {1}"},
      {error, "WrongFontType", "the font of @ is no text font"},
      consequence("InvalidFont", "the text font of @ has faults of its own",
                  in_turn("The font is repaired; if that fails, the note keeps its fault.")),
      {warning, "InvalidMirrorFlag", "the mirror flag of @ is {1}; it has to be 0, 1 or 2",
       value("It becomes 0: not mirrored.")},
      {warning, "InvalidRotateFlag", "the rotate flag of @ is {1}; it has to be 0 or 1",
       value("It becomes 0: the letters follow the base line.")},
      {error, "InvalidStartPoint", "the start of @ is undefined"},
      entity("igs214", "the leader"),
      {error, "BadNumSegments", "the record cannot hold {0} segments; @ was left out"},
      {error, "NoSegments", "@ has no segments"},
      {warning, "InvalidArrowHeight", "the height of @'s arrowhead is {0}"},
      {warning, "InvalidArrowWidth", "the width of @'s arrowhead is {0}"},
      {error, "InvalidZLevel", "the height of @'s plane is undefined"},
      {error, "InvalidArrowHead", "the place of @'s arrowhead is undefined"},
      {error, "InvalidTail", "tail {#0} of @ is undefined"},
      entity("igs230", "the sectioned area"),
      {error, "BadNumIslands", "the record cannot hold {0} islands; @ was left out"},
      reference("Boundary", "@'s boundary", "is no curve",
                {in_turn("The boundary is repaired; if that fails, @ keeps its fault."),
                 geometry("A point set is converted to a polyline; anything else stays as it is.")}),
      {warning, "InvalidPattern", "@'s pattern is {0}; it cannot be below 0", value("It becomes 1.")},
      {error, "InvalidPoint", "the point that a line of @ runs through is undefined"},
      {warning, "InvalidDistance", "the distance between @'s lines is {0}"},
      {error, "InvalidAngle", "the angle of @'s lines is undefined"},
      reference("Island", "island {#0} of @", "is no curve",
                {.of_faults = in_turn("The island is repaired; if that fails, @ keeps its fault."),
                 .of_null = removal("All islands that are missing are taken out of the list.")}),
  };
}
