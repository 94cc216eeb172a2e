#pragma once

#include <cmath>

#include "igs/input/igsDecoder.h"
#include "igs/input/number.h"

/// A real number, its exponent marked by E or D. Overflow gives infinity, underflow the nearest value; characters left
/// over are ignored (code 0 is raised all the same); a result that is not a number raises code 17.
class IGS_API igsDoubleDecoder final : public igsDecoder {
 public:
  igsDoubleDecoder() : igsDecoder(1) {}

  std::size_t decode_fast(const char* text, const char* readable_end) override {
    const std::size_t consumed = igs_number::parse_real_with_d(text, m_value, readable_end);
    if (std::isnan(m_value)) set_error(igsIONotANumber);
    if (consumed > 0) set_error(igsIOValuePresent);
    return consumed;
  }
  double decoded_value() const { return m_value; }
  /// Takes note of a value that was decoded elsewhere.
  void note_value() { set_error(igsIOValuePresent); }

 protected:
  void store(char c) override;
  void convert() override;
  void clear_value() override { m_value = 0; }

 private:
  double m_value = 0;
};
