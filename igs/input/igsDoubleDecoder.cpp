#include "igs/input/igsDoubleDecoder.h"

void igsDoubleDecoder::store(char c) { igsDecoder::store(c == 'D' || c == 'd' ? 'E' : c); }

// Unlike an integer, a real with characters left over is taken as given.
void igsDoubleDecoder::convert() {
  const std::size_t consumed =
      igs_number::parse_real(m_characters.c_str(), m_value, m_characters.c_str() + m_characters.size());
  if (consumed < m_characters.size()) set_error(igsIOValuePresent);
  if (std::isnan(m_value)) set_error(igsIONotANumber);
}
