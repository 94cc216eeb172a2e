// What a host gets that makes an entity: its type, its form, and what it lacks.

#include <gtest/gtest.h>

#include <regex>

#include "geometry/geometry_fixture.h"
#include "igs/igs.h"

namespace igs_test {
namespace {
struct New {
  igsObject* (*make)();
  const char* what;
};
template <class T>
igsObject* make() {
  return new T;
}

const New entities[] = {
    {make<igsCentreLine>, "106:20 InvalidZLevel BadNumPoints 0"},
    {make<igsSection>, "106:31 InvalidZLevel BadNumPoints 0"},
    {make<igsWitnessLine>, "106:40 InvalidZLevel BadNumPoints 0"},
    {make<igs108>, "108:0 InvalidCoefficients"},
    {make<igs118>, "118:0 NullFirstCurve NullSecondCurve"},
    {make<igs120>, "120:0 NullAxis NullGenerator InvalidAngles"},
    {make<igs122>, "122:0 NullDirectrix InvalidTerminatePoint"},
    {make<igs128>,
     "128:0 NoConstruct BadUDegree -2147483648 BadVDegree -2147483648 BadUSumIndex -1 BadVSumIndex -1 "
     "UnsetTrimmingParams TrimParamsUOutOfSequence unset,unset TrimParamsVOutOfSequence unset,unset"},
    {make<igs130>, "130:0 NullBaseCurve ZeroNormal ParamsOutOfSequence 0,0"},
    {make<igs140>, "140:0 ZeroIndicator InvalidDistance NullSurface"},
    {make<igs141>, "141:0 NullSurfacePtr BadNumModelSpaceCurves 0"},
    {make<igs142>, "142:0 NullSurfacePtr NoTrimCurves"},
    {make<igs143>, "143:0 NullSurfacePtr NoBoundaries"},
    {make<igs144>, "144:0 NullSurfacePtr NoBoundaries"},
    {make<igs186>, "186:0 OuterShellNullShell"},
    {make<igs190_0>, "190:0 NullLocation NullNormal"},
    {make<igs190_1>, "190:1 NullLocation NullNormal NullRefDirection"},
    {make<igs192_0>, "192:0 NullLocation NullAxis InvalidRadius unset"},
    {make<igs192_1>, "192:1 NullLocation NullAxis NullRefDirection InvalidRadius unset"},
    {make<igs194_0>, "194:0 NullLocation NullAxis InvalidRadius unset InvalidSemiAngle unset"},
    {make<igs194_1>, "194:1 NullLocation NullAxis NullRefDirection InvalidRadius unset InvalidSemiAngle unset"},
    {make<igs196_0>, "196:0 NullLocation InvalidRadius unset"},
    {make<igs196_1>, "196:1 NullLocation NullAxis NullRefDirection InvalidRadius unset"},
    {make<igs198_0>, "198:0 NullLocation NullAxis InvalidMajorRadius unset InvalidMinorRadius unset"},
    {make<igs198_1>, "198:1 NullLocation NullAxis NullRefDirection InvalidMajorRadius unset InvalidMinorRadius unset"},
    {make<igs202>, "202:0 NullNote NullLeader1 NullLeader2 InvalidVertex InvalidRadius unset"},
    {make<igs204>, "204:0 NullNote NullCurve1 NullLeader1 NullLeader2"},
    {make<igs206>, "206:0 NullNote NullLeader1 InvalidCentre"},
    {make<igs208>, "208:0 NullNote InvalidCorner InvalidAngle"},
    {make<igs210>, "210:0 NullNote NoLeaders"},
    {make<igs212>, "212:0 NoStrings"},
    {make<igs214>, "214:1 NoSegments InvalidZLevel InvalidArrowHead"},
    {make<igs216>, "216:0 NullNote NullLeader1 NullLeader2"},
    {make<igs218>, "218:0 NullNote NullWitnessOrLeader"},
    {make<igs220>, "220:0 NullNote NullLeader"},
    {make<igs222>, "222:0 NullNote NullLeader InvalidCentre"},
    {make<igs228>, "228:0 NoGeometry"},
    {make<igs230>, "230:0 NullBoundary InvalidPoint"},
    {make<igs304_1>, "304:1 NullTemplate InvalidSpacing unset"},
    {make<igs304_2>, "304:2 NoSegments InvalidPattern"},
    {make<igs308>, "308:0"},
    {make<igs310>, "310:0 InvalidScale 0 NoCharacters"},
    {make<igs312>, "312:0 InvalidStartPoint"},
    {make<igs314>, "314:0 InvalidRed unset InvalidGreen unset InvalidBlue unset"},
    {make<igsGroup>, "402:15 NoEntities"},
    {make<igs402_1>, "402:1 igsGroupNoEntities"},
    {make<igs402_3>, "402:3 NoViews"},
    {make<igs402_7>, "402:7 igsGroupNoEntities"},
    {make<igs402_16>, "402:16 igsGroupNoEntities"},
    {make<igs404>, "404:0"},
    {make<igs408>, "408:0 NullSubfigure InvalidTranslation"},
    {make<igs410_0>, "410:0"},
    {make<igs416>, "416:1 NoFileName"},
    {make<igs502>, "502:1 NoVertices"},
    {make<igs504>, "504:1 NoEdges"},
    {make<igs508>, "508:1 NoOrientatedEdges"},
    {make<igs510>, "510:1 NullSurface NoLoops"},
    {make<igs514>, "514:1 NoFaces"},
};

TEST(NewEntities, HaveTheirTypeAndFormAndLackWhatIsNotGiven) {
  for (const New& entity : entities) {
    igsFile file;
    const igsObject& object = *entity.make();
    const igsDirectoryEntry& entry = object.directory_entry();
    std::string what = std::to_string(entry.entity_type()) + ':' + std::to_string(entry.form_number());
    for (const std::string& error : found_by_check(object)) what += ' ' + error;
    what = std::regex_replace(what, std::regex(' ' + object.objtype().id_string() + "(?=[A-Z])"), " ");
    what = std::regex_replace(what, std::regex(" 1(?= |$)"), "");
    EXPECT_EQ(std::regex_replace(what, std::regex("-1\\.79769313486232e\\+308"), "unset"), entity.what);
  }
}
}  // namespace
}  // namespace igs_test
