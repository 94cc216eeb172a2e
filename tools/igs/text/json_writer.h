#pragma once

#include <iosfwd>
#include <string_view>

/// Writes one JSON value to a stream as it goes; nothing is kept. The caller opens and closes what belongs together and
/// gives a key before every value of an object; commas are set here. The output is ASCII.
class JsonWriter {
 public:
  explicit JsonWriter(std::ostream& out) : m_out(out) {}

  void begin_object() { open('{'); }
  void end_object() { close('}'); }
  void begin_array() { open('['); }
  void end_array() { close(']'); }
  void key(std::string_view name);

  void value(std::string_view text);
  void value(const char* text) { value(std::string_view(text)); }
  void value(int number);
  void value(long long number);
  void value(bool truth);
  /// A real that reads back to the same double; null for infinities and NaN, which JSON does not have.
  void value(double number);
  void null();

  template <class Value>
  void member(std::string_view name, const Value& content) {
    key(name);
    value(content);
  }
  /// A member that is an array of whatever `write_one` makes of each element.
  template <class List, class Write>
  void list(std::string_view name, const List& elements, const Write& write_one) {
    key(name);
    begin_array();
    for (const auto& element : elements) write_one(element);
    end_array();
  }

 private:
  void open(char bracket);
  void close(char bracket);
  void separate();
  void write_text(std::string_view text);

  std::ostream& m_out;
  bool m_needs_comma = false;
};
