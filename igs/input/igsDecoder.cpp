#include "igs/input/igsDecoder.h"

igsDecoder::~igsDecoder() = default;

std::size_t igsDecoder::decode_fast(const char*) { return 0; }

std::size_t igsDecoder::accept_run(const char*, const char*) { return 0; }

void igsDecoder::accept_character(char c, int& more, int& delimiters_allowed) {
  receive(c);
  more = m_state != State::stop ? 1 : 0;
  delimiters_allowed = 1;
}

void igsDecoder::decode() {
  if (!m_finished) convert();
  m_finished = true;
  m_state = State::stop;
}

void igsDecoder::reset_slow_decode() {
  m_state = State::start;
  m_finished = false;
  m_characters.clear();
  clear_value();
}

void igsDecoder::receive(char c) {
  const bool line_feed = c == '\n';
  const bool blank = c == ' ';
  switch (m_state) {
    case State::start:
      if (line_feed || blank) return;
      set_error(igsIOValuePresent);
      break;
    case State::storing:
      if (line_feed || blank) {
        m_state = line_feed ? State::split_line : State::embedded_blank;
        return;
      }
      break;
    case State::embedded_blank:
      if (line_feed) m_state = State::embedded_split;
      if (line_feed || blank) return;
      set_error(igsIOBlankInValue);
      break;
    case State::split_line:
      if (blank) m_state = State::embedded_split;
      if (line_feed || blank) return;
      set_error(igsIOSplitValue);
      break;
    case State::embedded_split:
      if (line_feed || blank) return;
      set_error(igsIOBlankInValue);
      set_error(igsIOSplitValue);
      break;
    case State::string:
    case State::stop:
      return;
  }
  m_state = State::storing;
  store(c);
}

void igsDecoder::store(char c) { m_characters.push_back(c); }

void igsDecoder::collect_errors(igsIOErrorcoDynArr& errors) { take_errors().append_to(errors); }
