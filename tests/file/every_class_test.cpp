// One file that holds every class and every form that the library knows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "iges_builder.h"
#include "igs/catalogue/igsFactory.h"
#include "igs/catalogue/igsInfoDB.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsPlaceholders.h"

namespace igs_test {
namespace {

#define SQUARE_POINTS "0.,0.,1.,0.,1.,1.,0.,1.,0.,0."
#define UNIT_SQUARE_SURFACE "0.,0.,1.,1.,0.,0.,1.,1.,1.,1.,1.,1.,0.,0.,0.,1.,0.,0.,0.,1.,0.,1.,1.,0.,0.,1.,0.,1."

/// Sound parameter data; @type or @type:form stands for the first entity of that kind.
struct Sample {
  int type, min_form, max_form;
  const char* data;
};
const Sample samples[] = {
    {100, 0, 0, "0.,0.,0.,1.,0.,0.,1."},
    {102, 0, 0, "1,@110"},
    {104, 0, 1, "1.,0.,4.,0.,0.,-4.,0.,2.,0.,2.,0."},
    {104, 2, 2, "1.,0.,-1.,0.,0.,-1.,0.,1.,0.,1.,0."},
    {104, 3, 3, "1.,0.,0.,0.,-1.,0.,0.,0.,0.,1.,1."},
    {106, 1, 1, "1,5,0.," SQUARE_POINTS},
    {106, 2, 2, "2,2,0.,0.,0.,1.,1.,1."},
    {106, 3, 3, "3,2,0.,0.,0.,1.,0.,0.,1.,1.,1.,0.,1.,0."},
    {106, 11, 11, "1,5,0.," SQUARE_POINTS},
    {106, 12, 12, "2,3,0.,0.,0.,1.,1.,1.,2.,0.,0."},
    {106, 13, 13, "3,2,0.,0.,0.,1.,0.,0.,1.,1.,1.,0.,1.,0."},
    {106, 20, 21, "1,2,0.,0.,0.,1.,1."},
    {106, 31, 38, "1,2,0.,0.,0.,1.,1."},
    {106, 40, 40, "1,3,0.,0.,0.,1.,0.,2.,0."},
    {106, 63, 63, "1,5,0.," SQUARE_POINTS},
    {108, -1, -1, "0.,0.,1.,0.,@106:63,0.,0.,0.,0."},
    {108, 0, 0, "0.,0.,1.,0.,0,1.,1.,0.,1."},
    {108, 1, 1, "0.,0.,1.,0.,@106:63,0.,0.,0.,0."},
    {110, 0, 0, "0.,0.,0.,1.,0.,0."},
    {112, 0, 0, "3,1,3,1,0.,1.,0.,1.,0.,0.,0.,1.,0.,0.,0.,0.,0.,0.,1.,1.,0.,0.,1.,1.,0.,0.,0.,0.,0.,0."},
    {114, 0, 0, "3,0,1,1,0.,1.,0.,1.,/192"},
    {116, 0, 0, "1.,2.,3.,0"},
    {118, 0, 1, "@110,@112,0,0"},
    {120, 0, 0, "@110,@100,0.,6.28318530717959"},
    {122, 0, 0, "@110,0.,0.,1."},
    {123, 0, 0, "0.,0.,1."},
    {124, 0, 0, "1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,1.,0."},
    {124, 1, 1, "1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,-1.,0."},
    {126, 0, 5, "1,1,0,0,1,0,0.,0.,1.,1.,1.,1.,0.,0.,0.,1.,0.,0.,0.,1.,0.,0.,1."},
    {128, 0, 9, "1,1,1,1,0,0,1,0,0," UNIT_SQUARE_SURFACE},
    {130, 0, 0, "@110,1,0,0,0,0.5,0.,0.,0.,0.,0.,1.,0.,1."},
    {140, 0, 0, "0.,0.,1.,0.5,@128"},
    {141, 0, 0, "1,2,@128,1,@110,1,1,@126"},
    {142, 0, 0, "1,@128,@126,@110,2"},
    {143, 0, 0, "1,@128,1,@141"},
    {144, 0, 0, "@128,1,1,@142,@142"},
    {186, 0, 0, "@514,1,1,@514,0"},
    {190, 0, 0, "@116,@123"},
    {190, 1, 1, "@116,@123,@123x"},
    {192, 0, 0, "@116,@123,2."},
    {192, 1, 1, "@116,@123,2.,@123x"},
    {194, 0, 0, "@116,@123,2.,30."},
    {194, 1, 1, "@116,@123,2.,30.,@123x"},
    {196, 0, 0, "@116,2."},
    {196, 1, 1, "@116,2.,@123,@123x"},
    {198, 0, 0, "@116,@123,2.,1."},
    {198, 1, 1, "@116,@123,2.,1.,@123x"},
    {202, 0, 0, "@212,@106:40,@106:40,0.,0.,1.,@214,@214"},
    {204, 0, 0, "@212,@110,0,@214,@214,@106:40,@106:40"},
    {206, 0, 0, "@212,@214,@214,0.,0."},
    {208, 0, 0, "0.,0.,0.,0.,@212,1,@214"},
    {210, 0, 0, "@212,1,@214"},
    {212, 0, 105, "2,4,1.,1.,1,1.5,0.,0,0,0.,0.,0.,4Ht;,t,1,1.,1.,-@310,1.5,0.,0,0,0.,0.,0.,1Ht"},
    {214, 1, 12, "1,0.1,0.1,0.,0.,0.,1.,1."},
    {216, 0, 2, "@212,@214,@214,@106:40,0"},
    {218, 0, 0, "@212,@106:40"},
    {218, 1, 1, "@212,@106:40,@214"},
    {220, 0, 0, "@212,@214,@100"},
    {222, 0, 0, "@212,@214,0.,0."},
    {222, 1, 1, "@212,@214,0.,0.,@214"},
    {228, 0, 1, "@212,1,@110,1,@214"},
    {230, 0, 0, "@106:63,1,0.,0.,0.,0.1,0.5,1,@100"},
    {304, 1, 1, "1,@308,1.,1."},
    {304, 2, 2, "2,0.1,0.1,1H2"},
    {308, 0, 0, "0,3Hsub,2,@110,@144"},
    {310, 0, 0, "1,4Hfont,0,8,1,65,8,0,2,0,4,8,1,8,0"},
    {312, 0, 1, "1.,1.,-@310,1.5,0.,0,0,0.,0.,0."},
    {314, 0, 0, "10.,20.,30.,4Hteal"},
    {402, 1, 1, "2,@110,@100"},
    {402, 3, 3, "1,1,@410,@110"},
    {402, 7, 7, "2,@110,@402:1"},
    {402, 14, 15, "1,@314"},
    {402, 16, 16, "1,2,@124,@110,@100"},
    {404, 0, 0, "1,@410,0.,0.,1,@212"},
    {404, 1, 1, "1,@410,0.,0.,0.5,1,@212"},
    {408, 0, 0, "@308,0.,0.,0.,1."},
    {410, 0, 0, "1,1.,@108:0,0,0,0,0,0"},
    {416, 1, 1, "9Hother.igs"},
    {502, 1, 1, "4,0.,0.,0.,1.,0.,0.,1.,1.,0.,0.,1.,0."},
    {504, 1, 1, "4,@110,@502,1,@502,2,@110,@502,2,@502,3,@110,@502,3,@502,4,@110,@502,4,@502,1"},
    {508, 1, 1, "4,0,@504,1,1,1,0,@126,0,@504,2,1,0,0,@504,3,1,0,0,@504,4,1,0"},
    {510, 1, 1, "@128,1,1,@508"},
    {514, 1, 1, "1,@510,1"},
};

/// Every sample in every form that the standard knows; the last entity is a second direction, for @123x.
class EveryClass : public testing::Test {
 protected:
  EveryClass() {
    std::vector<std::pair<const Sample*, int>> kinds;
    for (const Sample& sample : samples) {
      for (int form = sample.min_form; form <= sample.max_form; ++form) {
        if (!igsInfoDB::form_exists(sample.type, form)) continue;
        kinds.emplace_back(&sample, form);
        const int de = static_cast<int>(2 * kinds.size() - 1);
        m_de.try_emplace(std::to_string(sample.type), de);
        m_de.try_emplace(std::to_string(sample.type) + ':' + std::to_string(form), de);
      }
    }
    m_de["123x"] = static_cast<int>(2 * kinds.size() + 1);
    for (const auto& [sample, form] : kinds) m_builder.entity(sample->type, form, resolved(sample->data));
    m_builder.entity(123, 0, "1.,0.,0.");
    m_num_entities = static_cast<int>(kinds.size() + 1);
  }

