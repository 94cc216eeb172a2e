#pragma once

/// A static object that is there from the first to the last moment of the process: built at compile time, where its
/// default constructor allows it, and never destroyed.
template <class T>
union utNeverDestroyed {
  constexpr utNeverDestroyed() : m_value() {}
  ~utNeverDestroyed() {}  // NOLINT(modernize-use-equals-default): that would be a deleted one
  utNeverDestroyed(const utNeverDestroyed&) = delete;
  utNeverDestroyed& operator=(const utNeverDestroyed&) = delete;

  /// The object.
  T& operator*() { return m_value; }
  /// One of its members.
  T* operator->() { return &m_value; }

 private:
  T m_value;
};
