// The classes, types and forms that the library knows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <numeric>
#include <regex>
#include <set>
#include <sstream>

#include "cases/case.h"
#include "geometry/geometry_fixture.h"
#include "iges_builder.h"
#include "igs/catalogue/igsFactory.h"
#include "igs/catalogue/igsInfoDB.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsFieldVisitor.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsPlaceholders.h"
#include "igs/output/igsOutStream.h"

namespace igs_test {
namespace {

/// Writes what it is shown, and notes the path of every field, which must be its own: "Edges(0).Curve", "StartPoint.x".
class Rewriter : public igsFieldVisitor {
 public:
  explicit Rewriter(igsOutStream& out) : m_out(out) {}

  void integer(const char* label, int value) override { add(label), m_out.write_integer(value); }
  void real(const char* label, double value) override { add(label), m_out.write_double(value); }
  void text(const char* label, const utString& value) override { add(label), m_out.write_holerith(value); }
  void reference(const char* label, const igsObject* target) override {
    integer(label, target != nullptr ? target->de_number() : 0);
  }
  void begin_group(const char* label) override { m_groups.emplace_back(path(label), 0); }
  void end_group() override { m_groups.pop_back(); }

 private:
  std::string path(const char* label) {
    if (m_groups.empty()) return label;
    auto& [group, elements] = m_groups.back();
    return group + (label != nullptr ? std::string(".") + label : '(' + std::to_string(elements++) + ')');
  }
  void add(const char* label) {
    const std::string field = path(label);
    EXPECT_TRUE(m_paths.insert(field).second) << field << " names two fields";
  }