  std::string resolved(const std::string& data) const {
    static const std::regex part("@[0-9:]+x?|/[0-9]+");
    std::string text;
    std::size_t done = 0;
    for (std::sregex_iterator it(data.begin(), data.end(), part), end; it != end; ++it) {
      const std::string found = it->str();
      text += data.substr(done, static_cast<std::size_t>(it->position()) - done);
      if (found[0] == '@') {
        text += std::to_string(m_de.at(found.substr(1)));
      } else {
        for (int i = std::stoi(found.substr(1)); i > 0; --i) text += i > 1 ? "1.," : "1.";
      }
      done = static_cast<std::size_t>(it->position()) + found.size();
    }
    return text + data.substr(done);
  }

  static std::string printed(const igsFile& file) {
    std::ostringstream text;
    utOstream os(text);
    file.print(os);
    return text.str().substr(text.str().find("Entities = {"));
  }

  IgesBuilder m_builder;
  std::map<std::string, int> m_de;
  int m_num_entities = 0;
};

TEST_F(EveryClass, IsReadCheckedWrittenAndReadBackEqual) {
  igsFile file;
  ASSERT_EQ(read_text(file, m_builder.text()), 1);
  EXPECT_EQ(file.num_entities(), m_num_entities);
  file.check();
  EXPECT_THAT(active_errors(file), testing::IsEmpty());
  const std::string text = written(file);
  EXPECT_EQ(column_fault(text), "");
  igsFile copy;
  ASSERT_EQ(read_text(copy, text), 1);
  EXPECT_EQ(printed(copy), printed(file));
  EXPECT_EQ(written(copy), text);
}

TEST_F(EveryClass, HasASample) {
  igsFile scratch;
  for (const auto& [name, de] : m_de) {
    if (name.find(':') == std::string::npos) continue;
    const auto type = static_cast<igsEntityType>(std::stoi(name));
    EXPECT_FALSE(igsFactory::make_one(type, std::stoi(name.substr(name.find(':') + 1)))->isa(igsUnknown::type()))
        << name;
  }
  for (int type = 100; type <= 514; ++type) {
    for (int form = -1; form <= 105; ++form) {
      const auto entity_type = static_cast<igsEntityType>(type);
      if (!igsInfoDB::form_exists(type, form)) continue;
      if (igsFactory::make_one(entity_type, form)->isa(igsUnknown::type())) continue;
      EXPECT_TRUE(m_de.contains(std::to_string(type) + ':' + std::to_string(form))) << type << ':' << form;
    }
  }
}
}  // namespace
}  // namespace igs_test
