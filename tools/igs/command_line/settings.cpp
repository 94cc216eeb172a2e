#include "command_line/settings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <optional>
#include <string_view>
#include <vector>

#include "command_line/nearest.h"
#include "text/text.h"

namespace {

/// An option of the geometric checks.
struct ShapeKey {
  coResourceInfo info;
  void (*set)(igsShapeCheckOptions& shape, double value);
};

constexpr double largest = co_resource::any, half_turn = 180;
constexpr std::array<ShapeKey, 5> shape_keys{{
    {{"shape-tolerance", coResourceType::real, 0, 0, largest,
      "a distance above this is a warning, above ten times as much an error, below it a note; 0: as the file tells"},
     [](igsShapeCheckOptions& shape, double value) { shape.tolerance = value; }},
    {{"shape-least", coResourceType::real, 0, 0, largest,
      "distances up to this are not reported; 0: as the file tells"},
     [](igsShapeCheckOptions& shape, double value) { shape.least = value; }},
    {{"shape-tiny", coResourceType::real, 0, 0, largest,
      "edges shorter and faces narrower than this are reported; 0: the tolerance"},
     [](igsShapeCheckOptions& shape, double value) { shape.tiny = value; }},
    {{"shape-angle", coResourceType::real, 3, 0, half_turn, "kinks sharper than this are reported, in degrees"},
     [](igsShapeCheckOptions& shape, double value) { shape.angle = value * std::numbers::pi / half_turn; }},
    {{"shape-degree", coResourceType::integer, 8, 0, 1000, "curves and surfaces of a higher degree are reported"},
     [](igsShapeCheckOptions& shape, double value) { shape.degree = static_cast<int>(value); }},
}};

/// Empty when there is such a key.
std::string key_fault(const std::string& key) {
  std::vector<std::string_view> known;
  for (const coResourceInfo& each : setting_keys()) known.push_back(each.name);
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

/// False when the key does not allow the value.
bool set_value(const std::string& key, double value, coResourceTable& table, igsShapeCheckOptions& shape) {
  const auto found =
      std::find_if(shape_keys.begin(), shape_keys.end(), [&](const ShapeKey& each) { return each.info.name == key; });
  if (found == shape_keys.end()) return table.set_value(key, value) != 0;
  const coResourceInfo& info = found->info;
  const bool is_whole = info.type == coResourceType::real || value == std::floor(value);
  if (!(value >= info.minimum && value <= info.maximum) || !is_whole) return false;
  found->set(shape, value);
  return true;
}

/// Applies the setting, or returns why that cannot be done.
std::string apply(const std::string& setting, coResourceTable& table, igsShapeCheckOptions& shape) {
  const std::size_t equals = setting.find('=');
  if (equals == std::string::npos) return '"' + printable(setting) + "\" is no KEY=VALUE";
  const std::string key = setting.substr(0, equals);
  std::string fault = key_fault(key);
  if (!fault.empty()) return fault;
  const std::string text = setting.substr(equals + 1);
  const std::optional<double> value = real_of(text);
  const std::string quoted = printable(text);
  if (!value) return '"' + quoted + "\" is no number";
  return set_value(key, *value, table, shape) ? "" : quoted + " is not allowed for " + key;
}

}  // namespace

void use_source_date() {
  if (source_date()) ut_set_clock(source_clock);
}

const std::vector<coResourceInfo>& setting_keys() {
  static const std::vector<coResourceInfo> all = [] {
    std::vector<coResourceInfo> keys(coResourceTable::keys().begin(), coResourceTable::keys().end());
    for (const ShapeKey& key : shape_keys) keys.push_back(key.info);
    return keys;
  }();
  return all;
}

std::string setting_fault(const std::string& setting) {
  coResourceTable trial;
  igsShapeCheckOptions trial_shape;
  return apply(setting, trial, trial_shape);
}

void apply_setting(const std::string& setting, igsShapeCheckOptions& shape) {
  apply(setting, kel_resource_table_inquire(), shape);
}
