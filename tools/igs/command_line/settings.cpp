#include "command_line/settings.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <vector>

#include "command_line/nearest.h"
#include "igs/igs.h"
#include "text/text.h"

namespace {

[[noreturn]] void refuse_setting(const std::string& reason) { throw CLI::ValidationError("--set", reason); }

void expect_key(const std::string& key) {
  std::vector<std::string_view> known;
  for (const coResourceInfo& each : coResourceTable::keys()) known.push_back(each.name);
  if (std::find(known.begin(), known.end(), key) != known.end()) return;
  refuse_setting("no key \"" + printable(key) + '"' + suggestion(key, known));
}

}  // namespace

void set_resource(const std::string& setting) {
  const std::size_t equals = setting.find('=');
  if (equals == std::string::npos) refuse_setting('"' + printable(setting) + "\" is no KEY=VALUE");
  const std::string key = setting.substr(0, equals);
  expect_key(key);
  const char* const end = setting.data() + setting.size();
  double value = 0;
  const auto [stop, error] = std::from_chars(setting.data() + equals + 1, end, value);
  const std::string quoted = printable(setting.substr(equals + 1));
  if (error != std::errc() || stop != end) refuse_setting('"' + quoted + "\" is no number");
  if (kel_resource_table_inquire().set_value(key, value) == 0) refuse_setting(quoted + " is not allowed for " + key);
}
