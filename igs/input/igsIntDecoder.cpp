#include "igs/input/igsIntDecoder.h"

#include "igs/input/private/number.h"

std::size_t igsIntDecoder::decode_fast(const char* text) {
  const std::size_t consumed = igs_number::parse_int(text, m_value);
  if (consumed > 0) set_error(igsIOValuePresent);
  return consumed;
}

void igsIntDecoder::convert() {
  const std::size_t consumed = igs_number::parse_int(m_characters.c_str(), m_value);
  if (consumed < m_characters.size()) set_error(igsIOExtraCharacters);
}
