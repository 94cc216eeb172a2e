#include "files/gzip_buffer.h"

#if defined(IGS_HAS_ZLIB)
#include <zlib.h>

#include <new>

bool can_read_gzip() { return true; }

class GzipBuffer::Inflater {
 public:
  Inflater() {
    constexpr int gzip_format = 16;
    if (inflateInit2(&m_stream, MAX_WBITS + gzip_format) != Z_OK) throw std::bad_alloc();
  }
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;
  ~Inflater() { inflateEnd(&m_stream); }

  bool is_hungry() const { return m_stream.avail_in == 0; }
  void feed(char* bytes, std::size_t count) {
    m_stream.next_in = reinterpret_cast<Bytef*>(bytes);  // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast): bytes
    m_stream.avail_in = static_cast<uInt>(count);
  }
  /// The next packed byte; not to be called while it is hungry.
  char next() const { return static_cast<char>(*m_stream.next_in); }
  void skip() { ++m_stream.next_in, --m_stream.avail_in; }
  /// Returns what inflate answers; `count` is lowered to what it has made.
  int run(char* to, std::size_t& count) {
    m_stream.next_out = reinterpret_cast<Bytef*>(to);  // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast): bytes
    m_stream.avail_out = static_cast<uInt>(count);
    const int answer = inflate(&m_stream, Z_NO_FLUSH);
    if (answer == Z_MEM_ERROR) throw std::bad_alloc();
    count -= m_stream.avail_out;
    return answer;
  }
  void begin_member() { inflateReset(&m_stream); }

 private:
  z_stream m_stream{};
};

GzipBuffer::GzipBuffer(std::istream& source) : m_source(source), m_inflater(std::make_unique<Inflater>()) {}

GzipBuffer::~GzipBuffer() = default;

GzipBuffer::int_type GzipBuffer::underflow() {
  if (gptr() < egptr()) return traits_type::to_int_type(*gptr());
  const std::size_t count = m_fault.empty() ? unpack() : 0;
  setg(m_unpacked.data(), m_unpacked.data(), m_unpacked.data() + count);
  if (count > 0) return traits_type::to_int_type(*gptr());
  m_error = m_fault;
  if (!m_error.empty()) throw std::ios_base::failure(m_error);  // istreams catch it
  return traits_type::eof();
}

void GzipBuffer::fault_found(const std::string& what) { m_fault = "not read to its end: its gzip data " + what; }

std::size_t GzipBuffer::unpack() {
  // Real files are packed to a fifth or a tenth; what claims far more is made to exhaust memory.
  constexpr std::uintmax_t harmless_size = 64U << 20U, largest_ratio = 200;
  if (m_num_unpacked > harmless_size && m_num_unpacked / largest_ratio > m_num_packed) {
    fault_found("unpack to more than " + std::to_string(largest_ratio) + " times their size");
    return 0;
  }
  for (std::size_t count = 0; m_inflater != nullptr && refill();) {
    count = m_unpacked.size();
    const int answer = m_inflater->run(m_unpacked.data(), count);
    if (answer != Z_OK && answer != Z_STREAM_END && answer != Z_BUF_ERROR) fault_found("are damaged");
    if (answer == Z_STREAM_END && !begin_next_member()) m_inflater.reset();
    m_num_unpacked += count;
    if (count > 0 || !m_fault.empty()) return count;
  }
  if (m_inflater != nullptr) fault_found("end too early");
  return 0;
}

bool GzipBuffer::refill() {
  if (!m_inflater->is_hungry()) return true;
  m_source.read(m_packed.data(), std::ssize(m_packed));
  const auto count = static_cast<std::size_t>(m_source.gcount());
  m_inflater->feed(m_packed.data(), count);
  m_num_packed += count;
  return count > 0;
}

bool GzipBuffer::begin_next_member() {
  constexpr char first_of_member = '\x1f';
  while (refill() && m_inflater->next() == '\0') m_inflater->skip();  // tapes are filled up with zeros
  if (m_inflater->is_hungry()) return false;
  if (m_inflater->next() != first_of_member) fault_found("are followed by something else");
  m_inflater->begin_member();
  return m_fault.empty();
}

#else

bool can_read_gzip() { return false; }

class GzipBuffer::Inflater {};
GzipBuffer::GzipBuffer(std::istream& source)
    : m_source(source), m_error("gzip files cannot be read by this build of the program") {}
GzipBuffer::~GzipBuffer() = default;
GzipBuffer::int_type GzipBuffer::underflow() { return traits_type::eof(); }

#endif
