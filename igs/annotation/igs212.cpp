#include "igs/annotation/igs212.h"

#include "igs/annotation/igs212_errors.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/output/igsEncoder.h"
#include "igs/structure/private/igsTextStyleCheck.h"

void igsNoteString::set_text(utString text) {
  m_text = std::move(text);
  m_number_of_characters = static_cast<int>(m_text.size());
}

int igsNoteString::written_length() const {
  igsHolerithEncoder encoder;
  encoder.encode(m_text);
  return static_cast<int>(encoder.piece(1).size());
}

igs212::igs212() { set_directory_entry_type(igsEntity212, 0); }

namespace {
struct StringErrors {
  using InvalidWidth = igs212InvalidBoxWidth;
  using InvalidHeight = igs212InvalidBoxHeight;
  using WrongFontType = igs212WrongFontType;
  using InvalidFont = igs212InvalidFont;
  using InvalidMirrorFlag = igs212InvalidMirrorFlag;
  using InvalidRotateFlag = igs212InvalidRotateFlag;
  using InvalidStartPoint = igs212InvalidStartPoint;
};
}  // namespace

void igs212::check_pd() const {
  if (m_strings.empty()) tag<igs212NoStrings>();
  for (int i = 0; const igsNoteString& string : m_strings) {
    const int told = string.number_of_characters(), length = static_cast<int>(string.text().size());
    if (told != length && told != string.written_length()) tag<igs212BadCharacterCount>(i, told, length);
    igs_check_text_style<StringErrors>(*this, string, i);
    ++i;
  }
}
