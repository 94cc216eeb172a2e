#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Text from files, made fit to be shown: none of it is trusted to be UTF-8, or to be harmless to a terminal.

/// Length in bytes of the UTF-8 character at the start of `text`, 1 to 4; 0 when no valid one stands there.
std::size_t utf8_length(std::string_view text);

/// The text as UTF-8: bytes that belong to no valid character become the character of the same number (U+0080 to
/// U+00FF). Valid text stays as it is.
std::string to_utf8(std::string_view text);

/// The text on one line: control characters and bytes that belong to no valid UTF-8 character become \xNN.
std::string printable(std::string_view text);

/// The text less the blanks before and behind it.
std::string without_outer_blanks(const std::string& text);

/// The shortest decimal number that reads back to the same double, in every locale. Infinities and NaN become "inf",
/// "-inf" and "nan".
std::string format_real(double value);

/// The value with so many significant digits, as a writer rounds them; the value itself where that is not finite.
double rounded_to_digits(double value, int digits);

/// What was measured, for people, in twelve digits; "not known" where it is no finite number.
std::string format_figure(double value);

/// The text as a decimal number, an infinity or NaN; nothing where it is more or less than one, or out of range.
std::optional<double> real_of(const std::string& text);

/// Between the columns of a report for people.
inline constexpr const char* two_spaces = "  ";

/// "1 entity", "2 entities": the count with the noun that fits it.
std::string counted(long long count, std::string_view singular, std::string_view plural);
