#pragma once

#include <cstddef>
#include <string>

#include "igs/input/igsIOErrorSet.h"
#include "igs/support/export.h"

/// Turns the characters of one field into a value: at one stroke where the text allows it, else character by character,
/// tolerating blanks and record ends inside the value. Errors: 0 (the field holds a value), 1, 2, 4, 17. Hosts may
/// derive their own, which igsInEngine takes: what they leave as it is follows the states of a number and keeps no
/// value.
class IGS_API igsDecoder {
 public:
  igsDecoder(const igsDecoder&) = delete;
  igsDecoder& operator=(const igsDecoder&) = delete;
  virtual ~igsDecoder();

  /// Converts from the start of a NUL-terminated text; returns the number of characters that belong to the value.
  virtual std::size_t decode_fast(const char* text);
  /// Takes the next character of the field. `more` becomes 0 when none is wanted any more, `delimiters_allowed` tells
  /// whether a delimiter would end the field.
  virtual void accept_character(char c, int& more, int& delimiters_allowed);
  /// Converts the characters taken.
  virtual void decode();
  /// Begins a field.
  virtual void reset_fast_decode() { clear_value(); }
  /// Begins the same field again, character by character. The errors met so far stay.
  virtual void reset_slow_decode();

  /// Takes characters at once where no delimiter is allowed; returns how many of [text, end) it has taken. The others
  /// go through accept_character.
  virtual std::size_t accept_run(const char* text, const char* end);

  int fast_permitted() const { return m_fast_permitted; }
  /// Appends the errors to the list and forgets them.
  void collect_errors(igsIOErrorcoDynArr& errors);
  /// The errors, which are forgotten.
  igsIOErrorSet take_errors() {
    const igsIOErrorSet errors = m_errors;
    m_errors.clear();
    return errors;
  }

 protected:
  enum class State { start, storing, embedded_blank, split_line, embedded_split, string, stop };

  /// With `fast_permitted` 0, decode_fast is never asked.
  explicit igsDecoder(int fast_permitted) : m_fast_permitted(fast_permitted) {}

  /// Hands a character to the current state. The base follows the states of a number: blanks and line feeds before the
  /// first character are skipped, later ones recorded as soon as the value goes on behind them.
  virtual void receive(char c);
  /// Keeps one character of the value.
  virtual void store(char c);
  /// Makes the value of the characters kept.
  virtual void convert() {}
  virtual void clear_value() {}

  void set_error(igsIOErrorCode code) { m_errors.set(code); }

  std::string m_characters;
  State m_state = State::stop;

 private:
  int m_fast_permitted;
  bool m_finished = true;
  igsIOErrorSet m_errors;
};
