// Dimensions, labels, flag notes and symbols.

#include <gtest/gtest.h>

#include <set>

#include "geometry/geometry_fixture.h"
#include "igs/annotation/igs202.h"
#include "igs/annotation/igs202_errors.h"
#include "igs/annotation/igs204_errors.h"
#include "igs/annotation/igs206_errors.h"
#include "igs/annotation/igs208_errors.h"
#include "igs/annotation/igs210_errors.h"
#include "igs/annotation/igs212.h"
#include "igs/annotation/igs214.h"
#include "igs/annotation/igs216.h"
#include "igs/annotation/igs216_errors.h"
#include "igs/annotation/igs218.h"
#include "igs/annotation/igs218_errors.h"
#include "igs/annotation/igs220_errors.h"
#include "igs/annotation/igs222.h"
#include "igs/annotation/igs222_errors.h"
#include "igs/annotation/igs228_errors.h"

namespace igs_test {
namespace {
using Found = std::vector<std::string>;

const std::string lowest = "-1.7976931348623157D+308";

// DE numbers of what entity 1, the one under test, may refer to. Those in the second line have a fault of their own,
// which can be repaired or, in the leader, mended by hand.
enum Target { null = 0, subject = 1, note = 3, leader = 5, witness = 7, arc = 9, composite = 11, outline = 13 };
enum FaultyTarget { bad_note = 15, bad_leader = 17, bad_witness = 19, bad_curve = 21, bad_composite = 23 };
constexpr int line = 25, symbol_of_subject = 27;

void add_targets(IgesBuilder& builder) {
  builder.entity(212, 0, "1,5,1.,1.,1,1.5,0.,0,0,0.,0.,0.,5Ha,b;c");
  builder.entity(214, 2, "1,1.,1.,0.,0.,0.,1.,1.");
  builder.entity(106, 40, "1,3,0.,0.,0.,1.,0.,2.,0.");
  builder.entity(100, 0, "0.,0.,0.,1.,0.,0.,1.");
  builder.entity(102, 0, "1,9");
  builder.entity(106, 63, "1,4,0.,0.,0.,1.,0.,1.,1.,0.,0.");
  builder.entity(212, 0, "1,1,1.,1.,1,1.5,0.,7,0,0.,0.,0.,1Ha");
  builder.entity(214, 1, "1,-1.,1.,0.,0.,0.,1.,1.");
  builder.entity(106, 40, "2,3,0.,0.,0.,1.,0.,0.,2.,0.,0.");
  builder.entity(106, 63, "2,4,0.,0.,0.,1.,0.,0.,1.,1.,0.,0.,0.,0.");
  builder.entity(102, 0, "1,1");  // its part is the entity under test
  builder.line();
  builder.entity(228, 0, "0,1,1,0");  // so is its geometry
}

/// A reference may be to what its kind says: any of these DE numbers when sound, and these are not.
struct Kind {
  std::set<int> sound, wrong, faulty;
};
const Kind of_note{{note}, {leader, outline, subject}, {bad_note}};
const Kind of_leader{{leader}, {note, witness, subject}, {bad_leader}};
const Kind of_witness{{witness}, {leader, outline, arc, subject}, {bad_witness}};
const Kind of_line{{witness, leader}, {note, arc, subject}, {bad_witness, bad_leader}};
const Kind of_curve{{arc, composite, outline, line}, {note, witness, subject}, {bad_curve, bad_composite}};
const Kind of_outline{{arc, composite, outline}, {line, note, subject}, {bad_curve, bad_composite}};
const Kind of_geometry{
    {arc, note, subject, symbol_of_subject}, {}, {bad_note, bad_leader, bad_witness, bad_curve, bad_composite}};

/// One field; a list of references with the count before it is one, too. `?` behind the name: may be null.
struct Field {
  std::string name;
  std::string value;
  const Kind* kind = nullptr;
  bool optional = false;

  bool is_list() const { return value.find(',') != std::string::npos && kind != nullptr; }
  /// What the field holds when it refers to `target`, in a list at position 1.
  std::string referring_to(int target) const {
    return (is_list() ? "2," + value.substr(value.rfind(',') + 1) + ',' : "") + std::to_string(target);
  }
  std::string error(const std::string& start, const std::string& end = "") const {
    return start + name + end + " 1" + (is_list() ? " 1" : "");
  }
};
struct Dimension {
  int type, form;
  std::vector<Field> fields;

