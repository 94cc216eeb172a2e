#pragma once

#include <numbers>

#include "igs/file/igsDEAttribute.h"
#include "igs/support/export.h"
#include "igs/support/giPoint.h"

/// The font of a text: a number (1 the default font, 1001 to 1003 symbols, 2001 Kanji, ...; any number may be met), or
/// a text font (igs310), which stands in the file as the negative of its DE number. The number is 1 where there is, or
/// was, a text font: it is what is written when the text font is gone.
class IGS_API igsFontCode : public igsDEAttribute {
 public:
  /// The default font.
  static constexpr int standard = 1;

  igsFontCode() : igsFontCode(standard) {}
  /// From the field as read.
  explicit igsFontCode(int field) : igsDEAttribute(field) {
    if (field < 0) set_value(standard);
  }
  explicit igsFontCode(const igsObjectPtr& text_font) : igsFontCode() { set_definition(text_font); }

  /// 1, or the number before, where there is a text font.
  int number() const { return value(); }
};

/// How a text is set: the part that a string of a general note (igs212) and a text template (igs312) have in common.
/// Lengths are model units, angles radians.
class IGS_API igsTextStyle {
 public:
  /// The slant angle of letters that stand square to the base line.
  static constexpr double upright = std::numbers::pi / 2;

  /// Width and height: of the box around a note's string, of one character in a text template. 0 until they are set.
  double width() const { return m_width; }
  void set_width(double width) { m_width = width; }
  double height() const { return m_height; }
  void set_height(double height) { m_height = height; }
  /// The default font until it is set.
  const igsFontCode& font_code() const { return m_font_code; }
  void set_font_code(const igsFontCode& code) { m_font_code = code; }
  /// From the base line to the letters' upright strokes.
  double slant_angle() const { return m_slant_angle; }
  void set_slant_angle(double angle) { m_slant_angle = angle; }
  /// From the XT axis to the base line.
  double rotation_angle() const { return m_rotation_angle; }
  void set_rotation_angle(double angle) { m_rotation_angle = angle; }
  /// 0 no mirror, 1 about the perpendicular of the base line, 2 about the base line.
  int mirror_flag() const { return m_mirror_flag; }
  void set_mirror_flag(int flag) { m_mirror_flag = flag; }
  /// 0 the letters follow each other along the base line, 1 they are stacked vertically.
  int rotate_flag() const { return m_rotate_flag; }
  void set_rotate_flag(int flag) { m_rotate_flag = flag; }
  /// Where the text begins: the lower left corner of its first letter. Undefined until it is set.
  const giPoint3& start() const { return m_start; }
  void set_start(const giPoint3& start) { m_start = start; }

 protected:
  igsTextStyle() = default;

  template <class E, class V>
  static void style_fields(E& style, V& visit, const char* width_label, const char* height_label) {
    visit(width_label, style.m_width);
    visit(height_label, style.m_height);
    visit("FontCode", style.m_font_code, igsFontCode());
    visit("SlantAngle", style.m_slant_angle, upright);
    visit("RotationAngle", style.m_rotation_angle);
    visit("MirrorFlag", style.m_mirror_flag);
    visit("RotateFlag", style.m_rotate_flag);
    visit("Start", style.m_start);
  }

 private:
  double m_width = 0;
  double m_height = 0;
  igsFontCode m_font_code;
  double m_slant_angle = upright;
  double m_rotation_angle = 0;
  int m_mirror_flag = 0;
  int m_rotate_flag = 0;
  giPoint3 m_start;
};
