#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "igs/annotation/igs212.h"
#include "igs/shape/private/igsMarkDrawing.h"
#include "igs/shape/private/igsVecOf.h"

namespace {
constexpr double usual_letter_width = 0.6;  // of the height
constexpr double least_slant = 0.1;         // the sine of the angle; letters that lie flat are no letters
constexpr int kanji_font = 2001;
constexpr std::size_t digits_of_kanji = 4;

double angle_or(double angle, double usual) {
  return std::isfinite(angle) && !igs_is_undefined_real(angle) ? angle : usual;
}

/// Where the letter that begins at `start` ends.
std::size_t end_of_letter(const utString& text, std::size_t start, int font) {
  if (font == kanji_font) return std::min(start + digits_of_kanji, text.size());
  std::size_t end = start + 1;
  while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;  // inside of UTF-8
  return end;
}

std::size_t num_letters(const utString& text, int font) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size(); i = end_of_letter(text, i, font)) ++count;
  return count;
}

/// The letters stand one below the other; the box is as wide as the text would be on a line. `up`: square to the base
/// line, as long as the letters are high.
void draw_stacked(const igsShapeText& line, std::size_t count, const igsVec3& up, const igsMarkPen& pen) {
  igsShapeText letter = line;
  letter.along = line.along * (1 / static_cast<double>(count));
  const igsVec3 down = up * -std::max(1.0, letter.along.length() / up.length());
  for (std::size_t i = 0, end = 0; i < line.text.size(); i = end) {
    end = end_of_letter(line.text, i, line.font);
    letter.text = line.text.substr(i, end - i);
    pen.text(letter);
    letter.start += down;
  }
}

void draw_string(const igsNoteString& string, const igsMarkPen& pen) {
  const int font = string.font_code().number();
  const std::size_t count = num_letters(string.text(), font);
  const double height = string.height();
  const double width = string.width() > 0 ? string.width() : usual_letter_width * height * static_cast<double>(count);
  if (count == 0 || !(height > 0)) return;
  const double turn = angle_or(string.rotation_angle(), 0);
  igsVec3 right{std::cos(turn), std::sin(turn), 0}, up{-right.y, right.x, 0};
  if (string.mirror_flag() == 1) right = right * -1;
  if (string.mirror_flag() == 2) up = up * -1;
  const double slant = angle_or(string.slant_angle(), igsTextStyle::upright);
  const double lean = std::sin(slant) >= least_slant ? std::cos(slant) / std::sin(slant) : 0;
  const igsShapeText line{string.text(), font, igs_vec_of(string.start()), right * width, (up + right * lean) * height};
  if (string.rotate_flag() == 1) {
    draw_stacked(line, count, up * height, pen);
  } else {
    pen.text(line);
  }
}
}  // namespace

void igs_draw_note(const igs212& note, const igsMarkPen& pen) {
  for (const igsNoteString& string : note.strings()) draw_string(string, pen);
}
