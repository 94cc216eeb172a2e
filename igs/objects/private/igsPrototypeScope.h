#pragma once

/// While there is one, the entities that its thread makes are prototypes, which register with no file. Private to the
/// library.
class igsPrototypeScope {
 public:
  igsPrototypeScope() { m_is_going_on = true; }
  ~igsPrototypeScope() { m_is_going_on = false; }
  igsPrototypeScope(const igsPrototypeScope&) = delete;
  igsPrototypeScope& operator=(const igsPrototypeScope&) = delete;

  static bool is_going_on() { return m_is_going_on; }

 private:
  static inline constinit thread_local bool m_is_going_on = false;
};
