#pragma once

#include "igs/support/export.h"
#include "igs/support/systemDate.h"
#include "igs/support/utString.h"

class utOstream;

/// A date of the Global section (IGES 5.3, section 2.2.4.3.18): a text of 13 characters, YYMMDD.HHNNSS, or of 15,
/// YYYYMMDD.HHNNSS. Any text can be held; `check` tells whether it is a date.
class IGS_API igsDate {
 public:
  /// Today, in the 15-character form.
  igsDate();
  explicit igsDate(utString text);

  /// The text as it was given.
  const utString& date_string() const { return m_text; }
  /// 1 when the text is a date: see check_date_string.
  int check() const { return check_date_string(m_text); }
  /// Writes the text alone.
  void print(utOstream& os) const;

  bool operator==(const igsDate&) const = default;

  /// Today, UTC.
  static utDateTime todays_date() { return ut_today(); }
  /// The 15-character form.
  static utString encode_date_string(const utDateTime& date);
  /// Splits a text of one of the two forms into its numbers and returns 1. A two-digit year belongs to the 1900s, or to
  /// the 2000s when that is not later than the current year. Returns 0, `date` as it was, for a text of another length,
  /// without the point in its place, or with anything but digits around it.
  static int decode_date_string(const utString& text, utDateTime& date);
  /// 1 when the text decodes to a day that exists, from 1980 to the end of the current year, and a time of day.
  static int check_date_string(const utString& text);
  /// 1 when the month (1 to 12) of that year has the day; leap years as in the Gregorian calendar.
  static int check_day_against_month(int day, int month, int year);

 private:
  utString m_text;
};
