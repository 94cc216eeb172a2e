#pragma once

#include "igs/input/igsDecoder.h"
#include "igs/support/utString.h"

/// Plain text of a fixed width, blanks included.
class IGS_API igsStrDecoder final : public igsDecoder {
 public:
  igsStrDecoder() : igsDecoder(1) {}

  std::size_t decode_fast(const char* text) override;
  const utString& decoded_value() const { return m_value; }

 protected:
  void receive(char c) override;
  void convert() override;
  void clear_value() override { m_value.clear(); }

 private:
  utString m_value;
};
