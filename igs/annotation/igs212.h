#pragma once

#include <type_traits>
#include <utility>
#include <vector>

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsNamedError.h"
#include "igs/objects/igsAnnotation.h"
#include "igs/structure/igsTextStyle.h"
#include "igs/support/utString.h"

using igs212BadNumStrings = igsCountErrors<"igs212", "Strings">::BadNum;
class igsFieldWriter;

/// One string of a General Note: a text and how it is set.
class IGS_API igsNoteString : public igsTextStyle {
 public:
  igsNoteString() = default;
  explicit igsNoteString(utString text) { set_text(std::move(text)); }

  /// The characters in the encoding of their font, as they stand in the file.
  const utString& text() const { return m_text; }
  /// Stores the text and its length.
  void set_text(utString text);
  /// NC as it stands in the file: how many characters it says the text has. What is written is written_length().
  int number_of_characters() const { return m_number_of_characters; }
  void set_number_of_characters(int count) { m_number_of_characters = count; }
  /// Length of the text as it is written, which is without white space at its end.
  int written_length() const;

  template <class E, class V>
  static void fields(E& string, V& visit) {
    if constexpr (std::is_same_v<V, igsFieldWriter>) {
      visit("NumberOfCharacters", visit.exact() ? string.m_number_of_characters : string.written_length());
    } else {
      visit("NumberOfCharacters", string.m_number_of_characters);
    }
    style_fields(string, visit, "BoxWidth", "BoxHeight");
    visit("Text", string.m_text);
  }

 private:
  int m_number_of_characters = 0;
  utString m_text;
};

/// General Note (IGES 5.3, type 212): strings of text. The form says how they belong together: 0 one by one, 1 to 5
/// stacks, superscripts and subscripts, 6 to 8 lines of a paragraph, 100 to 105 fractions and mixed numbers. Positions
/// are 0-based.
class IGS_API igs212 : public igsEntity<igs212, "igs212", igsAnnotation> {
 public:
  /// Form 0, without strings.
  igs212();

  int number_of_strings() const { return static_cast<int>(m_strings.size()); }
  /// Cuts the list, or lengthens it by empty strings, and returns 1; 0 for a negative number.
  int set_number_of_strings(int number) { return igs_resize(m_strings, number); }
  const std::vector<igsNoteString>& strings() const { return m_strings; }
  /// Good until their number changes; an empty string outside the list.
  const igsNoteString& string(int i) const { return igs_element(m_strings, i); }
  /// Stores string `i` and returns 1; 0 outside the list.
  int set_string(int i, const igsNoteString& string) { return igs_set_element(m_strings, i, string); }
  /// Puts a string behind the last one.
  void add_string(igsNoteString string) { m_strings.push_back(std::move(string)); }
  /// The place of string `i`, good until their number changes; null outside the list.
  igsNoteString* string_at(int i) { return igs_place(m_strings, i); }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    const int count = visit.count("NumberOfStrings", entity.m_strings.size());
    visit.list("Strings", count, entity.m_strings, igsBadCount<igs212BadNumStrings>());
  }

 private:
  std::vector<igsNoteString> m_strings;
};