  igsOutStream& m_out;
  std::vector<std::pair<std::string, int>> m_groups;
  std::set<std::string> m_paths;
};

/// The Parameter Data of what `write(stream)` writes, without blanks and signs: shown pointers have none.
template <class Write>
std::string records(Write write) {
  std::ostringstream text;
  igsOutStream out(&text);
  out.set_section(igsParameterSectionId);
  write(out);
  out.set_backpointer(3);
  std::string data;
  for (const std::string& record : records_of(text.str(), 'P')) data += record.substr(0, 64);
  std::erase_if(data, [](char c) { return c == ' ' || c == '-'; });
  return data;
}

/// The class of an entity just made with this type and form.
std::string class_of(int type, int form) {
  return igsFactory::make_one(static_cast<igsEntityType>(type), form)->objtype().id_string();
}

// The case files have sound entities of every class, and others.
TEST(Catalogue, EveryClassShowsTheFieldsThatItWrites) {
  std::set<std::string> sound, all;
  for (const CaseName& case_name : all_cases()) {
    const CaseGroup group = case_group(case_name);
    for (const Case& c : group.cases) {
      igsFile given, file;
      read_text(given, c.sound.text());
      read_text(file, written(given));  // without what a write corrects
      file.check();
      igsFileIT entities(&file);
      while (++entities != 0) {
        igsObject& entity = *entities();
        const std::string name = entity.objtype().id_string();
        if (entity.num_logged_errors() == 0) sound.insert(name);
        const auto show = [&](igsOutStream& out) {
          Rewriter rewriter(out);
          entity.visit_fields(rewriter);
        };
        EXPECT_EQ(records(show), records([&](igsOutStream& out) { entity.write_pd_data(out); }))
            << name << ' ' << c.where;
      }
    }
  }
  for (int type = 99; type <= 515; ++type) {
    igsFile file;
    for (int form = -2; form <= 106; ++form) all.insert(class_of(type, form));
  }
  all.erase("igsUnknown");
  EXPECT_THAT(sound, testing::ContainerEq(all));
}

// The classes by type and forms, without "igs"; none is igsUnknown.
TEST(Catalogue, FactoryMakesTheClassOfTypeAndForm) {
  std::string found;
  for (int type = 99; type <= 515; ++type) {
    std::string last = "Unknown";
    for (int form = -2; form <= 106; ++form) {
      igsFile file;
      igsObject& object = *igsFactory::make_one(static_cast<igsEntityType>(type), form);
      EXPECT_EQ(&object.file(), &file);
      const igsObject& twin = *object.make_one();
      EXPECT_TRUE(twin.isa(object.objtype()));
      EXPECT_EQ(file.num_entities(), 2) << "prototypes belong to no file";
      const std::string name = object.objtype().id_string().substr(3);
      if (name != last && last != "Unknown") found += ".." + std::to_string(form - 1) + ' ';
      if (name != last && name != "Unknown") found += name + ':' + std::to_string(form);
      last = name;
      if (name == "Unknown") continue;
      EXPECT_EQ(twin.directory_entry().entity_type(), type);
      EXPECT_EQ(class_of(type, twin.directory_entry().form_number()), "igs" + name);
    }
  }
  EXPECT_EQ(found,
            "100:0..0 102:0..0 104:0..3 Pointset:1..3 Polyline:11..13 CentreLine:20..21 Section:31..38 "
            "WitnessLine:40..40 SimpleClosedPlanarCurve:63..63 108:-1..1 110:0..0 112:0..0 114:0..0 116:0..0 "
            "118:0..1 120:0..0 122:0..0 123:0..0 124:0..1 126:0..5 128:0..9 130:0..0 140:0..0 141:0..0 142:0..0 "
            "143:0..0 144:0..0 186:0..0 190_0:0..0 190_1:1..1 192_0:0..0 192_1:1..1 194_0:0..0 194_1:1..1 "
            "196_0:0..0 196_1:1..1 198_0:0..0 198_1:1..1 202:0..0 204:0..0 206:0..0 208:0..0 210:0..0 212:0..105 "
            "214:1..12 216:0..2 218:0..1 220:0..0 222:0..1 228:0..1 230:0..0 304_1:1..1 304_2:2..2 308:0..0 "
            "310:0..0 312:0..1 314:0..0 402_1:1..1 402_3:3..3 402_7:7..7 Group:14..15 402_16:16..16 404:0..1 "
            "408:0..0 410_0:0..0 416:1..1 502:1..1 504:1..1 508:1..1 510:1..1 514:1..1 ");
  igsFile file;
  for (const int form : {-INT_MAX, 1, 5001, INT_MAX}) {
    EXPECT_EQ(class_of(igsEntityNull, form) + class_of(igsEntity110, form), "igsNulligsUnknown") << form;
    for (const int type : {INT_MIN, -2, -1, 1, INT_MAX}) EXPECT_EQ(class_of(type, form), "igsUnknown") << type;
  }
}

// What the standard names, as one text.
TEST(Catalogue, TypesFormsAndNames) {
  std::ostringstream list;
  for (int type = -1000; type <= 6000; ++type) {
    int form = 77, found = 77;
    igsInfoDB::default_form_number(type, form, found);
    EXPECT_EQ(igsInfoDB::entity_exists(type), !igsInfoDB::entity_name(type).empty()) << type;
    if (!igsInfoDB::entity_exists(type)) {
      EXPECT_FALSE(form != 0 || found != 0 || igsInfoDB::form_exists(type, 0)) << type;
      continue;
    }
    list << type << ' ' << form << found << '\n';
    std::string last;
    for (form = -100; form <= 10001; ++form) {
      std::string name = (igsInfoDB::form_exists(type, form) ? "+ " : "- ") + igsInfoDB::entity_form_name(type, form);
      if (name != last) list << form << name << '\n';
      last = std::move(name);
    }
  }
  for (int flag = -3; flag <= 20; ++flag) {
    list << flag << igsInfoDB::units_exist(flag) << igsInfoDB::units_name(flag) << igsInfoDB::version_exists(flag)
         << igsInfoDB::version_name(flag) << igsInfoDB::draft_exists(flag) << igsInfoDB::draft_name(flag) << '\n';
  }
  const std::string text = list.str();
  const auto add = [](unsigned sum, char c) { return 31 * sum + static_cast<unsigned char>(c); };
  EXPECT_EQ(std::accumulate(text.begin(), text.end(), 0U, add), 104748035U) << text;
  EXPECT_EQ(&igsInfoDB::entity_name(igsEntity110), &igsInfoDB::entity_name(110)) << "names stay where they are";
  for (const int form : {-INT_MAX, INT_MAX}) {
    EXPECT_TRUE(igsInfoDB::form_exists(-1, form) && igsInfoDB::form_exists(0, form)) << form;
    EXPECT_FALSE(igsInfoDB::form_exists(110, form) || igsInfoDB::form_exists(form, 0)) << form;
  }
  EXPECT_FALSE(igsInfoDB::form_exists(0, INT_MIN) || igsInfoDB::units_exist(INT_MIN));
}

TEST(Catalogue, FormAddedLastIsFoundFirst) {
  igsEntityInfo info("Thing", 3);
  EXPECT_TRUE(info.form_exists(0) && !info.form_exists(3));
  info.add_form(nullptr);
  info.add_form(new igsFormInfo(1, 10, "wide", 0, 0));
  info.add_form(new igsFormInfo(3, 3, "narrow", 4, 11));
  std::string names;
  for (const int form : {0, 3, 4, 11}) names += info.form_info(form).form_name() + '|';
  EXPECT_EQ(names, "|narrow|wide||");
  EXPECT_EQ(info.form_info(3).max_version(), 11);
}

// Type and form of an entity just made, and what its check finds, without the class in front; a bar after each.
TEST(Catalogue, NewEntitiesHaveTheirTypeAndFormAndLackWhatIsNotGiven) {
  std::istringstream entities(R"(
106:40 InvalidZLevel BadNumPoints 0|108:0 InvalidCoefficients|120:0 NullAxis NullGenerator InvalidAngles|
122:0 NullDirectrix InvalidTerminatePoint|
128:0 NoConstruct BadUDegree -2147483648 BadVDegree -2147483648 BadUSumIndex -1 BadVSumIndex -1 UnsetTrimmingParams TrimParamsUOutOfSequence unset,unset TrimParamsVOutOfSequence unset,unset|
130:0 NullBaseCurve ZeroNormal ParamsOutOfSequence 0,0|140:0 ZeroIndicator InvalidDistance NullSurface|
141:0 NullSurfacePtr BadNumModelSpaceCurves 0|192:0 NullLocation NullAxis InvalidRadius unset|
194:0 NullLocation NullAxis InvalidRadius unset InvalidSemiAngle unset|196:0 NullLocation InvalidRadius unset|
198:0 NullLocation NullAxis InvalidMajorRadius unset InvalidMinorRadius unset|
202:0 NullNote NullLeader1 NullLeader2 InvalidVertex InvalidRadius unset|206:0 NullNote NullLeader1 InvalidCentre|
208:0 NullNote InvalidCorner InvalidAngle|214:1 NoSegments InvalidZLevel InvalidArrowHead|
222:0 NullNote NullLeader InvalidCentre|230:0 NullBoundary InvalidPoint|304:1 NullTemplate InvalidSpacing unset|
304:2 NoSegments InvalidPattern|310:0 InvalidScale 0 NoCharacters|312:0 InvalidStartPoint|
314:0 InvalidRed unset InvalidGreen unset InvalidBlue unset|408:0 NullSubfigure InvalidTranslation|)");
  for (std::string expected; entities >> std::ws && std::getline(entities, expected, '|');) {
    igsFile file;
    int type = 0, form = 0;
    ASSERT_EQ(std::sscanf(expected.c_str(), "%d:%d", &type, &form), 2);
    const igsObject& object = *igsFactory::make_one(static_cast<igsEntityType>(type), form);
    const igsDirectoryEntry& entry = object.directory_entry();
    std::string what = std::to_string(entry.entity_type()) + ':' + std::to_string(entry.form_number());
    for (const std::string& error : found_by_check(object)) what += ' ' + error;
    what = std::regex_replace(what, std::regex(' ' + object.objtype().id_string() + "(?=[A-Z])"), " ");
    what = std::regex_replace(what, std::regex(" 1(?= |$)"), "");
    EXPECT_EQ(std::regex_replace(what, std::regex("-1\\.79769313486232e\\+308"), "unset"), expected);
  }
}

}  // namespace
}  // namespace igs_test
