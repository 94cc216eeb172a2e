#include "explain_table.h"

namespace {
constexpr std::string_view drops_null_members = "All missing members are taken out; the others keep their order.";
constexpr std::string_view drops_members =
    "All members that are missing or still faulty are taken out, unless the entity has other faults; a second repair "
    "finds it without them.";
constexpr std::string_view renumbers = "The view gets that number.";
}  // namespace

std::span<const ErrorText> structure_entity_errors() {
  static constexpr ErrorText rows[] = {
      {"igs308InvalidDepth", "the subfigure's nesting depth is {0}, below 0", "It becomes 0."},
      {"igs308NullGeometryPointer", "member {0} (counted from 0) of the subfigure is missing", drops_members},
      {"igs308BadSubEntity", "member {0} (counted from 0) of the subfigure has faults of its own", drops_members},
      {"igs308BadNumEntities", "the record cannot hold {0} members; the entity was left out", ""},
      {"igsGroupNoEntities", "the group has no members", ""},
      {"igsGroupNullEntity", "member {0} (counted from 0) of the group is missing", drops_null_members},
      {"igsGroupBadNumEntities", "the record cannot hold {0} members; the entity was left out", ""},
      {"igs402_16InvalidNumberOfTransforms", "the number of transforms is {0} instead of 1",
       "The first one is kept, and a missing one becomes the identity."},
      {"igs402_16WrongMatrixType", "the plane's matrix is no transformation matrix", ""},
      {"igs402_16InvalidMatrix", "the plane's matrix has faults of its own", "The matrix is repaired."},
      {"igs402_16BadNumTransforms", "the record cannot hold {0} transforms; the entity was left out", ""},
      {"igs402_16BadNumEntities", "the record cannot hold {0} members; the entity was left out", ""},
      {"igs402_3NoViews", "there are no views for the members to be visible in", ""},
      {"igs402_3NullView", "view {0} (counted from 0) is missing",
       "Everything that is no view is taken out of the list; the others keep their order."},
      {"igs402_3WrongViewType", "view {0} (counted from 0) is no view",
       "Everything that is no view is taken out of the list; the others keep their order."},
      {"igs402_3InvalidView", "view {0} (counted from 0) has faults of its own", "The view is repaired."},
      {"igs402_3NullEntity", "member {0} (counted from 0) is missing", drops_null_members},
      {"igs402_3BadNumViews", "the record cannot hold {0} views; the entity was left out", ""},
      {"igs402_3BadNumEntities", "the record cannot hold {0} members; the entity was left out", ""},
      {"igs404NullViewPointer", "view {0} (counted from 0) of the drawing is missing",
       "All missing views are taken out of the drawing; the others keep their order and their places."},
      {"igs404InvalidViewPointer", "view {0} (counted from 0) of the drawing is no view", ""},
      {"igs404BadViewPointer", "view {0} (counted from 0) of the drawing has faults of its own",
       "The view is repaired."},
      {"igs404InvalidOrigin", "the place on the sheet of view {0} (counted from 0) is undefined", ""},
      {"igs404NullEntityPointer", "member {0} (counted from 0) of the drawing is missing", drops_members},
      {"igs404BadEntityPointer", "member {0} (counted from 0) of the drawing has faults of its own", drops_members},
      {"igs404BadNumViews", "the record cannot hold {0} views; the entity was left out", ""},
      {"igs404BadNumEntities", "the record cannot hold {0} members; the entity was left out", ""},
      {"igs408NullSubfigure", "the subfigure to be placed is missing", ""},
      {"igs408WrongSubfigureType", "what is to be placed is no subfigure definition", ""},
      {"igs408InvalidSubfigure", "the subfigure to be placed has faults of its own", "The subfigure is repaired."},
      {"igs408InvalidTranslation", "the place of the subfigure is undefined", ""},
      {"igs408InvalidScale", "the subfigure's scale is {0}", "It becomes 1."},
      {"igs410_0NoViewNumberDefined", "the view has no number; {0} is free", renumbers},
      {"igs410_0InvalidViewNumber", "the view's number is negative; {0} is free", renumbers},
      {"igs410_0RepeatedView", "another view has the same number; {0} is free", renumbers},
      {"igs410_0InvalidScale", "the view's scale is {0}, not above 0", "It becomes 1."},
      {"igs410_0WrongPlaneType",
       "plane {0} (left, top, right, bottom, back, front, counted from 0) of the view is no plane", ""},
      {"igs410_0InvalidPlane",
       "plane {0} (left, top, right, bottom, back, front, counted from 0) of the view has faults of its own",
       "The plane is repaired."},
      {"igs416NoFileName", "the name of the file referred to is empty", ""},
  };
  return rows;
}
