// Boundaries, curves on surfaces, bounded and trimmed surfaces.

#include <gtest/gtest.h>

#include "geometry/geometry_fixture.h"
#include "igs/curves/igs110.h"
#include "igs/curves/igs116.h"
#include "igs/surfaces/igs108.h"
#include "igs/surfaces/igs141.h"
#include "igs/surfaces/igs142.h"
#include "igs/surfaces/igs143.h"
#include "igs/surfaces/igs144.h"
#include "objects/test_node.h"
#include "record_model.h"

namespace igs_test {
namespace {
constexpr int subject = 27;

const std::string patch =
    ",0,1,0,0,0.,0.,1.,1.,0.,0.,1.,1.,1.,1.,1.,1.,0.,0.,0.,1.,0.,0.,0.,1.,0.,1.,1.,0.,0.,1.,0.,1.";

/// A file with the entity under test, DE 27, one more with DE 29, and what they may refer to.
struct Model : RecordModel {
  explicit Model(const std::string& record, const std::string& another = "", De de = {})
      : RecordModel(
            {
                "128,1,1,1,1,0" + patch,                              // 1: a surface
                "108,0.,0.,1.,0.",                                    // 3: a plane
                "110,0.,0.,0.,1.,1.,0.",                              // 5: a curve
                "102,0",                                              // 7: a curve with a fault
                "128,1,1,1,1,7" + patch,                              // 9: a surface with a fault that can be repaired
                "142,0,1,5,0,0",                                      // 11: a curve on the surface
                "142,0,1,0,0,0",                                      // 13: one with a fault
                "142,0,3,0,5,0",                                      // 15: a curve on the plane
                "141,0,0,1,1,5,1,0",                                  // 17: a boundary on the surface
                "141,0,0,1,0",                                        // 19: one with a fault
                "141,0,0,3,1,5,1,0",                                  // 21: a boundary on the plane
                "106/2,2,2,0.,0.,0.,1.,0.,0.",                        // 23: a point set
                "124,1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,1.,0.",            // 25: neither curve nor surface
                record,                                               // 27
                another.empty() ? "110,0.,0.,0.,1.,1.,0." : another,  // 29
                "142,3,1,5,5,3",                                      // 31: another curve on the surface
                "116,1.,2.,3.,0",                                     // 33: a point
            },
            subject, std::move(de)) {}
};

TEST(TrimmedSurfaces, SoundOnesAreReadAndWritten) {
  const struct {
    const char *record, *written;  // "": the same
  } cases[] = {
      {"142,1,1,5,5,2", ""},
      {"142,3,1,0,5,0,0,0", "142,3,1,0,5,0"},
      {"142,0,3,0,5", "142,0,3,0,5,0"},
      {"144,1,1,0,11", ""},
      {"144,1,1,2,11,31,11,0,0", "144,1,1,2,11,31,11"},
      {"144,1,0,1,0,31", ""},
      {"143,0,1,1,17", ""},
      {"143,1,3,2,21,21", ""},
      {"141,0,0,1,1,5,1,0", ""},
      {"141,0,3,3,2,5,2,0,33,1,0", ""},
      {"141,1,2,1,3,5,1,0,5,2,1,5,33,1,2,5,5,0,0", "141,1,2,1,3,5,1,0,5,2,1,5,33,1,2,5,5"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.record);
    Model model(c.record);
    ASSERT_EQ(model.read, 1);
    EXPECT_EQ(model.found(), "");
    EXPECT_EQ(written_data(model.file, subject), std::string(*c.written != '\0' ? c.written : c.record) + ';');
    const std::string first = written(model.file);
    igsFile again;
    ASSERT_EQ(read_text(again, first), 1);
    EXPECT_EQ(records_of(written(again), 'P'), records_of(first, 'P'));
  }
}

TEST(TrimmedSurfaces, Print) {
  const std::string null = " = {\n\t(NullPointer)\n}\n";
  const struct {
    const char* record;
    std::string printed;
  } cases[] = {
      {"142,1,0,0,0,2", "CurveCreation = 1\nSurface" + null + "ParameterSpaceCurve" + null + "ModelSpaceCurve" + null +
                            "PreferredRepresentation = 2\n"},
      {"144,0,1,1,0,0", "Surface" + null + "OuterBoundaryFlag = 1\nNumberOfInnerBoundaries = 1\nOuterBoundary" + null +
                            "InnerBoundaries = {\n\t(0) = {\n\t\t(NullPointer)\n\t}\n}\n"},
      {"143,1,0,1,0", "SurfaceRepresentation = 1\nBasisSurface" + null +
                          "NumberOfBoundaries = 1\nBoundaries = {\n\t(0) = {\n\t\t(NullPointer)\n\t}\n}\n"},
      {"141,1,3,0,1,0,2,1,0",
       "BoundedSurfaceRepresentation = 1\nPreferredRepresentation = 3\nSurface" + null +
           "NumberOfModelSpaceCurves = 1\nModelSpaceCurves = {\n\t(0) = {\n\t\tCurve = {\n\t\t\t(NullPointer)\n\t\t}\n"
           "\t\tSense = 2\n\t\tNumberOfParameterCurves = 1\n\t\tParameterCurves = {\n\t\t\t(0) = {\n"
           "\t\t\t\t(NullPointer)\n\t\t\t}\n\t\t}\n\t}\n}\n"},
  };
  for (const auto& c : cases) EXPECT_EQ(printed_data(Model(c.record).entity()), c.printed);
}

/// `record` with `number` in the place of the '@'.
std::string with_reference(std::string record, int number) {
  return record.replace(record.find('@'), 1, std::to_string(number));
}

TEST(TrimmedSurfaces, EveryReferenceIsTested) {
  // Entities that are faulty in that they refer back.
  const char* const plane = "108,0.,0.,1.,0.,27";
  const char* const curve = "102,1,27";
  const char* const on_surface = "142,0,27,0,5,0";
  const char* const boundary = "141,0,0,27,1,5,1,0";
  const struct {
    const char *record, *null, *wrong_type, *faulty, *back;
    std::string mismatch = "";  // found beside any of these
  } cases[] = {
      {"142,0,@,0,5,0", "igs142NullSurfacePtr", "igs142InvalidSurfaceType", "igs142InvalidSurfaceData", plane},
      {"142,0,1,@,5,0", "", "igs142InvalidCurve2dType", "igs142InvalidCurve2dData", curve},
      {"142,0,1,5,@,0", "", "igs142InvalidCurve3dType", "igs142InvalidCurve3dData", curve},
      {"142,0,1,0,@,0", "igs142NoTrimCurves", "igs142InvalidCurve3dType", "igs142InvalidCurve3dData", curve},
      {"144,@,1,1,11,31", "igs144NullSurfacePtr", "igs144InvalidSurfaceType", "igs144InvalidSurfaceData", plane,
       "; igs144OuterBoundSurfaceMismatch; igs144InnerBoundSurfaceMismatch 0"},
      {"144,1,1,0,@", "igs144NoBoundaries", "igs144InvalidOuterBoundType",
       "igs144InvalidOuterBoundData; igs144OuterBoundSurfaceMismatch", on_surface},
      {"144,1,0,2,0,11,@", "igs144NullInnerBoundPtr 1", "igs142InvalidInnerBoundType 1",
       "igs144InvalidInnerBoundData 1; igs144InnerBoundSurfaceMismatch 1", on_surface},
      {"143,0,@,1,17", "igs143NullSurfacePtr", "igs143InvalidSurfaceType", "igs143InvalidSurfaceData", plane,
       "; igs143SurfacePointerMismatch 0"},
      {"143,0,1,2,17,@", "igs143NullBoundaryPtr 1", "igs143InvalidBoundaryType 1",
       "igs143InvalidBoundaryData 1; igs143SurfacePointerMismatch 1", boundary},
      {"141,0,0,@,1,5,1,0", "igs141NullSurfacePtr", "igs141InvalidSurfaceType", "igs141InvalidSurfaceData", plane},
      {"141,1,0,1,2,5,1,0,@,1,1,5", "igs141NullModelSpaceCurvePtr 1", "igs141InvalidModelSpaceCurveType 1",
       "igs141InvalidModelSpaceCurveData 1", curve},
      {"141,1,0,1,2,5,1,0,5,1,2,5,@", "igs141NullParameterCurvePtr 1,1", "igs141InvalidParameterCurveType 1,1",
       "igs141InvalidParameterCurveData 1,1", curve},
  };
  for (const auto& c : cases) {
    const auto expect = [&c](int reference, const std::string& found) {
      const std::string record = with_reference(c.record, reference);
      SCOPED_TRACE(record);
      Model model(record, c.back);
      expect_found_and_cleanable(model, found + c.mismatch);
    };
    for (const int null : {0, 99, 8, -5, 2147483647}) expect(null, c.null);
    for (const int wrong : {25, 23, subject}) expect(wrong, c.wrong_type);
    expect(29, c.faulty);
  }
}

TEST(TrimmedSurfaces, OtherFaults) {
  const struct {
    const char *record, *found;
  } cases[] = {
      {"142,-1,1,5,0,4", "igs142InvalidCurveCreation -1; igs142InvalidPrefRepresentation 4"},
      {"142,4,25,0,0,-1",
       "igs142InvalidCurveCreation 4; igs142InvalidPrefRepresentation -1; igs142InvalidSurfaceType; "
       "igs142NoTrimCurves"},
      {"142,0,3,5,5,0", "igs142Trim2DNonParametricSurface"},
      {"142,0,3,25,7,0", "igs142InvalidCurve2dType; igs142Trim2DNonParametricSurface; igs142InvalidCurve3dData"},
      {"142,0,11,5,0,0", "igs142InvalidSurfaceType"},  // a curve on a surface is none
      {"144,1,2,0,0", "igs144InvalidOuterBoundaryFlag 2; igs144NoBoundaries"},
      {"144,3,-1,2,15,11,15", "igs144InvalidOuterBoundaryFlag -1; igs144InnerBoundSurfaceMismatch 0"},
      {"144,1,1,1,15,13", "igs144OuterBoundSurfaceMismatch; igs144InvalidInnerBoundData 0"},
      {"144,9,1,0,17", "igs144InvalidSurfaceData; igs144InvalidOuterBoundType"},
      {"143,2,1,0", "igs143InvalidSurfaceRepresentation 2; igs143NoBoundaries"},
      {"143,-1,9,2,11,19",
       "igs143InvalidSurfaceRepresentation -1; igs143InvalidSurfaceData; igs143InvalidBoundaryType 0; "
       "igs143InvalidBoundaryData 1; igs143SurfacePointerMismatch 1"},
      {"141,2,4,1,0", "igs141InvalidBoundedSurfRep 2; igs141InvalidPreferrenceFlag 4; igs141BadNumModelSpaceCurves 0"},
      {"141,-1,-1,1,1,5,0,0",
       "igs141InvalidBoundedSurfRep -1; igs141InvalidPreferrenceFlag -1; igs141InvalidReversalFlag 0,0"},
      {"141,0,0,1,2,5,3,1,7,23,1,0",
       "igs141InvalidReversalFlag 0,3; igs141UnexpectedParamCurves 0; igs141InvalidParameterCurveData 0,0; "
       "igs141InvalidModelSpaceCurveType 1"},
      {"141,1,0,3,1,5,1,3,0,33,7",
       "igs141NullParameterCurvePtr 0,0; igs141Trim2DNonParametricSurface; igs141InvalidParameterCurveType 0,1; "
       "igs141Trim2DNonParametricSurface; igs141InvalidParameterCurveData 0,2"},
      {"141,1,0,1,3,5,1", "igs141NullModelSpaceCurvePtr 1; igs141NullModelSpaceCurvePtr 2"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.record);
    EXPECT_EQ(Model(c.record).found(), c.found);
  }
}

TEST(TrimmedSurfaces, EntityUse) {
  const struct {
    const char *record, *status;
    bool sound;
  } cases[] = {
      {"142,0,1,5,0,0", "00000000", true},  {"142,0,1,5,0,0", "00000500", true}, {"142,0,1,5,0,0", "00000400", false},
      {"143,0,1,1,17", "00000100", true},   {"143,0,1,1,17", "00000500", false}, {"143,0,1,1,17", "00000400", false},
      {"144,1,0,1,0,11", "00000500", true},  // the common check alone
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.record) + ' ' + c.status);
    Model model(c.record, "", {.status = c.status});
    EXPECT_EQ(model.found(), c.sound ? "" : "igsDEInvalidEntityUse 0");
    model.file.clean(0);
    EXPECT_EQ(model.found(), "");
  }
}

