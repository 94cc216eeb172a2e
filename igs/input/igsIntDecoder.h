#pragma once

#include "igs/input/igsDecoder.h"
#include "igs/input/number.h"

/// A decimal integer. Values beyond 32 bits become the nearest 32-bit value; characters left over raise code 2.
class IGS_API igsIntDecoder final : public igsDecoder {
 public:
  igsIntDecoder() : igsDecoder(1) {}

  std::size_t decode_fast(const char* text, const char* /*readable_end*/) override {
    const std::size_t consumed = igs_number::parse_int(text, m_value);
    if (consumed > 0) set_error(igsIOValuePresent);
    return consumed;
  }
  int decoded_value() const { return m_value; }
  /// Takes note of a value that was decoded elsewhere.
  void note_value() { set_error(igsIOValuePresent); }

 protected:
  void convert() override;
  void clear_value() override { m_value = 0; }

 private:
  int m_value = 0;
};
