// Any bytes at all are read, checked, printed, repaired and written. The contract, whatever the bytes are:
//
//   - no crash, no sanitizer report, no leak, no exception; time and memory in proportion to the input;
//   - a file that was read with 1 and written with 1 reads back with 1, and with as many entities as were written, but
//     for the null entities that a repair leaves in the place of what it removes: reading drops those;
//   - writing that again gives the same bytes, unless there were null entities, and then the third time.
//
// Anything else is a finding. What a failed read leaves is repaired and written, too, but nothing is said of the
// result: it may hold entities that the end of the read would have dropped. The lowest bit of the last byte asks the
// repair to delete faulty entities, so that a file that ends with a line end keeps them. The clock stands still, as the
// date of writing stands in the Global section.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <streambuf>
#include <string>

#include "igs/igs.h"

namespace {
// Takes everything and keeps nothing: prints of damaged entities are long.
class NullBuffer : public std::streambuf {
 protected:
  int overflow(int c) override { return traits_type::not_eof(c); }
  std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

class Discard {
 public:
  utOstream& operator()() { return m_os; }

 private:
  NullBuffer m_buffer;
  std::ostream m_stream{&m_buffer};
  utOstream m_os{m_stream};
};

void require(bool condition, const char* promise) {
  if (condition) return;
  std::fprintf(stderr, "igs_file_fuzzer: broken promise: %s\n", promise);
  std::abort();
}

struct Result {
  bool read;
  bool written;
  int num_entities;  ///< once written
  int num_nulls;     ///< of them
  std::string text;
};

int num_nulls(const igsFile& file) {
  igsFileTypeIT nulls(&file, igsNull::type());
  int count = 0;
  while (++nulls) ++count;
  return count;
}

template <class Between>
Result read_and_write(const std::string& bytes, utOstream& messages, Between between) {
  igsFile file;
  std::istringstream in(bytes);
  const bool read = file.read(in, messages) == 1;
  between(file);
  std::ostringstream out;
  const bool written = file.write(out, messages) == 1;
  return {read, written, file.num_entities(), num_nulls(file), out.str()};
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ut_set_clock([] { return utDateTime{2000, 1, 1, 0, 0, 0}; });
  Discard discard;
  utOstream& messages = discard();
  const std::string bytes(data, data + size);
  const int delete_faulty = size > 0 ? data[size - 1] & 1 : 0;

  const Result first = read_and_write(bytes, messages, [&](igsFile& file) {
    file.check();
    file.print(messages);
    file.clean(delete_faulty);
  });
  if (!first.read || !first.written) return 0;

  const Result second = read_and_write(first.text, messages, [&](igsFile& file) {
    require(file.num_entities() == first.num_entities - first.num_nulls,
            "what was written reads back with as many entities");
  });
  require(second.read, "what was written can be read");
  require(second.written, "what was read back can be written");
  if (first.num_nulls == 0) {
    require(second.text == first.text, "a second write gives the same bytes");
  } else {
    const Result third = read_and_write(second.text, messages, [](igsFile&) {});
    require(third.text == second.text, "a third write gives the same bytes");
  }
  return 0;
}
