#pragma once

#include <cstddef>

#include "igs/input/igsDecoder.h"
#include "igs/support/utString.h"

/// A Hollerith string, such as 5HHello. The count is not trusted: the string grows with the characters that are there.
/// A string longer than its count loses doubled blanks first, then its end; text behind a count of 0 or less raises
/// code 2. A field without H is taken as it stands.
class IGS_API igsHolerithDecoder final : public igsDecoder {
 public:
  igsHolerithDecoder() : igsDecoder(0) {}

  void accept_character(char c, int& more, int& delimiters_allowed) override;
  std::size_t accept_run(const char* text, const char* end) override;
  const utString& decoded_value() const { return m_value; }

 protected:
  void receive(char c) override;
  void store(char c) override;
  void convert() override;
  void clear_value() override;

 private:
  void begin_string();
  void truncate();
  bool string_complete() const { return m_stored >= m_declared; }

  utString m_value;
  int m_declared = 0;
  std::ptrdiff_t m_stored = 0;
};
