#include "igs/file/igsDate.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <string_view>
#include <utility>

#include "igs/input/private/number.h"
#include "igs/support/utOstream.h"

namespace {

constexpr std::size_t short_form = 13;  // YYMMDD.HHNNSS
constexpr std::size_t long_form = 15;   // YYYYMMDD.HHNNSS
constexpr std::size_t point_from_end = 7;
constexpr std::size_t month_from_end = 11;
constexpr int earliest_year = 1980;

using igs_number::is_digit;

bool has_date_form(std::string_view text) {
  if (text.size() != short_form && text.size() != long_form) return false;
  const std::size_t point = text.size() - point_from_end;
  return text[point] == '.' && std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(point), is_digit) &&
         std::all_of(text.begin() + static_cast<std::ptrdiff_t>(point) + 1, text.end(), is_digit);
}

int number(std::string_view digits) {
  int value = 0;
  for (const char c : digits) value = value * 10 + (c - '0');
  return value;
}

bool in_range(int value, int low, int high) { return value >= low && value <= high; }

bool is_leap_year(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

}  // namespace

igsDate::igsDate() : m_text(encode_date_string(todays_date())) {}

igsDate::igsDate(utString text) : m_text(std::move(text)) {}

void igsDate::print(utOstream& os) const { os << m_text; }

utString igsDate::encode_date_string(const utDateTime& date) {
  std::array<char, 80> text{};
  std::snprintf(text.data(), text.size(), "%04d%02d%02d.%02d%02d%02d", date.year, date.month, date.day, date.hour,
                date.minute, date.second);
  return text.data();
}

int igsDate::decode_date_string(const utString& text, utDateTime& date) {
  if (!has_date_form(text)) return 0;
  const std::string_view view = text;
  const std::size_t year_digits = view.size() - month_from_end;
  const auto two_digits = [view](std::size_t from_end) { return number(view.substr(view.size() - from_end, 2)); };
  date = {number(view.substr(0, year_digits)),
          two_digits(month_from_end),
          two_digits(9),
          two_digits(6),
          two_digits(4),
          two_digits(2)};
  if (year_digits == 2) {
    date.year += 1900;
    if (date.year + 100 <= todays_date().year) date.year += 100;
  }
  return 1;
}

int igsDate::check_date_string(const utString& text) {
  utDateTime date{};
  if (decode_date_string(text, date) == 0) return 0;
  return in_range(date.year, earliest_year, todays_date().year) && in_range(date.month, 1, 12) &&
                 in_range(date.day, 1, 31) && in_range(date.hour, 0, 23) && in_range(date.minute, 0, 59) &&
                 in_range(date.second, 0, 59)
             ? check_day_against_month(date.day, date.month, date.year)
             : 0;
}

int igsDate::check_day_against_month(int day, int month, int year) {
  constexpr std::array month_lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (day < 1 || !in_range(month, 1, 12)) return 0;
  const int length = month == 2 && is_leap_year(year) ? 29 : month_lengths[static_cast<std::size_t>(month) - 1];
  return day <= length ? 1 : 0;
}
