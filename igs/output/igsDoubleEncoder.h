#pragma once

#include <array>
#include <vector>

#include "igs/output/igsEncoder.h"
#include "igs/support/export.h"

/// A real in the double precision form of IGES (IGES 5.3, section 2.2.2.2), in one piece that is never split: printf's
/// general conversion "%G" as in the C locale, with `D` (or `E`) for the exponent and always a decimal point ("100.",
/// "1.D+20", "12345.678"). It differs from that conversion in these ways: zero is "0." whatever its sign; a finite
/// value whose rounded digits would read back as infinity is written with 17 digits; NaN and infinity give "NAN." and
/// "INF.", with a minus sign where they have one, which is no IGES number.
///
/// The number formats form a stack, so that a caller can change the precision for a while.
class IGS_API igsDoubleEncoder : public igsEncoder {
 public:
  /// The precision that stands for as many digits as the value needs.
  static constexpr int shortest = -1;
  /// Largest precision used: such a real still fits into a Parameter Data record.
  static constexpr int max_precision = 40;
  /// Characters of a real of that precision: its digits, sign, "0.000" before them, a point and "D-308" after them.
  static constexpr int max_length = max_precision + 16;

  /// The first format is that of the options kelOptDoubleFieldWidth and kelOptDoubleGeometricPrecision.
  igsDoubleEncoder();

  void encode(double value);
  /// The value encoded last.
  double value() const { return m_value; }

  /// Prints the piece that encode would make of `value` and returns its end. max_length characters from `text` on may
  /// be overwritten.
  char* print(char* text, double value) const;

  /// From now on `precision` significant digits (0 counts as 1; limited to 0 ... max_precision), trailing zeros
  /// removed. With `shortest` the fewest that read back as the same double, but for the sign of zero; the exponent form
  /// is used below 1e-4 and from 1e17 on. `width` is the width of the left-justified conversion: as padding at the end
  /// is dropped, it has no effect.
  void push_format(int width, int precision);
  /// Back to the format before the last push; the first format stays.
  void pop_format();
  /// Makes every format the shortest one, those pushed later, too.
  void use_shortest();
  /// 'D' at first.
  void set_exponent_letter(char letter) { m_exponent_letter = letter; }

 private:
  double m_value = 0;
  std::vector<int> m_precisions;  // never empty; the top is the back
  bool m_always_shortest = false;
  char m_exponent_letter = 'D';
  std::array<char, max_length> m_text{};
};
