#pragma once

#include <string_view>
#include <vector>

#include "igs/input/igsFieldTexts.h"
#include "igs/objects/igsFieldVisitor.h"

class igsObject;

/// Holds the fields of an entity as they stand in its records against those that its class shows, and reports what
/// cannot have been read as it stands (igsFileOptions::strict).
class igsFieldJudge : public igsFieldVisitor {
 public:
  /// `own`: the type number and the fields that the class has read.
  igsFieldJudge(const igsObject& object, const igsFieldTexts& own);

  void integer(const char* label, int value) override;
  void real(const char* label, double value) override;
  void text(const char* label, const utString& value) override;
  void reference(const char* label, const igsObject* target) override;
  void begin_group(const char* label) override;
  void end_group() override;
  void optional() override { m_optional = true; }

  /// Reports what can be told without the class: strings of a wrong count, and of an entity that has no class fields
  /// that are neither numbers nor strings.
  void judge_texts();
  /// Whether a field was reported that is no number or missing, so that its text or its absence would be lost in
  /// writing.
  bool found_unread() const { return m_found_unread; }

 private:
  void report_no_number(int position);
  void judge_number(const char* label, bool is_real, bool needed);

  int m_de;
  bool m_has_class;
  std::vector<std::string_view> m_fields;
  int m_first_recounted;
  std::size_t m_position = 0;  ///< of the field shown last; 0 is the type number
  int m_depth = 0;
  int m_list_depth = 0;      ///< depth of the outermost element of a list; 0 outside
  int m_optional_depth = 0;  ///< of the group whose fields may all be left out; 0 outside
  bool m_optional = false;   ///< the next field or group may be left out
  bool m_ended = false;      ///< a missing field was reported
  bool m_found_unread = false;
};
