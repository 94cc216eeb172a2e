#pragma once

#include <array>
#include <streambuf>
#include <string_view>

/// Reads bytes that are someone else's, and outlive it.
class ViewBuffer : public std::streambuf {
 public:
  explicit ViewBuffer(std::string_view bytes) {
    char* const begin = const_cast<char*>(bytes.data());  // NOLINT(cppcoreguidelines-pro-type-const-cast): only read
    setg(begin, begin, begin + bytes.size());
  }
};

/// Reads a descriptor that is someone else's, from where it stands.
class DescriptorBuffer : public std::streambuf {
 public:
  explicit DescriptorBuffer(int descriptor) : m_descriptor(descriptor) {}
  /// The errno for which reading ended before the end; 0 while all is well.
  int error() const { return m_error; }

 protected:
  int_type underflow() override;

 private:
  int m_descriptor;
  int m_error = 0;
  std::array<char, std::size_t{1} << 16U> m_block;
};
