#pragma once

#include "igs/input/igsDecoder.h"

/// A decimal integer. Values beyond 32 bits become the nearest 32-bit value; characters left over raise code 2.
class IGS_API igsIntDecoder final : public igsDecoder {
 public:
  igsIntDecoder() : igsDecoder(1) {}

  std::size_t decode_fast(const char* text) override;
  int decoded_value() const { return m_value; }

 protected:
  void convert() override;
  void clear_value() override { m_value = 0; }

 private:
  int m_value = 0;
};
