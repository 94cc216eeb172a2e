#include "model.h"

#include <array>
#include <cstddef>
#include <iostream>
#include <limits>
#include <new>

namespace {

constexpr short no_entity = std::numeric_limits<short>::min();

std::size_t slot_of(int de_number) { return static_cast<std::size_t>(de_number - 1) / 2; }

}  // namespace

void MessageList::write(const char* /*tag*/, const char* text) { m_messages.emplace_back(text); }

EntityTypes::EntityTypes(const igsFile& file) {
  igsFileIT entities(&file);
  while (++entities != 0) {
    const std::size_t slot = slot_of(entities()->de_number());
    if (slot >= m_types.size()) m_types.resize(slot + 1, no_entity);
    const int type = entities()->directory_entry().entity_type();
    m_types[slot] = static_cast<short>(type);
    ++m_counts[type];
  }
}

std::optional<int> EntityTypes::at(int de_number) const {
  if (de_number < 1 || slot_of(de_number) >= m_types.size()) return std::nullopt;
  const short type = m_types[slot_of(de_number)];
  return type == no_entity ? std::nullopt : std::optional<int>(type);
}

std::vector<int> EntityTypes::missing_in(const EntityTypes& later) const {
  std::vector<int> missing;
  for (std::size_t slot = 0; slot < m_types.size(); ++slot) {
    const int de_number = static_cast<int>(2 * slot + 1);
    if (m_types[slot] != no_entity && !later.at(de_number)) missing.push_back(de_number);
  }
  return missing;
}

Model::Model(const std::string& name) : m_name(name), m_input(name), m_progress(name, m_input.size()), m_file(name) {
  m_file.set_message_stream(&m_messages);
}

Model::Model(const std::string& name, InMemory input)
    : m_name(name), m_input(std::move(input)), m_progress(name, m_input.size()), m_file(name) {
  m_file.set_message_stream(&m_messages);
}

void Model::read() { read(std::cerr); }

void Model::read_silently() {
  std::ostream nowhere(nullptr);
  read(nowhere);
}

void Model::read(std::ostream& complaints) {
  utOstream indented(complaints);
  m_was_read = m_file.read(m_input.stream(), indented) != 0;
  expect_memory();
}

void Model::expect_memory() const {
  if (m_file.out_of_memory()) throw std::bad_alloc();
}

std::string Model::read_error() const {
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

const char* log_name(igsLogID log) {
  constexpr std::array<const char*, num_section_logs> names{"object", "structure", "global", "start", "terminate"};
  return names.at(static_cast<std::size_t>(log));
}

std::optional<int> de_number(const igsError& error) {
  if (!error.typeof(igsIndexedError::type())) return std::nullopt;
  const int key = static_cast<const igsIndexedError&>(error).key();
  return key == unset_int ? std::nullopt : std::optional<int>(key);
}

long long num_active_errors(const igsErrorLog& log) {
  long long count = 0;
  for (int id = 0; id < num_section_logs; ++id) {
    count += log.get_section_log(static_cast<igsLogID>(id))->num_errors();
  }
  return count;
}

long long num_fixed_errors(const igsErrorLog& log) {
  long long count = 0;
  for (int id = 0; id < num_section_logs; ++id) {
    count += static_cast<long long>(log.get_section_log(static_cast<igsLogID>(id))->fixed_errors().size());
  }
  return count;
}
