#pragma once

#include "igs/input/igsDecoder.h"

/// A real number, its exponent marked by E or D. Overflow gives infinity, underflow the nearest value; characters left
/// over are ignored (code 0 is raised all the same); a result that is not a number raises code 17.
class IGS_API igsDoubleDecoder final : public igsDecoder {
 public:
  igsDoubleDecoder() : igsDecoder(1) {}

  std::size_t decode_fast(const char* text) override;
  double decoded_value() const { return m_value; }

 protected:
  void store(char c) override;
  void convert() override;
  void clear_value() override { m_value = 0; }

 private:
  double m_value = 0;
};
