#include "command_line/settings.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <vector>

#include "command_line/nearest.h"
#include "igs/igs.h"
#include "text/text.h"

namespace {

/// Empty when there is such a key.
std::string key_fault(const std::string& key) {
  std::vector<std::string_view> known;
  for (const coResourceInfo& each : coResourceTable::keys()) known.push_back(each.name);
  if (std::find(known.begin(), known.end(), key) != known.end()) return "";
  return "no key \"" + printable(key) + '"' + suggestion(key, known);
}

/// The moment that SOURCE_DATE_EPOCH names, in seconds since 1970; nothing where it names none.
std::optional<std::chrono::sys_seconds> source_date() {
  const char* const text = std::getenv("SOURCE_DATE_EPOCH");  // NOLINT(concurrency-mt-unsafe): nothing sets it
  if (text == nullptr) return std::nullopt;
  constexpr long long end_of_dates = 253402300800;  // the year 10000
  const std::string_view digits(text);
  long long seconds = 0;
  const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), seconds);
  const bool is_number = error == std::errc() && stop == digits.data() + digits.size();
  if (!is_number || seconds < 0 || seconds >= end_of_dates) return std::nullopt;
  return std::chrono::sys_seconds(std::chrono::seconds(seconds));
}

utDateTime source_clock() {
  const std::chrono::sys_seconds moment = *source_date();
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(moment - day);
  return {int(date.year()),
          static_cast<int>(unsigned(date.month())),
          static_cast<int>(unsigned(date.day())),
          static_cast<int>(time.hours().count()),
          static_cast<int>(time.minutes().count()),
          static_cast<int>(time.seconds().count())};
}

/// Applies the setting to the table, or returns why that cannot be done.
std::string apply(const std::string& setting, coResourceTable& table) {
  const std::size_t equals = setting.find('=');
  if (equals == std::string::npos) return '"' + printable(setting) + "\" is no KEY=VALUE";
  const std::string key = setting.substr(0, equals);
  std::string fault = key_fault(key);
  if (!fault.empty()) return fault;
  const std::string text = setting.substr(equals + 1);
  const std::optional<double> value = real_of(text);
  const std::string quoted = printable(text);
  if (!value) return '"' + quoted + "\" is no number";
  return table.set_value(key, *value) == 0 ? quoted + " is not allowed for " + key : "";
}

}  // namespace

void use_source_date() {
  if (source_date()) ut_set_clock(source_clock);
}

std::string setting_fault(const std::string& setting) {
  coResourceTable trial;
  return apply(setting, trial);
}

void set_resource(const std::string& setting) { apply(setting, kel_resource_table_inquire()); }
