#include "view/svg_path.h"

void SvgPath::move(const ScreenPoint& point) {
  add('m', point);
  m_start = point;
}

void SvgPath::line(const ScreenPoint& point) { add('l', point); }

void SvgPath::close() {
  m_data += 'z';
  m_command = 'z';
  m_last = m_start;
}

void SvgPath::add(char command, const ScreenPoint& point) {
  const int right = point.x - m_last.x, down = point.y - m_last.y;
  // More points behind a move are lines.
  const bool is_same = command == 'l' && (m_command == 'l' || m_command == 'm');
  if (!is_same) m_data += command;
  if (is_same && right >= 0) m_data += ' ';
  m_data += std::to_string(right);
  if (down >= 0) m_data += ' ';
  m_data += std::to_string(down);
  m_command = command;
  m_last = point;
}
