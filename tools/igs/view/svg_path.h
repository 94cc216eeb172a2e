#pragma once

#include <string>

#include "view/projection.h"

/// The data of a path, in few letters: from point to point, relative.
class SvgPath {
 public:
  void move(const ScreenPoint& point);
  void line(const ScreenPoint& point);
  /// Back to where it was moved to.
  void close();
  bool empty() const { return m_data.empty(); }
  const std::string& data() const { return m_data; }

 private:
  void add(char command, const ScreenPoint& point);

  std::string m_data;
  char m_command = 0;
  ScreenPoint m_start, m_last;
};
