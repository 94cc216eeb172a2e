#pragma once

#include <cstdarg>
#include <iosfwd>

#include "igs/support/export.h"

#if defined(__GNUC__)
#define IGS_PRINTF(format_index, first_argument) __attribute__((format(printf, format_index, first_argument)))
#else
#define IGS_PRINTF(format_index, first_argument)
#endif

/// The tag of every text that the library prints.
inline constexpr char kel_iges_tag[] = "iges";

/// A sink for the library's few messages to people: warnings begin "Warning : " and end with a line end, and every one
/// carries the tag "iges". A host overrides `write`; the library never owns a sink.
class IGS_API kelabsOutput {
 public:
  kelabsOutput() = default;
  kelabsOutput(const kelabsOutput&) = delete;
  kelabsOutput& operator=(const kelabsOutput&) = delete;
  virtual ~kelabsOutput();

  /// Formats as printf does and hands the text to `write`. A text that cannot be formatted is dropped.
  IGS_PRINTF(3, 4) void print(const char* tag, const char* format, ...);
  /// As above, with the arguments as a list.
  void print_list(const char* tag, const char* format, std::va_list arguments);

 protected:
  /// Receives one text as it stands, line ends included.
  virtual void write(const char* tag, const char* text) = 0;
};

/// A sink over a stream: the texts alone, without their tags. The stream is not owned.
class IGS_API kelabsStream : public kelabsOutput {
 public:
  explicit kelabsStream(std::ostream& target) : m_target(target) {}

 protected:
  void write(const char* tag, const char* text) override;

 private:
  std::ostream& m_target;
};
