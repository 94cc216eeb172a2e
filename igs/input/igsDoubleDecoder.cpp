#include "igs/input/igsDoubleDecoder.h"

#include <cmath>

#include "igs/input/private/number.h"

std::size_t igsDoubleDecoder::decode_fast(const char* text) {
  const std::size_t consumed = igs_number::parse_real_with_d(text, m_value);
  if (std::isnan(m_value)) set_error(igsIONotANumber);
  if (consumed > 0) set_error(igsIOValuePresent);
  return consumed;
}

void igsDoubleDecoder::store(char c) { igsDecoder::store(c == 'D' || c == 'd' ? 'E' : c); }

// Unlike an integer's, characters left over behind a real are no fault.
void igsDoubleDecoder::convert() {
  const std::size_t consumed =
      igs_number::parse_real(m_characters.c_str(), m_value, m_characters.c_str() + m_characters.size());
  if (consumed < m_characters.size()) set_error(igsIOValuePresent);
  if (std::isnan(m_value)) set_error(igsIONotANumber);
}
