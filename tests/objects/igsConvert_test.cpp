#include "igs/curves/igsConvert.h"

#include <gtest/gtest.h>

#include <string>

#include "iges_builder.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile.h"
#include "igs/objects/igsObject.h"

namespace {

using igs_test::De;
using igs_test::IgesBuilder;

TEST(Convert, MakesPolylinesOfLinesAndPointsets) {
  struct Case {
    int type, form;
    const char* data;
    int polyline_form;       ///< 0: not converted
    const char* parameters;  ///< of the polyline
  };
  const Case cases[] = {
      {110, 0, "1.,2.,3.,4.,5.,6.", 12, "106,2,2,1.,2.,3.,4.,5.,6.;"},
      {106, 1, "1,3,7.5,1.,2.,3.,4.,5.,6.", 11, "106,1,3,7.5,1.,2.,3.,4.,5.,6.;"},
      {106, 2, "2,2,1.,2.,3.,4.,5.,6.", 12, "106,2,2,1.,2.,3.,4.,5.,6.;"},
      {106, 3, "3,1,1.,2.,3.,4.,5.,6.", 0, nullptr},
      {106, 12, "2,2,1.,2.,3.,4.,5.,6.", 0, nullptr},
      {116, 0, "1.,2.,3.,0", 0, nullptr},
  };
  const De attributes{.line_font = 2, .level = 5, .status = "01000100", .colour = 3, .label = "EDGE", .subscript = 9};
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.type) + " form " + std::to_string(c.form));
    IgesBuilder builder;
    builder.entity(c.type, c.form, c.data, attributes);
    igsFile file;
    ASSERT_EQ(igs_test::read_text(file, builder.text()), 1);
    igsObject* old = file.entity(1);
    ASSERT_NE(old, nullptr);
    const igsObject* made = igsConvert::to_curve(old);
    ASSERT_EQ(made != nullptr, c.polyline_form != 0);
    EXPECT_EQ(file.num_entities(), made != nullptr ? 2 : 1);
    if (made == nullptr) continue;
    EXPECT_EQ(made->objtype().id_string(), "igsPolyline");
    EXPECT_EQ(static_cast<int>(made->directory_entry().entity_type()), 106);
    const std::string text = igs_test::written(file);
    ASSERT_EQ(igs_test::column_fault(text), "");
    const auto data = igs_test::records_of(text, 'P');
    ASSERT_EQ(data.size(), 2U);
    EXPECT_EQ(data[1].substr(0, 64), igs_test::left(c.parameters, 64));
    const auto directory = igs_test::records_of(text, 'D');
    EXPECT_EQ(directory[2].substr(16, 56), directory[0].substr(16, 56)) << "structure to status are the old ones";
    EXPECT_EQ(directory[3].substr(8, 16), directory[1].substr(8, 16)) << "weight and colour too";
    EXPECT_EQ(directory[3].substr(40, 32), directory[1].substr(40, 32)) << "label and subscript too";
    EXPECT_EQ(igs_test::number_at(directory[3], 33, 8), c.polyline_form);
  }
}

TEST(Convert, NullStaysNull) {
  igsFile file;
  for (const auto convert : {igsConvert::to_curve, igsConvert::to_polyline, igsConvert::line_to_polyline,
                             igsConvert::pointset_to_polyline}) {
    EXPECT_EQ(convert(nullptr), nullptr);
  }
  EXPECT_EQ(file.num_entities(), 0);
}

TEST(Convert, RepairReplacesACoincidentLine) {
  IgesBuilder builder;
  builder.entity(110, 0, "1.,2.,3.,1.,2.,3.");
  builder.point();
  igsFile file;
  ASSERT_EQ(igs_test::read_text(file, builder.text()), 1);
  const igsObjectPtr pointer(1);
  file.check();
  EXPECT_EQ(igs_test::active_errors(file), std::vector<std::string>{"igs110CoincidentPoints 1 1e-06"});
  file.clean(0);
  EXPECT_EQ(igs_test::fixed_errors(file), std::vector<std::string>{"igs110CoincidentPoints 1 1e-06"});
  ASSERT_NE(file.entity(1), nullptr);
  EXPECT_EQ(file.entity(1)->objtype().id_string(), "igsPolyline");
  EXPECT_EQ(pointer.object(), file.entity(1));
  EXPECT_EQ(file.num_entities(), 2);
}

}  // namespace