TEST(TrimmedSurfaces, Repairs) {
  const struct {
    std::string record, repaired;  // "": nothing is changed
    const char *left, *another = "";
  } cases[] = {
      // References that have become sound, and some that have not.
      {"142,0,9,5,0,0", "", ""},
      {"142,0,9,7,7,0", "", "igs142InvalidCurve2dData; igs142InvalidCurve3dData"},
      {"142,0,1,29,29,0", "", "", "102,1,23"},
      {"144,9,1,1,29,29", "", "", "142,0,9,5,0,0"},
      {"144,1,1,1,13,13", "", "igs144InvalidOuterBoundData; igs144InvalidInnerBoundData 0"},
      {"143,0,9,1,29", "", "", "141,0,9,9,1,5,8,0"},
      {"143,0,1,1,19", "", "igs143InvalidBoundaryData 0"},
      {"141,1,0,9,1,29,1,1,29", "", "", "102,1,23"},
      {"141,1,0,1,1,7,1,1,7", "", "igs141InvalidModelSpaceCurveData 0; igs141InvalidParameterCurveData 0,0"},
      // Flags.
      {"141,0,4,1,3,5,7,0,5,2,0,5,-1,0", "141,0,0,1,3,5,1,0,5,2,0,5,1,0", ""},
      {"141,3,0,1,1,5,1,0", "", "igs141InvalidBoundedSurfRep 3"},
      // Point sets become curves: the only one, those that others share, and not what else is no curve.
      {"141,0,0,1,1,23,1,0", "", ""},
      {"141,1,0,1,2,5,1,0,5,1,2,5,23", "", ""},
      {"141,1,0,1,1,23,1,1,23", "141,1,0,1,1,35,1,1,23", ""},
      {"141,1,0,1,1,23,1,1,5", "141,1,0,1,1,35,1,1,5", "", "102,1,23"},
      {"141,1,0,1,1,25,1,1,33", "", "igs141InvalidModelSpaceCurveType 0; igs141InvalidParameterCurveType 0,0"},
      // A missing surface is taken from the boundaries, and these are then at peace with it.
      {"143,0,0,2,17,17", "143,0,1,2,17,17", ""},
      {"143,0,0,3,17,29,25", "143,0,1,3,17,29,25", "igs143InvalidBoundaryType 2", "141,0,0,1,1,5,2,0"},
      {"143,0,0,2,17,21", "", "igs143NullSurfacePtr; igs143SurfacePointerMismatch 0; igs143SurfacePointerMismatch 1"},
      {"143,0,0,1,29", "", "igs143NullSurfacePtr; igs143InvalidBoundaryData 0; igs143SurfacePointerMismatch 0",
       "141,0,0,5,1,5,1,0"},
      {"143,0,0,2,11,0", "", "igs143NullSurfacePtr; igs143InvalidBoundaryType 0; igs143NullBoundaryPtr 1"},
      {"144,0,1,2,11,31,11", "144,1,1,2,11,31,11", ""},
      {"144,0,0,3,0,31,0,11", "144,1,0,2,0,31,11", ""},
      {"144,0,1,1,15,31", "144,1,1,1,15,31", "igs144OuterBoundSurfaceMismatch"},
      {"144,0,1,0,11", "", "igs144NullSurfacePtr; igs144OuterBoundSurfaceMismatch"},
      {"144,0,0,2,0,15,11", "",
       "igs144NullSurfacePtr; igs144InnerBoundSurfaceMismatch 0; igs144InnerBoundSurfaceMismatch 1"},
      {"144,0,0,1,0,29", "", "igs144NullSurfacePtr; igs144InvalidInnerBoundData 0; igs144InnerBoundSurfaceMismatch 0",
       "142,0,25,5,0,0"},
      {"144,0,0,1,0,17", "", "igs144NullSurfacePtr; igs142InvalidInnerBoundType 0"},
      // Null inner boundaries go, the others keep their order, and their faults their entities.
      {"144,1,0,3,0,31,0,11", "144,1,0,2,0,31,11", ""},
      {"144,1,1,3,11,0,0,0", "144,1,1,0,11", ""},
      {"144,1,0,5,0,0,15,0,13,31", "144,1,0,3,0,15,13,31",
       "igs144InnerBoundSurfaceMismatch 0; igs144InvalidInnerBoundData 1"},
      {"144,9,0,4,0,0,29,0,29", "144,9,0,2,0,29,29", "", "142,0,9,5,0,0"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.record);
    Model model(c.record, c.another);
    model.file.clean(0);
    EXPECT_EQ(model.errors().empty(), *c.left == '\0');  // an entity that keeps errors is one to delete
    EXPECT_EQ(model.found(), c.left);
    EXPECT_EQ(written_data(model.file, subject), (c.repaired.empty() ? c.record : c.repaired) + ';');
  }
  Model model("144,1,0,2,0,0,0");
  model.file.clean(0);
  EXPECT_EQ(model.found(), "igs144NoBoundaries");
}

