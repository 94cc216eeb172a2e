#pragma once

#include <vector>

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsNamedError.h"
#include "igs/file/igsDEAttribute.h"
#include "igs/objects/igsStructure.h"

using igs310BadNumCharacters = igsCountErrors<"igs310", "Characters">::BadNum;
/// The number of pen motions of a character is negative or out of proportion to the record; carries the position of the
/// character and the number.
using igs310BadNumMotions = igsNamedError<"igs310BadNumMotions", igsObjectError, int, int>;

/// A step of the pen that draws a character, in grid units from the character's origin.
struct igsPenMotion {
  int pen_up = 0;  ///< 0: draws a line to (x, y); 1: moves there
  int x = 0;       ///< where the step ends
  int y = 0;       ///< likewise

  template <class E, class V>
  static void fields(E& motion, V& visit) {
    visit("PenUp", motion.pen_up);
    visit("X", motion.x);
    visit("Y", motion.y);
  }
};

/// One character of a text font: the pen begins at the origin.
struct igsFontCharacter {
  int code = 0;                       ///< ASCII, 0 to 127
  int next_x = 0;                     ///< the next character's origin, in grid units from this one's
  int next_y = 0;                     ///< likewise
  std::vector<igsPenMotion> motions;  ///< in the order in which they are drawn

  template <class E, class V>
  static void fields(E& character, V& visit) {
    visit("Code", character.code);
    visit("NextX", character.next_x);
    visit("NextY", character.next_y);
    const int count = visit.count("NumberOfMotions", character.motions.size());
    visit.list("Motions", count, character.motions, igsBadCount<igs310BadNumMotions>());
  }
};

/// Text Font Definition (IGES 5.3, type 310): how the pen draws the characters of a font. Positions are 0-based.
class IGS_API igs310 : public igsEntity<igs310, "igs310", igsStructure> {
 public:
  igs310();

  int font_code() const { return m_font_code; }
  void set_font_code(int code) { m_font_code = code; }
  const utString& font_name() const { return m_font_name; }
  void set_font_name(const utString& name) { m_font_name = name; }
  /// The font that this one changes: its number (0 none), or a text font, which stands in the file as the negative of
  /// its DE number.
  const igsDEAttribute& superseded_font() const { return m_superseded_font; }
  void set_superseded_font(const igsDEAttribute& font) { m_superseded_font = font; }
  /// Grid units in the height of a text.
  int scale() const { return m_scale; }
  void set_scale(int scale) { m_scale = scale; }

  int number_of_characters() const { return static_cast<int>(m_characters.size()); }
  /// Cuts the list, or lengthens it by characters that draw nothing, and returns 1; 0 for a negative number.
  int set_number_of_characters(int number) { return igs_resize(m_characters, number); }
  const std::vector<igsFontCharacter>& characters() const { return m_characters; }
  /// Stores character `i` and returns 1; 0 outside the list.
  int set_character(int i, const igsFontCharacter& character) { return igs_set_element(m_characters, i, character); }
  /// The place of character `i`, good until their number changes; null outside the list.
  igsFontCharacter* character_at(int i) { return igs_place(m_characters, i); }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("FontCode", entity.m_font_code);
    visit("FontName", entity.m_font_name);
    visit("SupersededFont", entity.m_superseded_font);
    visit("Scale", entity.m_scale);
    const int count = visit.count("NumberOfCharacters", entity.m_characters.size());
    visit.list("Characters", count, entity.m_characters, igsBadCount<igs310BadNumCharacters>());
  }

 private:
  void check_character(int i, const igsFontCharacter& character) const;

  int m_font_code = 0;
  utString m_font_name;
  igsDEAttribute m_superseded_font;
  int m_scale = 0;
  std::vector<igsFontCharacter> m_characters;
};
