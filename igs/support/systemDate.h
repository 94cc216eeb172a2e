#pragma once

#include "igs/support/export.h"

/// A calendar date and a time of day, UTC: no result depends on the time zone of the process.
struct utDateTime {
  int year, month, day;      ///< month and day count from 1
  int hour, minute, second;  ///< 24-hour clock
};

/// The one place where the library asks for the date. By default the system clock answers.
IGS_API utDateTime ut_today();

/// Makes `clock` answer instead of the system clock; null restores it. For tests and for reproducible output.
/// Set it before threads start that use the library.
IGS_API void ut_set_clock(utDateTime (*clock)());