  std::string name() const { return "igs" + std::to_string(type); }
  std::string data() const {
    std::string text;
    for (const Field& field : fields) text += (text.empty() ? "" : ",") + field.value;
    return text;
  }
  /// With another value in one field.
  Dimension with(const std::string& field, const std::string& value) const {
    Dimension changed = *this;
    for (Field& each : changed.fields) {
      if (each.name == field) each.value = value;
    }
    return changed;
  }
};

/// Every class and form, without a fault.
std::vector<Dimension> sound_dimensions() {
  const Field its_note{"Note", "3", &of_note}, its_leader{"Leader", "5", &of_leader};
  const Field leader1{"Leader1", "5", &of_leader}, leader2{"Leader2", "5", &of_leader};
  const Field no_leader2{"Leader2", "5", &of_leader, true}, leaders{"Leader", "3,5,5,5", &of_leader};
  const Field witness1{"Witness1", "7", &of_witness, true}, witness2{"Witness2", "7", &of_witness, true};
  const Field vertex{"Vertex", "1.5,-2."}, radius{"Radius", "0.5"}, centre{"Centre", "-3.25,4."};
  const Field curve1{"Curve1", "9", &of_curve}, curve2{"Curve2", "11", &of_curve, true};
  const Field either{"WitnessOrLeader", "5", &of_line}, its_witness{"Witness", "7", &of_witness};
  const Field enclosing{"Geometry", "13", &of_outline, true}, geometry{"Geometry", "4,9,1,13,3", &of_geometry};
  Field no_note = its_note;
  no_note.optional = true;
  const std::vector<Field> linear{its_note, leader1, leader2, witness1, witness2};
  return {{202, 0, {its_note, witness1, witness2, vertex, radius, leader1, leader2}},
          {204, 0, {its_note, curve1, curve2, leader1, leader2, witness1, witness2}},
          {206, 0, {its_note, leader1, no_leader2, centre}},
          {208, 0, {{"Corner", "1.,2.,3."}, {"Angle", "0.25"}, its_note, leaders}},
          {210, 0, {its_note, leaders}},
          {216, 0, linear},
          {216, 1, linear},
          {216, 2, linear},
          {218, 0, {its_note, either}},
          {218, 1, {its_note, its_witness, its_leader}},
          {220, 0, {its_note, its_leader, enclosing}},
          {222, 0, {its_note, its_leader, centre}},
          {222, 1, {its_note, its_leader, centre, no_leader2}},
          {228, 0, {no_note, geometry, leaders}},
          {228, 1, {its_note, geometry, leaders}}};
}

const igsObject& read_dimension(igsFile& file, const Dimension& dimension) {
  IgesBuilder builder;
  builder.entity(dimension.type, dimension.form, dimension.data());
  add_targets(builder);
  EXPECT_EQ(read_text(file, builder.text()), 1);
  const igsObject& object = entity_of<igsObject>(file, subject);
  EXPECT_EQ(object.objtype().id_string(), dimension.name());
  EXPECT_EQ(object.directory_entry().form_number(), dimension.form);
  return object;
}

/// What a check finds in the entity under test itself.
Found found_in(const igsObject& object) {
  Found found;
  object.check();
  for (const igsError* error : object_errors(object.file())) {
    if (static_cast<const igsObjectError*>(error)->key() == object.de_number()) found.push_back(describe(*error));
  }
  return found;
}

/// What a field prints when every reference is null.
std::string printed_without_references(const Field& field) {
  const std::string null_pointer = " = {\n\t(NullPointer)\n}\n";
  if (field.is_list()) {
    const std::string plural = field.name == "Leader" ? "Leaders" : field.name;
    return "NumberOf" + plural + " = 1\n" + plural + " = {\n\t(0) = {\n\t\t(NullPointer)\n\t}\n}\n";
  }
  if (field.kind != nullptr) return field.name + null_pointer;
  const std::pair<std::string, std::string> values[] = {{"1.5,-2.", "(1.5, -2)"},
                                                        {"-3.25,4.", "(-3.25, 4)"},
                                                        {"1.,2.,3.", "(1, 2, 3)"},
                                                        {"0.5", "0.5"},
                                                        {"0.25", "0.25"}};
  for (const auto& [value, printed_value] : values) {
    if (value == field.value) return field.name + " = " + printed_value + '\n';
  }
  return "";
}

TEST(Dimensions, SoundOnesAreReadAndWrittenUnchanged) {
  for (const Dimension& dimension : sound_dimensions()) {
    SCOPED_TRACE(dimension.name() + " form " + std::to_string(dimension.form));
    igsFile file;
    const igsObject& object = read_dimension(file, dimension);
    EXPECT_EQ(found_in(object), Found());
    EXPECT_EQ(written_data(file), std::to_string(dimension.type) + ',' + dimension.data() + ';');
    EXPECT_EQ(written_data(file, note), "212,1,5,1.,1.,1,1.5,0.,0,0,0.,0.,0.,5Ha,b;c;");
    const std::string before = printed(object);
    const std::string text = written(file);
    igsFile again;
    EXPECT_EQ(read_text(again, text), 1);
    EXPECT_EQ(printed(*again.entity(subject)), before);
    EXPECT_EQ(again.entity(subject)->directory_entry().form_number(), dimension.form);

    Dimension bare = dimension;
    std::string labels;
    for (Field& field : bare.fields) {
      labels += printed_without_references(field);
      if (field.kind != nullptr) field.value = field.is_list() ? "1,0" : "0";
    }
    igsFile third;
    EXPECT_EQ(printed_data(read_dimension(third, bare)), labels);
  }
}

template <class... Errors>
std::vector<std::string> names_of() {
  return {Errors::type().name()...};
}
// What the classes are called in reports, and in code: one list, used twice.
#define TWICE(...) names_of<__VA_ARGS__>(), #__VA_ARGS__
const std::pair<std::vector<std::string>, std::string> names(TWICE(
    igs202NullNote, igs202WrongNoteType, igs202InvalidNote, igs202WrongWitness1Type, igs202InvalidWitness1,
    igs202WrongWitness2Type, igs202InvalidWitness2, igs202NullLeader1, igs202WrongLeader1Type, igs202InvalidLeader1,
    igs202NullLeader2, igs202WrongLeader2Type, igs202InvalidLeader2, igs202InvalidVertex, igs202InvalidRadius,
    igs204NullNote, igs204WrongNoteType, igs204InvalidNote, igs204NullCurve1, igs204WrongCurve1Type,
    igs204InvalidCurve1, igs204WrongCurve2Type, igs204InvalidCurve2, igs204NullLeader1, igs204WrongLeader1Type,
    igs204InvalidLeader1, igs204NullLeader2, igs204WrongLeader2Type, igs204InvalidLeader2, igs204WrongWitness1Type,
    igs204InvalidWitness1, igs204WrongWitness2Type, igs204InvalidWitness2, igs206NullNote, igs206WrongNoteType,
    igs206InvalidNote, igs206NullLeader1, igs206WrongLeader1Type, igs206InvalidLeader1, igs206WrongLeader2Type,
    igs206InvalidLeader2, igs206InvalidCentre, igs208NullNote, igs208WrongNoteType, igs208InvalidNote, igs208NullLeader,
    igs208WrongLeaderType, igs208InvalidLeader, igs208InvalidCorner, igs208InvalidAngle, igs208BadNumLeaders,
    igs210NullNote, igs210WrongNoteType, igs210InvalidNote, igs210NoLeaders, igs210NullLeader, igs210WrongLeaderType,
    igs210InvalidLeader, igs210BadNumLeaders, igs216NullNote, igs216WrongNoteType, igs216InvalidNote, igs216NullLeader1,
    igs216WrongLeader1Type, igs216InvalidLeader1, igs216NullLeader2, igs216WrongLeader2Type, igs216InvalidLeader2,
    igs216WrongWitness1Type, igs216InvalidWitness1, igs216WrongWitness2Type, igs216InvalidWitness2, igs218NullNote,
    igs218WrongNoteType, igs218InvalidNote, igs218NullWitnessOrLeader, igs218WrongWitnessOrLeaderType,
    igs218InvalidWitnessOrLeader, igs218NullWitness, igs218WrongWitnessType, igs218InvalidWitness, igs218NullLeader,
    igs218WrongLeaderType, igs218InvalidLeader, igs220NullNote, igs220WrongNoteType, igs220InvalidNote,
    igs220NullLeader, igs220WrongLeaderType, igs220InvalidLeader, igs220WrongGeometryType, igs220InvalidGeometry,
    igs222NullNote, igs222WrongNoteType, igs222InvalidNote, igs222NullLeader, igs222WrongLeaderType,
    igs222InvalidLeader, igs222InvalidCentre, igs222WrongLeader2Type, igs222InvalidLeader2, igs228NullNote,
    igs228WrongNoteType, igs228InvalidNote, igs228NoGeometry, igs228NullGeometry, igs228InvalidGeometry,
    igs228NullLeader, igs228WrongLeaderType, igs228InvalidLeader, igs228BadNumGeometry, igs228BadNumLeaders));
#undef TWICE

TEST(Dimensions, ErrorsAreCalledInReportsAsInCode) {
  std::string in_reports;
  for (const std::string& name : names.first) in_reports += (in_reports.empty() ? "" : ", ") + name;
  EXPECT_EQ(in_reports, names.second);
}

std::set<std::string> raised;  // names of the errors that the tests have met

void expect(const Dimension& dimension, const Found& expected) {
  SCOPED_TRACE(dimension.data() + " form " + std::to_string(dimension.form));
  igsFile file;
  EXPECT_EQ(found_in(read_dimension(file, dimension)), expected);
  for (const std::string& error : expected) raised.insert(error.substr(0, error.find(' ')));
}

void every_reference(const Dimension& sound) {
  const std::string name = sound.name();
  for (const Field& field : sound.fields) {
    if (field.kind == nullptr) continue;
    SCOPED_TRACE(name + field.name);
    const auto expect_for = [&](int target, const Found& expected) {
      expect(sound.with(field.name, field.referring_to(target)), expected);
    };
    expect_for(null, field.optional ? Found() : Found{field.error(name + "Null")});
    for (const int target : field.kind->sound) expect_for(target, {});
    for (const int target : field.kind->faulty) expect_for(target, {field.error(name + "Invalid")});
    for (const int target : field.kind->wrong) expect_for(target, {field.error(name + "Wrong", "Type")});
  }
}

void every_value() {
  const struct {
    int type;
    std::string field, value;
    Found found;
  } cases[] = {
      {202, "Vertex", lowest + ",0.", {"igs202InvalidVertex 1"}},
      {202, "Radius", "0.", {"igs202InvalidRadius 1 0"}},
      {202, "Radius", "-0.5", {"igs202InvalidRadius 1 -0.5"}},
      {202, "Radius", lowest, {"igs202InvalidRadius 1 -1.79769313486232e+308"}},
      {206, "Centre", lowest + ",0.", {"igs206InvalidCentre 1"}},
      {208, "Corner", lowest + ",0.,0.", {"igs208InvalidCorner 1"}},
      {208, "Angle", lowest, {"igs208InvalidAngle 1"}},
      {208, "Angle", "-7.", {}},
      {208, "Leader", "0", {}},
      {208, "Leader", "3,0,5,0", {"igs208NullLeader 1 0", "igs208NullLeader 1 2"}},
      {210, "Leader", "0", {"igs210NoLeaders 1"}},
      {210, "Leader", "2,5", {"igs210NullLeader 1 1"}},
      {222, "Centre", lowest + ",0.", {"igs222InvalidCentre 1"}},
      {228, "Geometry", "0", {"igs228NoGeometry 1"}},
      {228, "Leader", "0", {}},
  };
  for (const Dimension& sound : sound_dimensions()) {
    for (const auto& c : cases) {
      if (c.type == sound.type) expect(sound.with(c.field, c.value), c.found);
    }
  }
}

void unusable_counts() {
  const std::pair<int, std::string> cases[] = {{208, "Leader"}, {210, "Leader"}, {228, "Geometry"}, {228, "Leader"}};
  for (const Dimension& sound : sound_dimensions()) {
    for (const auto& [type, list] : cases) {
      for (const char* count : {"-1", "257", "2147483647"}) {
        if (type != sound.type) continue;
        IgesBuilder builder;
        builder.entity(sound.type, sound.form, sound.with(list, count + std::string(",5")).data());
        igsFile file;
        read_text(file, builder.text());
        EXPECT_EQ(file.entity(subject), nullptr);
        const std::string name = sound.name() + "BadNum" + (list == "Leader" ? "Leaders" : list);
        ASSERT_EQ(object_errors(file).size(), 1U) << name;
        EXPECT_EQ(describe(*object_errors(file)[0]), name + " 1 " + count);
        EXPECT_EQ(object_errors(file)[0]->fix(), 0);
        raised.insert(name);
      }
    }
  }
}

TEST(Dimensions, EachFaultHasItsOwnError) {
  raised.clear();
  for (const Dimension& sound : sound_dimensions()) every_reference(sound);
  every_value();
  unusable_counts();
  EXPECT_EQ(raised, std::set<std::string>(names.first.begin(), names.first.end()));
}

TEST(Dimensions, SeveralFaultsComeInFieldOrderReferencesFirst) {
  igsFile file;
  const Found lacking[] = {found_in(*new igs202), found_in(*new igs208), found_in(*new igs222), found_in(*new igs228)};
  EXPECT_EQ(lacking[0], (Found{"igs202NullNote 1", "igs202NullLeader1 1", "igs202NullLeader2 1",
                               "igs202InvalidVertex 1", "igs202InvalidRadius 1 -1.79769313486232e+308"}));
  EXPECT_EQ(lacking[1], (Found{"igs208NullNote 3", "igs208InvalidCorner 3", "igs208InvalidAngle 3"}));
  EXPECT_EQ(lacking[2], (Found{"igs222NullNote 5", "igs222NullLeader 5", "igs222InvalidCentre 5"}));
  EXPECT_EQ(lacking[3], Found{"igs228NoGeometry 7"});
}

TEST(Dimensions, ReferencesAreCleanAgainWhenWhatTheyReferToIs) {
  for (const Dimension& sound : sound_dimensions()) {
    for (const Field& field : sound.fields) {
      if (field.kind == nullptr) continue;
      for (const int target : field.kind->faulty) {
        if (target == bad_composite) continue;
        SCOPED_TRACE(sound.name() + field.name + ' ' + std::to_string(target));
        igsFile file;
        const igsObject& object = read_dimension(file, sound.with(field.name, field.referring_to(target)));
        object.check();
        const std::vector<igsError*> errors = object_errors(file);
        ASSERT_EQ(errors.size(), 2U);
        auto& error = static_cast<igsObjectError&>(*errors[1]);
        EXPECT_EQ(error.obj(), target);
        EXPECT_EQ(error.fix(), 0);
        EXPECT_EQ(errors[0]->fix(), target == bad_leader ? 0 : 1);
        if (target == bad_leader) entity_of<igs214>(file, bad_leader).set_arrow_height(1);
        file.entity(target)->check();
        EXPECT_EQ(error.fix(), 1);
        EXPECT_EQ(found_by_check(object), Found());
      }
    }
  }
}

TEST(Dimensions, NullMembersAreTakenOutOfLists) {
  const struct {
    int type, form;
    std::string data, repaired;
    Found left;
  } cases[] = {
      {208, 0, "1.,2.,3.,0.,3,4,0,5,0,5", "1.,2.,3.,0.,3,2,5,5", {}},
      {208, 0, "1.,2.,3.,0.,3,2,0,0", "1.,2.,3.,0.,3,0", {}},
      {210, 0, "3,3,5,0,17", "3,2,5,17", {"igs210InvalidLeader 1 1"}},
      {210, 0, "3,1,0", "3,0", {"igs210NoLeaders 1"}},
      {228, 0, "0,3,0,9,0,3,5,0,5", "0,1,9,2,5,5", {}},
      {228, 1, "3,1,0,1,5", "3,0,1,5", {"igs228NoGeometry 1"}},
      {228, 1, "3,4,0,11,0,9,3,0,5,0", "3,2,11,9,1,5", {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.data);
    igsFile file;
    IgesBuilder builder;
    builder.entity(c.type, c.form, c.data);
    add_targets(builder);
    ASSERT_EQ(read_text(file, builder.text()), 1);
    const igsObject& object = *file.entity(subject);
    object.check();
    for (igsError* error : object_errors(file)) {
      EXPECT_EQ(error->fix(), describe(*error).find("Null") != std::string::npos ? 1 : 0);
    }
    EXPECT_EQ(found_in(object), c.left);
    EXPECT_EQ(written_data(file), std::to_string(c.type) + ',' + c.repaired + ';');
  }
}

TEST(Dimensions, PositionsAreFollowedThroughRepairsAndDeletions) {
  igsFile file;
  auto& symbol =
      static_cast<igs228&>(const_cast<igsObject&>(read_dimension(file, {228, 0, {{"", "0,4,9,11,0,13,3,0,5,17"}}})));
  delete file.entity(arc);
  EXPECT_EQ(found_in(symbol), (Found{"igs228NullGeometry 1 0", "igs228InvalidGeometry 1 1", "igs228NullGeometry 1 2",
                                     "igs228NullLeader 1 0", "igs228InvalidLeader 1 2"}));
  EXPECT_EQ(symbol.geometry(1).de_number(), composite);
  symbol.remove_null_geometry(0);
  symbol.remove_null_leaders(0);
  const std::vector<int> geometry{symbol.current_geometry_index(0), symbol.current_geometry_index(1),
                                  symbol.current_geometry_index(3), symbol.current_geometry_index(4)};
  EXPECT_EQ(geometry, (std::vector<int>{-1, 0, 1, -1}));
  EXPECT_EQ(symbol.current_leader_index(2), 1);
  EXPECT_EQ(symbol.leader(1).de_number(), bad_leader);
  EXPECT_EQ(symbol.leader(2).object(), nullptr);
  EXPECT_EQ(symbol.set_leader(2, file.entity(leader)), 0);
  EXPECT_EQ(symbol.set_leader(1, file.entity(leader)), 1);
  EXPECT_EQ(symbol.set_geometry(-1, file.entity(note)), 0);
  EXPECT_EQ(symbol.set_geometry(0, file.entity(note)), 1);
  EXPECT_EQ(found_in(symbol), Found());
}

TEST(Dimensions, ListsAreRepairedAgainAfterAnotherCheck) {
  const Dimension cases[] = {{208, 0, {{"", "1.,2.,3.,0.,3,3,0,17,5"}}},
                             {210, 0, {{"", "3,3,0,17,5"}}},
                             {228, 0, {{"", "3,1,9,3,0,17,5"}}},
                             {228, 1, {{"", "3,3,0,17,9,0"}}}};
  for (const Dimension& dimension : cases) {
    SCOPED_TRACE(dimension.data());
    igsFile file;
    const igsObject& object = read_dimension(file, dimension);
    for (const int faults : {2, 1, 0}) {  // a null and a faulty member; the latter deleted, thus null; none
      const Found found = found_in(object);
      EXPECT_EQ(found.size(), static_cast<std::size_t>(faults));
      for (igsError* error : object_errors(file)) error->fix();
      delete file.entity(bad_leader);
    }
  }
}

/// The second leader of a radius dimension, and the leader of an ordinate dimension, exist in form 1 alone.
TEST(Dimensions, AFieldThatTheFormLacksIsNotWrittenButGivenUp) {
  for (const bool ordinate : {false, true}) {
    igsFile file;
    igsObject& object = const_cast<igsObject&>(read_dimension(
        file, ordinate ? Dimension{218, 1, {{"", "3,7,17"}}} : Dimension{222, 1, {{"", "3,5,1.,2.,17"}}}));
    EXPECT_EQ(found_in(object), Found{ordinate ? "igs218InvalidLeader 1" : "igs222InvalidLeader2 1"});
    object.directory_entry().set_form_number(0);
    EXPECT_EQ(found_in(object), Found());
    EXPECT_EQ(printed_data(object).find("Leader2"), std::string::npos);
    EXPECT_EQ(file.entity(bad_leader)->num_references(), 1);
    EXPECT_EQ(written_data(file), ordinate ? "218,3,7;" : "222,3,5,1.,2.;");
    object.unreference_children();
    EXPECT_EQ(file.entity(bad_leader), nullptr);
  }
}

TEST(Dimensions, MadeByHand) {
  igsFile file;
  auto* const text = new igs212;
  igsNoteString string("R 2.5");
  string.set_start({0, 0, 0});
  text->add_string(string);
  auto* const arrow = new igs214;
  arrow->set_z_level(0);
  arrow->set_arrow_head({0, 0});
  arrow->add_tail({1, 1});
  auto* const linear = new igs216;
  linear->set_note(text);
  linear->set_leader1(arrow);
  linear->set_leader2(arrow);
  auto* const radius = new igs222;
  radius->set_note(text);
  radius->set_leader(arrow);
  radius->set_centre({1, 2});
  auto* const label = new igs210;
  label->set_note(text);
  label->set_leaders({arrow, arrow});
  for (const igsDimension* each :
       {static_cast<igsDimension*>(linear), static_cast<igsDimension*>(radius), static_cast<igsDimension*>(label)}) {
    EXPECT_EQ(each->check(), 1);
    EXPECT_EQ(each->note().de_number(), 1);
  }
  EXPECT_EQ(written_data(file, 5), "216,1,3,3,0,0;");
  EXPECT_EQ(written_data(file, 7), "222,1,3,1.,2.;");
  EXPECT_EQ(written_data(file, 9), "210,1,2,3,3;");
  EXPECT_EQ(label->number_of_leaders(), 2);
}
}  // namespace
}  // namespace igs_test
