#include "igs/objects/igsFieldVisitor.h"

#include <gmock/gmock.h>

#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "iges_builder.h"
#include "igs/catalogue/igsFactory.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsPlaceholders.h"
#include "igs/output/igsOutStream.h"

namespace igs_test {
namespace {

/// Writes what it is shown, and notes the path of every field: "Edges(0).Curve", "StartPoint.x".
class Rewriter : public igsFieldVisitor {
 public:
  explicit Rewriter(igsOutStream& out) : m_out(out) {}

  void integer(const char* label, int value) override { add(label), m_out.write_integer(value); }
  void real(const char* label, double value) override { add(label), m_out.write_double(value); }
  void text(const char* label, const utString& value) override { add(label), m_out.write_holerith(value); }
  void reference(const char* label, const igsObject* target) override {
    add(label), m_out.write_integer(target != nullptr ? target->de_number() : 0);
  }
  void begin_group(const char* label) override { m_groups.push_back({path(label), 0}); }
  void end_group() override { m_groups.pop_back(); }

  std::vector<std::string> paths;

 private:
  struct Group {
    std::string path;
    int elements;
  };
  std::string path(const char* label) {
    if (m_groups.empty()) return label;
    Group& group = m_groups.back();
    return group.path + (label != nullptr ? std::string(".") + label : '(' + std::to_string(group.elements++) + ')');
  }
  void add(const char* label) { paths.push_back(path(label)); }

  igsOutStream& m_out;
  std::vector<Group> m_groups;
};

/// The Parameter Data records of what `write(stream)` writes.
template <class Write>
std::string records(Write write) {
  std::ostringstream text;
  {
    igsOutStream out(&text);
    out.set_section(igsParameterSectionId);
    write(out);
    out.set_backpointer(3);
  }
  return text.str();
}

/// A type and form for every entity class.
std::map<std::string, std::pair<int, int>> entity_classes() {
  constexpr int last_type = 600, last_form = 120;
  std::map<std::string, std::pair<int, int>> classes;
  const igsFile file;
  for (int type = 1; type <= last_type; ++type) {
    for (int form = 0; form <= last_form; ++form) {
      const igsObject* const object = igsFactory::make_one(static_cast<igsEntityType>(type), form);
      if (!object->isa(igsUnknown::type())) classes.try_emplace(object->objtype().id_string(), type, form);
      delete object;
    }
  }
  return classes;
}

TEST(igsFieldVisitor, EveryClassShowsWhatItWrites) {
  const auto classes = entity_classes();
  EXPECT_EQ(classes.size(), 71U);
  std::string ones = "1";  // as a count, a flag, a pointer and a coordinate
  for (int i = 1; i < 400; ++i) ones += ",1";
  IgesBuilder builder;
  for (const auto& [name, kind] : classes) builder.entity(kind.first, kind.second, ones);
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);

  std::set<std::string> seen;
  igsFileIT entities(&file);
  while (++entities != 0) {
    igsObject& entity = *entities();
    seen.insert(entity.objtype().id_string());
    std::vector<std::string> paths;
    const std::string shown = records([&](igsOutStream& out) {
      Rewriter rewriter(out);
      entity.visit_fields(rewriter);
      paths = rewriter.paths;
    });
    EXPECT_EQ(shown, records([&](igsOutStream& out) { entity.write_pd_data(out); })) << entity.objtype().id_string();
    EXPECT_FALSE(paths.empty()) << entity.objtype().id_string();
    EXPECT_EQ(std::set<std::string>(paths.begin(), paths.end()).size(), paths.size())
        << entity.objtype().id_string() << ": a path names two fields";
  }
  EXPECT_EQ(seen.size(), classes.size()) << "classes that do not read these data";
}

}  // namespace
}  // namespace igs_test
