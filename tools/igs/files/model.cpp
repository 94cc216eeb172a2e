#include "files/model.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <new>
#include <ostream>
#include <stdexcept>
#include <string_view>

namespace {

constexpr int no_entity = std::numeric_limits<int>::min();

std::size_t slot_of(int de_number) { return static_cast<std::size_t>(de_number - 1) / 2; }

}  // namespace

void MessageList::write(const char* /*tag*/, const char* text) {
  constexpr std::size_t kept_in_memory = 1048576;
  m_texts.append(text).push_back('\0');
  if (m_texts.size() >= kept_in_memory && !m_is_file_full) put_aside();
}

void MessageList::put_aside() {
  if (m_file == nullptr) m_file.reset(std::tmpfile());
  const bool is_written = m_file != nullptr && std::fseek(m_file.get(), 0, SEEK_END) == 0 &&
                          std::fwrite(m_texts.data(), 1, m_texts.size(), m_file.get()) == m_texts.size() &&
                          std::fflush(m_file.get()) == 0;
  m_is_file_full = !is_written;
  if (!is_written) return;
  m_in_file += m_texts.size();
  m_texts.clear();
}

namespace {
/// Visits the texts that end in `block` and takes them out of it.
void visit_texts(std::string& block, const std::function<void(const std::string&)>& visit) {
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = block.find('\0', begin)) != std::string::npos; begin = end + 1) {
    visit(block.substr(begin, end - begin));
  }
  block.erase(0, begin);
}
}  // namespace

void MessageList::for_each(const std::function<void(const std::string&)>& visit) const {
  constexpr std::size_t block_size = 65536;
  std::string block;
  if (m_file != nullptr) std::rewind(m_file.get());
  for (std::size_t left = m_in_file; left > 0;) {
    const std::size_t before = block.size(), wanted = std::min(left, block_size);
    block.resize(before + wanted);
    const std::size_t got = std::fread(block.data() + before, 1, wanted, m_file.get());
    if (got == 0) throw std::runtime_error("a temporary file cannot be read back");
    block.resize(before + got);
    left -= got;
    visit_texts(block, visit);
  }
  block += m_texts;
  visit_texts(block, visit);
}

EntityTypes::EntityTypes(const igsFile& file) {
  igsFileIT entities(&file);
  while (++entities != 0) {
    const std::size_t slot = slot_of(entities()->de_number());
    if (slot >= m_types.size()) m_types.resize(slot + 1, no_entity);
    const int type = entities()->directory_entry().entity_type();
    m_types[slot] = type;
    ++m_counts[type];
  }
}

std::optional<int> EntityTypes::at(int de_number) const {
  if (de_number < 1 || de_number % 2 == 0 || slot_of(de_number) >= m_types.size()) return std::nullopt;
  const int type = m_types[slot_of(de_number)];
  return type == no_entity ? std::nullopt : std::optional<int>(type);
}

Model::Model(const std::string& name) : m_name(name), m_input(name), m_progress(name, m_input.size()), m_file(name) {
  m_file.set_message_stream(&m_messages);
}

Model::Model(const std::string& name, InMemory input)
    : m_name(name), m_input(std::move(input)), m_progress(name, m_input.size()), m_file(name) {
  m_file.set_message_stream(&m_messages);
}

Model::Model(const std::string& name, OpenStream input)
    : m_name(name), m_input(input), m_progress(name, m_input.size()), m_file(name) {
  m_file.set_message_stream(&m_messages);
}

std::string Model::open_error() const {
  std::string error = m_input.error();
  if (!error.empty()) return error;
  const std::string_view kind = m_input.foreign_kind();
  return kind.empty() ? "" : "not an IGES file: " + std::string(kind);
}

void Model::read_silently() {
  std::ostream nowhere(nullptr);
  read_from_input(nowhere);
}

void Model::read(std::ostream& complaints) {
  read_from_input(complaints);
  if (!m_was_read && m_file.read_fault().records_before == 0) {
    m_progress.end();
    throw UnreadableFile(m_name, read_error());
  }
}

void Model::read_from_input(std::ostream& complaints) {
  utOstream indented(complaints);
  // A file that is asked to recover answers 1 for one that is not read to its end, too.
  m_was_read = m_file.read(m_input.stream(), indented) != 0 && m_file.read_fault().code == igsIOValuePresent;
  expect_memory();
}

void Model::expect_memory() const {
  if (m_file.out_of_memory()) throw std::bad_alloc();
}

std::string Model::read_error() const {
  if (m_input.is_packed() && !m_input.error().empty()) return m_input.error();
  if (m_was_read) return "";
  const igsReadFault& fault = m_file.read_fault();
  const std::string next = "record " + std::to_string(fault.records_before + 1);
  const std::string beginning = fault.records_before == 0 ? "not an IGES file: " : "not read to its end: ";
  switch (fault.code) {
    case igsIONoSectionLetter:
      return beginning + next + " has no section letter in column 73";
    case igsIOBadBackPointer:
      return beginning + "the back-pointer of " + next + " (columns 66 to 72) is no number";
    case igsIOEndOfInput:
      return beginning + "it ends after record " + std::to_string(fault.records_before) + ", before its last section";
    case igsIOStreamBad:
    case igsIOStreamFailed:
      return beginning + "reading failed at " + next;
    default:
      return beginning + "its Global section is missing or its delimiters cannot be used";
  }
}

igsFileOptions options_to_show() { return {.keep = true, .strict = true, .recover = true, .unbounded_lines = true}; }

igsFileOptions options_of_program() {
  igsFileOptions options = options_to_show();
  options.lines = true;
  return options;
}

const char* log_name(igsLogID log) {
  constexpr std::array<const char*, igs_num_section_logs> names{"object", "structure", "global", "start", "terminate"};
  return names.at(static_cast<std::size_t>(log));
}

std::optional<int> de_number(const igsError& error) {
  if (!error.typeof(igsIndexedError::type())) return std::nullopt;
  const int key = static_cast<const igsIndexedError&>(error).key();
  return key == igs_unset_int ? std::nullopt : std::optional<int>(key);
}
