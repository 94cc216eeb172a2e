// The classes, types and forms that the library knows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "geometry/geometry_fixture.h"
#include "iges_builder.h"
#include "igs/catalogue/igsFactory.h"
#include "igs/catalogue/igsInfoDB.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/objects/igsFieldVisitor.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsPlaceholders.h"
#include "igs/output/igsOutStream.h"

namespace igs_test {
namespace {

/// Sound parameter data of the types and forms that have a class; @type or @type:form stands for the first entity of
/// that kind, @123x for a second direction.
struct Sample {
  int type, min_form, max_form;
  std::string data;
};
const std::vector<Sample> samples = [] {
  std::istringstream in(R"(
100:0..0 0.,0.,0.,1.,0.,0.,1.  102:0..0 1,@110  104:0..1 1.,0.,4.,0.,0.,-4.,0.,2.,0.,2.,0.
104:2..2 1.,0.,-1.,0.,0.,-1.,0.,1.,0.,1.,0.  104:3..3 1.,0.,0.,0.,-1.,0.,0.,0.,0.,1.,1.
106:1..1 1,5,0.,0.,0.,1.,0.,1.,1.,0.,1.,0.,0.  106:2..2 2,2,0.,0.,0.,1.,1.,1.
106:3..3 3,2,0.,0.,0.,1.,0.,0.,1.,1.,1.,0.,1.,0.  106:11..11 1,5,0.,0.,0.,1.,0.,1.,1.,0.,1.,0.,0.
106:12..12 2,3,0.,0.,0.,1.,1.,1.,2.,0.,0.  106:13..13 3,2,0.,0.,0.,1.,0.,0.,1.,1.,1.,0.,1.,0.
106:20..21 1,2,0.,0.,0.,1.,1.  106:31..38 1,2,0.,0.,0.,1.,1.  106:40..40 1,3,0.,0.,0.,1.,0.,2.,0.
106:63..63 1,5,0.,0.,0.,1.,0.,1.,1.,0.,1.,0.,0.  108:-1..-1 0.,0.,1.,0.,@106:63,0.,0.,0.,0.
108:0..0 0.,0.,1.,0.,0,1.,1.,0.,1.  108:1..1 0.,0.,1.,0.,@106:63,0.,0.,0.,0.  110:0..0 0.,0.,0.,1.,0.,0.
112:0..0 3,1,3,1,0.,1.,0.,1.,0.,0.,0.,1.,0.,0.,0.,0.,0.,0.,1.,1.,0.,0.,1.,1.,0.,0.,0.,0.,0.,0.
114:0..0 3,0,1,1,0.,1.,0.,1.*  116:0..0 1.,2.,3.,0  118:0..1 @110,@112,0,0  120:0..0 @110,@100,0.,6.28318530717959
122:0..0 @110,0.,0.,1.  123:0..0 0.,0.,1.  124:0..0 1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,1.,0.
124:1..1 1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,-1.,0.  126:0..5 1,1,0,0,1,0,0.,0.,1.,1.,1.,1.,0.,0.,0.,1.,0.,0.,0.,1.,0.,0.,1.
128:0..9 1,1,1,1,0,0,1,0,0,0.,0.,1.,1.,0.,0.,1.,1.,1.,1.,1.,1.,0.,0.,0.,1.,0.,0.,0.,1.,0.,1.,1.,0.,0.,1.,0.,1.
130:0..0 @110,1,0,0,0,0.5,0.,0.,0.,0.,0.,1.,0.,1.  140:0..0 0.,0.,1.,0.5,@128  141:0..0 1,2,@128,1,@110,1,1,@126
142:0..0 1,@128,@126,@110,2  143:0..0 1,@128,1,@141  144:0..0 @128,1,1,@142,@142  186:0..0 @514,1,1,@514,0
190:0..0 @116,@123  190:1..1 @116,@123,@123x  192:0..0 @116,@123,2.  192:1..1 @116,@123,2.,@123x
194:0..0 @116,@123,2.,30.  194:1..1 @116,@123,2.,30.,@123x  196:0..0 @116,2.  196:1..1 @116,2.,@123,@123x
198:0..0 @116,@123,2.,1.  198:1..1 @116,@123,2.,1.,@123x  202:0..0 @212,@106:40,@106:40,0.,0.,1.,@214,@214
204:0..0 @212,@110,0,@214,@214,@106:40,@106:40  206:0..0 @212,@214,@214,0.,0.  208:0..0 0.,0.,0.,0.,@212,1,@214
210:0..0 @212,1,@214  212:0..105 2,4,1.,1.,1,1.5,0.,0,0,0.,0.,0.,4Ht;,t,1,1.,1.,-@310,1.5,0.,0,0,0.,0.,0.,1Ht
214:1..12 1,0.1,0.1,0.,0.,0.,1.,1.  216:0..2 @212,@214,@214,@106:40,0  218:0..0 @212,@106:40
218:1..1 @212,@106:40,@214  220:0..0 @212,@214,@100  222:0..0 @212,@214,0.,0.  222:1..1 @212,@214,0.,0.,@214
228:0..1 @212,1,@110,1,@214  230:0..0 @106:63,1,0.,0.,0.,0.1,0.5,1,@100  304:1..1 1,@308,1.,1.  304:2..2 2,0.1,0.1,1H2
308:0..0 0,3Hsub,2,@110,@144  310:0..0 1,4Hfont,0,8,1,65,8,0,2,0,4,8,1,8,0  312:0..1 1.,1.,-@310,1.5,0.,0,0,0.,0.,0.
314:0..0 10.,20.,30.,4Hteal  402:1..1 2,@110,@100  402:3..3 1,1,@410,@110  402:7..7 2,@110,@402:1  402:14..15 1,@314
402:16..16 1,2,@124,@110,@100  404:0..0 1,@410,0.,0.,1,@212  404:1..1 1,@410,0.,0.,0.5,1,@212
408:0..0 @308,0.,0.,0.,1.  410:0..0 1,1.,@108:0,0,0,0,0,0  416:1..1 9Hother.igs
502:1..1 4,0.,0.,0.,1.,0.,0.,1.,1.,0.,0.,1.,0.
504:1..1 4,@110,@502,1,@502,2,@110,@502,2,@502,3,@110,@502,3,@502,4,@110,@502,4,@502,1
508:1..1 4,0,@504,1,1,1,0,@126,0,@504,2,1,0,0,@504,3,1,0,0,@504,4,1,0  510:1..1 @128,1,1,@508  514:1..1 1,@510,1)");
  std::vector<Sample> all;
  char mark = 0;
  for (Sample s; in >> s.type >> mark >> s.min_form >> mark >> mark >> s.max_form >> s.data;) all.push_back(s);
  return all;
}();

std::string kind_of(int type, int form) { return std::to_string(type) + ':' + std::to_string(form); }

/// `data` with DE numbers for its references, and what "*" stands for: 192 coefficients.
std::string resolved(std::string data, const std::map<std::string, int>& numbers) {
  if (data.back() == '*') {
    data.pop_back();
    for (int i = 0; i < 192; ++i) data += ",1.";
  }
  for (std::size_t at = 0; (at = data.find('@', at)) != std::string::npos;) {
    const std::size_t end = std::min(data.find_first_not_of("0123456789:x", at + 1), data.size());
    data.replace(at, end - at, std::to_string(numbers.at(data.substr(at + 1, end - at - 1))));
  }
  return data;
}

/// Writes what it is shown, and notes the path of every field, which must be its own: "Edges(0).Curve", "StartPoint.x".
class Rewriter : public igsFieldVisitor {
 public:
  explicit Rewriter(igsOutStream& out) : m_out(out) {}
  ~Rewriter() override { EXPECT_FALSE(m_paths.empty()); }

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

TEST(Catalogue, EveryClassIsReadCheckedShownWrittenAndReadBackEqual) {
  IgesBuilder builder;
  std::map<std::string, int> numbers;
  for (const bool only_numbers : {true, false}) {
    int de = 1;
    for (const Sample& sample : samples) {
      for (int form = sample.min_form; form <= sample.max_form; ++form) {
        if (!igsInfoDB::form_exists(sample.type, form)) continue;
        numbers.try_emplace(std::to_string(sample.type), de);
        numbers.try_emplace(kind_of(sample.type, form), de);
        if (!only_numbers) builder.entity(sample.type, form, resolved(sample.data, numbers));
        de += 2;
      }
    }
    numbers["123x"] = de;
  }
  builder.entity(123, 0, "1.,0.,0.");
  igsFile file, copy;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  EXPECT_EQ(2 * file.num_entities() - 1, numbers["123x"]);
  file.check();
  EXPECT_THAT(active_errors(file), testing::IsEmpty());
  igsFileIT all(&file);
  while (++all != 0) {
    igsObject& entity = *all();
    SCOPED_TRACE(entity.objtype().id_string());
    const auto show = [&](igsOutStream& out) {
      Rewriter rewriter(out);
      entity.visit_fields(rewriter);
    };
    EXPECT_EQ(records(show), records([&](igsOutStream& out) { entity.write_pd_data(out); }));
  }
  const std::string text = written(file);
  EXPECT_EQ(column_fault(text), "");
  ASSERT_EQ(read_text(copy, text), 1);
  const auto entities = [](const igsFile& of) { return printed(of).substr(printed(of).find("Entities = {")); };
  EXPECT_EQ(entities(copy), entities(file));
  EXPECT_EQ(written(copy), text);
}

/// The names of the classes that are not called after type and form.
std::string class_of(int type, int form) {
  if (type == 106) {
    return form <= 3    ? "igsPointset"
           : form <= 13 ? "igsPolyline"
           : form <= 21 ? "igsCentreLine"
           : form <= 38 ? "igsSection"
           : form == 40 ? "igsWitnessLine"
                        : "igsSimpleClosedPlanarCurve";
  }
  if (type == 402 && (form == 14 || form == 15)) return "igsGroup";
  const bool by_form = (type >= 190 && type <= 198) || type == 304 || type == 402 || type == 410;
  return "igs" + std::to_string(type) + (by_form ? '_' + std::to_string(form) : "");
}

TEST(Catalogue, FactoryMakesTheClassesThatHaveSamples) {
  std::set<std::pair<int, int>> kinds;
  for (const Sample& sample : samples) {
    for (int form = sample.min_form; form <= sample.max_form; ++form) kinds.emplace(sample.type, form);
  }
  for (int type = 99; type <= 515; ++type) {
    igsFile file;
    for (int form = -2; form <= 106; ++form) {
      const std::string expected = kinds.contains({type, form}) ? class_of(type, form) : "igsUnknown";
      const igsObject* const object = igsFactory::make_one(static_cast<igsEntityType>(type), form);
      ASSERT_EQ(object->objtype().id_string(), expected) << kind_of(type, form);
      EXPECT_EQ(&object->file(), &file);
    }
  }
  igsFile file;
  for (const int form : {-INT_MAX, 0, 5001, INT_MAX}) {
    EXPECT_TRUE(igsFactory::make_one(igsEntityNull, form)->isa(igsNull::type())) << form;
    for (const int type : {INT_MIN, -2, -1, 1, INT_MAX}) {
      EXPECT_TRUE(igsFactory::make_one(static_cast<igsEntityType>(type), form)->isa(igsUnknown::type())) << type;
    }
    EXPECT_TRUE(form == 0 || igsFactory::make_one(igsEntity110, form)->isa(igsUnknown::type())) << form;
  }
}

TEST(Catalogue, ClassesFollowTheTypeProtocol) {
  for (const Sample& sample : samples) {
    igsFile file;
    const auto type = static_cast<igsEntityType>(sample.type);
    igsObject* const object = igsObject::create(type, sample.min_form);
    const kluTypeInfo& own = object->objtype();
    SCOPED_TRACE(own.id_string());
    EXPECT_TRUE(object->isa(own) && object->typeof(own));
    ASSERT_NE(own.parent(), nullptr);
    for (const kluTypeInfo* base = own.parent(); base != nullptr; base = base->parent()) {
      EXPECT_FALSE(object->isa(*base) || base->childof(own)) << base->id_string();
      EXPECT_TRUE(object->typeof(*base)) << base->id_string();
    }
    const igsObject* const twin = object->make_one();
    EXPECT_TRUE(twin->isa(own));
    EXPECT_EQ(twin->de_number(), 3);
    EXPECT_EQ(twin->directory_entry().entity_type(), type);
    EXPECT_EQ(class_of(type, twin->directory_entry().form_number()), own.id_string());
  }
}

TEST(Catalogue, PrototypesBelongToNoFile) {
  igsObjectSystem::initialize_system();
  igsFilecoDynArr files;
  igsObjectSystem::get_all_files(files);
  ASSERT_FALSE(files.empty());
  igsFile file;
  delete igsFactory::make_one(igsEntity110, 0);
  EXPECT_EQ(file.num_entities() + files[0]->num_entities(), 0);
}

TEST(Catalogue, FormsOfTheStandard) {
  int entities = 0, forms = 0, sum = 0, user_defined = 0, named = 0, without_default = 0, default_sum = 0;
  std::size_t letters = 0;
  for (int type = -1000; type <= 6000; ++type) {
    const bool exists = igsInfoDB::entity_exists(type);
    EXPECT_EQ(exists, !igsInfoDB::entity_name(type).empty()) << type;
    letters += igsInfoDB::entity_name(type).size();
    entities += exists ? 1 : 0;
    int form = 77, found = 77;
    igsInfoDB::default_form_number(type, form, found);
    EXPECT_TRUE(found != 0 ? igsInfoDB::form_exists(type, form) : form == 0) << type;
    without_default += exists && found == 0 ? 1 : 0;
    default_sum += form;
    if (type == igsEntityNull || type == -1) continue;  // every form
    for (form = -100; form <= 5000; ++form) {
      if (!igsInfoDB::form_exists(type, form)) continue;
      ++forms, sum += form, named += igsInfoDB::form_name(type, form).empty() ? 0 : 1;
      letters += igsInfoDB::form_name(type, form).size();
    }
    user_defined += igsInfoDB::form_exists(type, 5001) ? 1 : 0;
    for (const int own : {5001, 7000, 9999}) {  // as one run or not at all
      EXPECT_EQ(igsInfoDB::form_exists(type, own), igsInfoDB::form_exists(type, 5500)) << type;
    }
    for (const int none : {10000, INT_MAX, INT_MIN}) EXPECT_FALSE(igsInfoDB::form_exists(type, none)) << type;
  }
  EXPECT_THAT((std::vector{entities, forms, named, user_defined, sum}), testing::ElementsAre(90, 298, 248, 4, 3040));
  EXPECT_EQ(letters, 6244U);
  EXPECT_EQ(without_default, 15);
  EXPECT_EQ(default_sum, 9) << "214 is an open arrowhead by default, 502 to 514 have form 1";
  for (const int form : {-INT_MAX, INT_MAX}) {
    EXPECT_TRUE(igsInfoDB::form_exists(-1, form) && igsInfoDB::form_exists(0, form)) << form;
  }
  EXPECT_FALSE(igsInfoDB::form_exists(0, INT_MIN) || igsInfoDB::form_exists(INT_MAX, 0));
}

TEST(Catalogue, Names) {
  std::istringstream names(
      R"(104:1 Conic Arc(Ellipse);-1:-7 Unknown Entity(Unknown);0:0 Null(Unknown);108:-1 Plane(Hole);
128:9 Rational B-Spline Surface(General Quadric Surface);148:34 Element Results(General Thermal Strain);
198:1 Toroidal Surface(Parameterized Surface);212:102 General Note(Imbedded Font Change/Double Fraction);
402:21 Associativity Instance(Dimensioned Geometry);
402:9999 Associativity Instance(User Defined Associativity Instance);406:8 Property(Pin Humber);
514:2 Shell(Open Shell);110:0 Line();402:17 Associativity Instance();101:0 ())");
  int type = 0, form = 0;
  char colon = 0;
  for (std::string name; names >> type >> colon >> form && std::getline(names, name, ';');) {
    EXPECT_EQ(' ' + igsInfoDB::entity_form_name(type, form), name);
  }
  EXPECT_EQ(&igsInfoDB::entity_name(igsEntity110), &igsInfoDB::entity_name(110)) << "names stay where they are";
  for (int flag = -3; flag <= 20; ++flag) {
    EXPECT_EQ(igsInfoDB::units_exist(flag), 1 <= flag && flag <= 11) << flag;
    EXPECT_EQ(igsInfoDB::version_exists(flag), 1 <= flag && flag <= 11) << flag;
    EXPECT_EQ(igsInfoDB::draft_exists(flag), 0 <= flag && flag <= 7) << flag;
    EXPECT_EQ(igsInfoDB::units_name(flag).empty(), !igsInfoDB::units_exist(flag)) << flag;
    EXPECT_EQ(igsInfoDB::version_name(flag).empty(), !igsInfoDB::version_exists(flag)) << flag;
    EXPECT_EQ(igsInfoDB::draft_name(flag).empty(), !igsInfoDB::draft_exists(flag)) << flag;
  }
  EXPECT_FALSE(igsInfoDB::units_exist(INT_MIN));
  EXPECT_EQ(igsInfoDB::units_name(11) + igsInfoDB::version_name(11), "Microinches5.3");
  EXPECT_EQ(igsInfoDB::draft_name(3), "ANSI - American National Standrds Institute");
}

TEST(Catalogue, FormAddedLastIsFoundFirst) {
  igsEntityInfo info("Thing", 3);
  EXPECT_TRUE(info.form_exists(0));
  EXPECT_FALSE(info.form_exists(3));
  info.add_form(nullptr);
  info.add_form(new igsFormInfo(1, 10, "wide", 0, 0));
  info.add_form(new igsFormInfo(3, 3, "narrow", 4, 11));
  EXPECT_FALSE(info.form_exists(0));
  EXPECT_EQ(info.form_info(3).form_name(), "narrow");
  EXPECT_EQ(info.form_info(3).max_version(), 11);
  EXPECT_EQ(info.form_info(4).form_name(), "wide");
  EXPECT_EQ(info.form_info(11).form_name(), "");
}

// Type and form of an entity just made, and what its check finds, without the class in front; a bar after each.
TEST(Catalogue, NewEntitiesHaveTheirTypeAndFormAndLackWhatIsNotGiven) {
  std::istringstream entities(R"(
106:20 InvalidZLevel BadNumPoints 0|106:31 InvalidZLevel BadNumPoints 0|106:40 InvalidZLevel BadNumPoints 0|
108:0 InvalidCoefficients|118:0 NullFirstCurve NullSecondCurve|120:0 NullAxis NullGenerator InvalidAngles|
122:0 NullDirectrix InvalidTerminatePoint|
128:0 NoConstruct BadUDegree -2147483648 BadVDegree -2147483648 BadUSumIndex -1 BadVSumIndex -1 UnsetTrimmingParams TrimParamsUOutOfSequence unset,unset TrimParamsVOutOfSequence unset,unset|
130:0 NullBaseCurve ZeroNormal ParamsOutOfSequence 0,0|140:0 ZeroIndicator InvalidDistance NullSurface|
141:0 NullSurfacePtr BadNumModelSpaceCurves 0|142:0 NullSurfacePtr NoTrimCurves|143:0 NullSurfacePtr NoBoundaries|
144:0 NullSurfacePtr NoBoundaries|186:0 OuterShellNullShell|190:0 NullLocation NullNormal|
190:1 NullLocation NullNormal NullRefDirection|192:0 NullLocation NullAxis InvalidRadius unset|
192:1 NullLocation NullAxis NullRefDirection InvalidRadius unset|
194:0 NullLocation NullAxis InvalidRadius unset InvalidSemiAngle unset|
194:1 NullLocation NullAxis NullRefDirection InvalidRadius unset InvalidSemiAngle unset|
196:0 NullLocation InvalidRadius unset|196:1 NullLocation NullAxis NullRefDirection InvalidRadius unset|
198:0 NullLocation NullAxis InvalidMajorRadius unset InvalidMinorRadius unset|
198:1 NullLocation NullAxis NullRefDirection InvalidMajorRadius unset InvalidMinorRadius unset|
202:0 NullNote NullLeader1 NullLeader2 InvalidVertex InvalidRadius unset|
204:0 NullNote NullCurve1 NullLeader1 NullLeader2|206:0 NullNote NullLeader1 InvalidCentre|
208:0 NullNote InvalidCorner InvalidAngle|210:0 NullNote NoLeaders|212:0 NoStrings|
214:1 NoSegments InvalidZLevel InvalidArrowHead|216:0 NullNote NullLeader1 NullLeader2|
218:0 NullNote NullWitnessOrLeader|220:0 NullNote NullLeader|222:0 NullNote NullLeader InvalidCentre|228:0 NoGeometry|
230:0 NullBoundary InvalidPoint|304:1 NullTemplate InvalidSpacing unset|304:2 NoSegments InvalidPattern|308:0|
310:0 InvalidScale 0 NoCharacters|312:0 InvalidStartPoint|314:0 InvalidRed unset InvalidGreen unset InvalidBlue unset|
402:15 NoEntities|402:1 igsGroupNoEntities|402:3 NoViews|402:7 igsGroupNoEntities|402:16 igsGroupNoEntities|404:0|
408:0 NullSubfigure InvalidTranslation|410:0|416:1 NoFileName|502:1 NoVertices|504:1 NoEdges|508:1 NoOrientatedEdges|
510:1 NullSurface NoLoops|514:1 NoFaces|)");
  for (std::string expected; entities >> std::ws && std::getline(entities, expected, '|');) {
    igsFile file;
    int type = 0, form = 0;
    ASSERT_EQ(std::sscanf(expected.c_str(), "%d:%d", &type, &form), 2);
    const igsObject& object = *igsFactory::make_one(static_cast<igsEntityType>(type), form);
    const igsDirectoryEntry& entry = object.directory_entry();
    std::string what = kind_of(entry.entity_type(), entry.form_number());
    for (const std::string& error : found_by_check(object)) what += ' ' + error;
    what = std::regex_replace(what, std::regex(' ' + object.objtype().id_string() + "(?=[A-Z])"), " ");
    what = std::regex_replace(what, std::regex(" 1(?= |$)"), "");
    EXPECT_EQ(std::regex_replace(what, std::regex("-1\\.79769313486232e\\+308"), "unset"), expected);
  }
}

}  // namespace
}  // namespace igs_test
