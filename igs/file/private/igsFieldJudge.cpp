#include "igs/file/private/igsFieldJudge.h"

#include <cmath>
#include <utility>

#include "igs/file/igsFile_errors.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsObjectManager.h"
#include "igs/support/undefined.h"

igsFieldJudge::igsFieldJudge(const igsObject& object, const igsFieldTexts& own)
    : m_de(object.de_number()),
      m_has_class(object.manager()->visited() != 0),
      m_fields(own.fields()),
      m_first_recounted(own.first_recounted()) {}

void igsFieldJudge::judge_texts() {
  for (std::size_t i = 0; i < m_fields.size(); ++i) {
    const std::string_view field = m_fields[i];
    const igsFieldKind kind = igsFieldTexts::kind(field);
    if (i == 0 ? kind != igsFieldKind::integer : !m_has_class && kind == igsFieldKind::other) {
      report_no_number(static_cast<int>(i));
    }
    if (kind != igsFieldKind::string) continue;
    const std::string_view text = igsFieldTexts::string(field);
    const bool longer = !text.empty() && text.data() + text.size() != field.data() + field.size();
    const bool text_of_none = text.empty() && field.back() != 'H' && field.back() != 'h';
    if (longer || text_of_none || static_cast<int>(i) == m_first_recounted) {
      igs_report<igsFileWrongStringCount>(m_de, static_cast<int>(i), utString(field));
    }
  }
}

void igsFieldJudge::judge_number(const char* label, bool is_real, bool needed) {
  const auto position = ++m_position;
  needed = needed || label == nullptr || m_list_depth != 0;
  const bool may_be_left_out = std::exchange(m_optional, false) || m_optional_depth != 0 || !needed;
  if (position >= m_fields.size()) {
    if (may_be_left_out || m_ended) return;
    m_ended = m_found_unread = true;
    igs_report<igsFilePrematureObjectEnd>(m_de, static_cast<int>(position));
    return;
  }
  const igsFieldKind kind = igsFieldTexts::kind(m_fields[position]);
  if (kind == igsFieldKind::integer || kind == igsFieldKind::empty || (is_real && kind == igsFieldKind::real)) return;
  report_no_number(static_cast<int>(position));
}

void igsFieldJudge::report_no_number(int position) {
  igs_report<igsFileFieldNotNumber>(m_de, position, utString(m_fields[static_cast<std::size_t>(position)]));
  m_found_unread = true;
}

void igsFieldJudge::integer(const char* label, int /*value*/) { judge_number(label, false, false); }

// A number that no double can hold would be written as infinity.
void igsFieldJudge::real(const char* label, double value) {
  judge_number(label, true, true);
  if (std::isinf(value) && m_position < m_fields.size()) report_no_number(static_cast<int>(m_position));
}

void igsFieldJudge::reference(const char* label, const igsObject* /*target*/) { judge_number(label, false, false); }

// Whatever is no string is read as one, and nothing of it is lost.
void igsFieldJudge::text(const char* /*label*/, const utString& /*value*/) {
  ++m_position;
  m_optional = false;
}

void igsFieldJudge::begin_group(const char* label) {
  ++m_depth;
  if (label == nullptr && m_list_depth == 0) m_list_depth = m_depth;
  if (std::exchange(m_optional, false) && m_optional_depth == 0) m_optional_depth = m_depth;
}

void igsFieldJudge::end_group() {
  if (m_depth == m_list_depth) m_list_depth = 0;
  if (m_depth == m_optional_depth) m_optional_depth = 0;
  --m_depth;
}