TEST(TrimmedSurfaces, DataErrorsConcernTheReferencedEntity) {
  const struct {
    const char* record;
    std::vector<int> concerned;
  } cases[] = {{"142,0,9,7,7,0", {9, 7, 7}},
               {"144,9,1,2,13,0,13", {9, 13, subject, subject, 13, subject}},
               {"143,0,9,1,19", {9, 19, subject}},
               {"141,1,0,9,1,7,1,1,7", {9, 7, 7}}};
  for (const auto& c : cases) {
    Model model(c.record);
    model.entity().check();
    std::vector<int> concerned;
    for (igsError* const error : object_errors(model.file)) {
      auto* const own = static_cast<igsObjectError*>(error);
      if (own->key() == subject) concerned.push_back(own->obj());
    }
    EXPECT_EQ(concerned, c.concerned) << c.record;
  }
}

TEST(TrimmedSurfaces, ACountThatCannotBeUsedLosesTheEntity) {
  const struct {
    const char *record, *error;
  } cases[] = {{"144,1,0,-1,0", "igs144BadNumInnerBounds 27 -1"},
               {"144,1,0,2000000000,0,11", "igs144BadNumInnerBounds 27 2000000000"},
               {"143,0,1,-1", "igs143BadNumBoundaries 27 -1"},
               {"143,0,1,257,17", "igs143BadNumBoundaries 27 257"},
               {"141,0,0,1,-1", "igs141BadNumModelSpaceCurves 27 -1"},
               {"141,0,0,1,2147483647,5,1,0", "igs141BadNumModelSpaceCurves 27 2147483647"},
               {"141,1,0,1,2,5,1,1,5,5,1,-1,5", "igs141BadNumAssocParamCurves 27 1,-1"},
               {"141,1,0,1,2000000000,5,1,2000000000,5", "igs141BadNumAssocParamCurves 27 0,2000000000"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.error);
    const Model model(c.record);
    EXPECT_EQ(model.file.entity(subject), nullptr);
    std::vector<std::string> bad_counts;
    for (const igsError* const error : object_errors(model.file)) bad_counts.push_back(describe(*error));
    EXPECT_EQ(bad_counts, std::vector<std::string>{c.error});
  }
}

