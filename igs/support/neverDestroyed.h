#pragma once

/// A static object that is there from the first to the last moment of the process: built at compile time, where its
/// default constructor allows it, and never destroyed.
template <class T>
union neverDestroyed {
  constexpr neverDestroyed() : m_value() {}
  ~neverDestroyed() {}  // NOLINT(modernize-use-equals-default): that would be a deleted one
  neverDestroyed(const neverDestroyed&) = delete;
  neverDestroyed& operator=(const neverDestroyed&) = delete;

  T& operator*() { return m_value; }
  T* operator->() { return &m_value; }

 private:
  T m_value;
};
