#pragma once

/// What ends a line: LF, CR LF, or (igsFileOptions) whichever of the two ends the first line of the input.
enum class igsLineEnd { lf, crlf, as_read };

/// The letter before the exponent of a real: D, E, or (igsFileOptions) that of the first real of the input that has
/// one, as a capital.
enum class igsExponentLetter { d, e, as_read };

/// How numbers and lines are written.
struct igsWritingStyle {
  /// Reals take the fewest digits that read back as the same double, whatever kelOptDoubleGeometricPrecision and
  /// kelOptDoubleParametricPrecision say; -0 is "-0." then. (Each of them asks for the same by the value -1.)
  bool shortest_reals = false;
  igsExponentLetter exponent_letter = igsExponentLetter::d;
  igsLineEnd line_end = igsLineEnd::lf;
};
