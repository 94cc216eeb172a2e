#include "igs/input/igsIntDecoder.h"

void igsIntDecoder::convert() {
  const std::size_t consumed = igs_number::parse_int(m_characters.c_str(), m_value);
  if (consumed < m_characters.size()) set_error(igsIOExtraCharacters);
}