TEST(TrimmedSurfaces, HostsReachEveryMember) {
  igsFile file;
  const igsObjectPtr line(new igs110), point(new igs116);
  igsObjectPtr untouched = point;

  auto* const boundary = new igs141;
  EXPECT_EQ(boundary->set_size(-1), 0);
  EXPECT_EQ(boundary->set_size(2), 1);
  igsModelSpaceCurve curve;
  EXPECT_EQ(curve.set_size(1), 1);
  EXPECT_EQ(curve.set_parameter_curve(0, line), 1);
  EXPECT_EQ(curve.set_parameter_curve(1, line), 0);
  EXPECT_EQ(boundary->set_model_space_curve(1, &curve), 1);
  EXPECT_EQ(boundary->set_model_space_curve(2, &curve), 0);
  EXPECT_EQ(boundary->set_model_space_curve(0, nullptr), 0);
  igsModelSpaceCurve* place = nullptr;
  EXPECT_EQ(boundary->model_space_curve(-1, &place), 0);
  EXPECT_EQ(boundary->model_space_curve(2, &place), 0);
  EXPECT_EQ(place, nullptr);
  EXPECT_EQ(boundary->model_space_curve(1, &place), 1);
  EXPECT_EQ(place->parameter_curve(1, untouched), 0);
  place->set_sense(igsModelSpaceCurve::reversed);
  place->set_curve(line);

  auto* const bounded = new igs143;
  bounded->set_size(1);
  EXPECT_EQ(bounded->set_boundary(1, line), 0);
  EXPECT_EQ(bounded->boundary(-1, untouched), 0);
  EXPECT_EQ(bounded->set_boundary(0, boundary), 1);
  auto* const trimmed = new igs144;
  trimmed->set_inner_boundaries({line, line});
  EXPECT_EQ(trimmed->set_inner_boundary(2, line), 0);
  EXPECT_EQ(trimmed->inner_boundary(2, untouched), 0);
  EXPECT_EQ(trimmed->set_inner_boundary(1, bounded), 1);
  EXPECT_TRUE(untouched == point);

  EXPECT_EQ(line->num_references(),
            5);  // the pointers here, in `curve`, twice in the boundary, and in the trimmed surface
  EXPECT_EQ(written_data(file, 5), "141,0,0,0,2,0,1,0,1,2,1,1;");
  EXPECT_EQ(written_data(file, 7), "143,0,0,1,5;");
  EXPECT_EQ(written_data(file, 9), "144,0,0,2,0,1,7;");
  boundary->unreference_children();
  EXPECT_EQ(line->num_references(), 3);
}

TEST(TrimmedSurfaces, ManyFaultsOfOneSurfaceTakeLinearTime) {
  igsFile file;
  auto* const surface = new igs108;
  surface->set_coefficients(0, 0, 1, 0);
  auto* const curve = new igs142;
  auto* const trimmed = new igs144;
  trimmed->set_surface(surface);
  std::vector<igsObjectPtr> boundaries;
  for (int i = 0; i < chain_length / 4; ++i) boundaries.insert(boundaries.end(), {igsObjectPtr(), igsObjectPtr(curve)});
  trimmed->set_inner_boundaries(boundaries);
  file.clean(0);
  EXPECT_EQ(trimmed->number_of_inner_boundaries(), chain_length / 4);
  EXPECT_EQ(trimmed->num_logged_errors(), chain_length / 2);  // on another surface, and with faults of their own
  trimmed->set_inner_boundaries(std::vector<igsObjectPtr>(static_cast<std::size_t>(chain_length / 4)));
  file.clean(0);
  EXPECT_EQ(trimmed->number_of_inner_boundaries(), 0);
  EXPECT_EQ(trimmed->num_logged_errors(), 0);
}
}  // namespace
}  // namespace igs_test
