#pragma once

// What holds of every file in memory and of every file that was written, whatever the bytes it came from. The fuzz
// targets ask for it after each step; a broken promise ends the process, so that the fuzzer keeps the input.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <set>
#include <sstream>
#include <streambuf>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/written_file.h"
#include "igs/igs.h"
#include "igs/objects/igsKeptParts.h"

namespace igs_fuzz {

/// What happens then; tests let it throw.
inline void (*on_broken_promise)(const char* promise) = [](const char* promise) {
  std::fprintf(stderr, "broken promise: %s\n", promise);
  std::abort();
};

inline void require(bool condition, const char* promise) {
  if (!condition) on_broken_promise(promise);
}

/// Takes everything and keeps nothing: prints of damaged entities are long.
class Discard {
 public:
  utOstream& operator()() { return m_os; }

 private:
  class NullBuffer : public std::streambuf {
    int overflow(int c) override { return traits_type::not_eof(c); }
    std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
  };
  NullBuffer m_buffer;
  std::ostream m_stream{&m_buffer};
  utOstream m_os{m_stream};
};

/// The bytes of an input as numbers, for targets that build something from them; zeros when they are used up.
class Choices {
 public:
  Choices(const std::uint8_t* data, std::size_t size) : m_next(data), m_end(data + size) {}

  bool used_up() const { return m_next == m_end; }
  unsigned byte() { return used_up() ? 0 : *m_next++; }
  /// 0 to `count` - 1.
  unsigned below(std::size_t count) {
    const unsigned number = count > 256 ? byte() << 8 | byte() : byte();
    return count == 0 ? 0 : number % static_cast<unsigned>(count);
  }
  /// True about once in `times`.
  bool once_in(unsigned times) { return byte() % times == times - 1; }
  template <class List>
  const auto& one_of(const List& list) {
    return list[below(std::size(list))];
  }

 private:
  const std::uint8_t* m_next;
  const std::uint8_t* m_end;
};

/// The pointers that an entity holds: those of its directory entry, of its parameter data, and of what is kept beside.
class Pointers : public igsPointerVisitor {
 public:
  explicit Pointers(igsObject& object) {
    const igsDirectoryEntry& entry = object.directory_entry();
    for (const igsObjectPtr* pointer :
         {&entry.view(), &entry.matrix(), &entry.label_display(), &entry.line_font().definition(),
          &entry.level().definition(), &entry.colour().definition()}) {
      list.push_back(pointer);
    }
    object.visit_pointers(*this);
    if (object.file().kept_parts(object) != nullptr) object.file().make_kept_parts(object).visit_pointers(*this);
  }
  std::vector<const igsObjectPtr*> list;

 private:
  void visit(igsObjectPtr& pointer) override { list.push_back(&pointer); }
};

/// Every pointer to an entity is registered with it, and nothing else is.
inline void check_pointers(const igsFile& file) {
  using Registered = std::set<const igsObjectPtr*>;
  std::map<const igsObject*, Registered> expected;
  int count = 0;
  igsFileIT entities(&file);
  while (++entities) {
    igsObject& object = *entities();
    ++count;
    require(file.entity(object.de_number()) == &object, "an entity stands under its DE number");
    require(object.manager()->directory_entry()->manager() == object.manager(), "a directory entry knows its owner");
    for (const igsObjectPtr* pointer : Pointers(object).list) {
      if (pointer->object() == nullptr) continue;
      require(file.entity(pointer->de_number()) == pointer->object(), "a pointer leads to a live entity of the file");
      require(expected[pointer->object()].insert(pointer).second, "a pointer is visited once");
    }
  }
  require(count == file.num_entities(), "there are as many entities as are counted");
  while (++entities) {
    const Registered& wanted = expected[entities()];
    require(static_cast<std::size_t>(entities()->num_references()) == wanted.size(),
            "the number of references is the number of pointers");
    std::size_t registered = 0;
    igsObjectManagerIT back(entities()->manager());
    for (; ++back; ++registered) require(wanted.contains(back()), "a registered pointer is one that the entities hold");
    require(registered == wanted.size(), "every pointer is registered once");
  }
}

/// The logs' counts agree with what their iterators find, as a whole and by key.
inline void check_logs(const igsFile& file) {
  for (int id = 0; id < igs_num_section_logs; ++id) {
    const igsSimpleSectionLog& log = *file.error_log().get_section_log(static_cast<igsLogID>(id));
    std::map<int, int> by_key;
    int count = 0;
    igsSimpleSectionLogIT errors(&log);
    for (; ++errors; ++count) {
      const igsError* const error = errors();
      require(error->log() == &log, "an error knows its log");
      require(log.error_in_slot(error->log_position()) == error, "an error stands in its slot");
      if (error->typeof(igsIndexedError::type())) ++by_key[static_cast<const igsIndexedError*>(error)->key()];
    }
    require(log.num_errors() == count, "a log counts the errors that its iterator finds");
    int position = 0;
    for (const igsError* const error : log.fixed_errors()) {
      require(error->log() == &log && error->log_position() == position++, "a fixed error knows its log and its place");
    }
    if (id != igsObjectLog && id != igsStructureLog) continue;
    const auto& indexed = static_cast<const igsIndexedSectionLog&>(log);
    for (const auto& [key, errors_of_key] : by_key) {
      require(indexed.num_errors(key) == errors_of_key, "a log counts the errors of a key");
    }
  }
}

/// What must hold of a file in memory between two operations.
inline void check_memory(const igsFile& file) {
  check_pointers(file);
  check_logs(file);
}

/// The entities of a file one by one: class, type, form, the number of the references to each and where its own
/// pointers lead.
inline std::vector<std::string> outline(const igsFile& file) {
  std::vector<std::string> lines;
  igsFileIT entities(&file);
  while (++entities) {
    igsObject& object = *entities();
    const igsDirectoryEntry& entry = object.directory_entry();
    std::string line = object.objtype().id_string();
    for (const int number :
         {object.de_number(), static_cast<int>(entry.entity_type()), entry.form_number(), object.num_references()}) {
      line += ' ' + std::to_string(number);
    }
    for (const igsObjectPtr* pointer : Pointers(object).list) line += ' ' + std::to_string(pointer->de_number());
    lines.push_back(line);
  }
  return lines;
}

inline std::string printed(const igsFile& file) {
  std::ostringstream text;
  utOstream os(text);
  file.print(os);
  return text.str();
}

/// What happens to a file between reading and writing.
struct Treatment {
  bool repair = true;
  bool delete_faulty = false;
  int digits = 15;  ///< of reals that are written; with 17 every real comes back
  igsFileOptions options = {};
};

struct Outcome {
  bool read = false;
  bool written = false;
  int num_entities = 0;  ///< once written
  int num_nulls = 0;     ///< of them
  std::vector<std::string> outline;
  std::string text;
};

inline int num_nulls(const igsFile& file) {
  igsFileTypeIT nulls(&file, igsNull::type());
  int count = 0;
  while (++nulls) ++count;
  return count;
}

inline void repair(igsFile& file, utOstream& messages, bool delete_faulty) {
  file.check();
  check_memory(file);
  const std::vector<std::string> before = outline(file);
  file.print(messages);
  file.check();
  require(outline(file) == before, "checking and printing change nothing");
  check_memory(file);
  file.clean(delete_faulty ? 1 : 0);
  check_memory(file);
}

inline Outcome read_and_write(const std::string& bytes, utOstream& messages, const igsFileOptions& options,
                              const Treatment* treatment = nullptr) {
  igsFile file;
  file.set_options(options);
  std::istringstream in(bytes);
  Outcome outcome;
  outcome.read = file.read(in, messages) == 1;
  check_memory(file);
  if (treatment != nullptr && treatment->repair) repair(file, messages, treatment->delete_faulty);
  std::ostringstream out;
  outcome.written = file.write(out, messages) == 1;
  check_memory(file);
  outcome.num_entities = file.num_entities();
  outcome.num_nulls = num_nulls(file);
  outcome.outline = outline(file);
  outcome.text = out.str();
  if (outcome.read && outcome.written)
    require(column_fault(outcome.text).empty(), "a written file keeps every rule of columns");
  return outcome;
}

/// Reads, checks, prints, repairs and writes the bytes of a file, whatever they are:
///
///   - no crash, no sanitizer report, no leak, no exception; time and memory in proportion to the input;
///   - at every step the pointers, the counts and the logs are consistent (check_memory);
///   - a file that was read with 1 and written with 1 reads back with 1, and with as many entities as were written,
///     of the same classes, types, forms and references, but for the null entities that a repair leaves in the place of
///     what it removes: reading drops those;
///   - writing that again gives the same bytes, unless there were null entities or all is kept, and then the third
///   time.
///
/// What a failed read leaves is repaired and written, too, but nothing is said of the result: it may hold entities that
/// the end of the read would have dropped. The clock stands still, as the date of writing stands in the Global section.
inline void check_file(const std::string& bytes, const Treatment& treatment) {
  ut_set_clock([] { return utDateTime{2000, 1, 1, 0, 0, 0}; });
  coResourceTable& options = kel_resource_table_inquire();
  options.set_value(kelOptDoubleGeometricPrecision, treatment.digits);
  options.set_value(kelOptDoubleParametricPrecision, treatment.digits);
  Discard discard;
  utOstream& messages = discard();

  const Outcome first = read_and_write(bytes, messages, treatment.options, &treatment);
  if (!first.read || !first.written) return;
  const Outcome second = read_and_write(first.text, messages, treatment.options);
  require(second.read, "what was written can be read");
  require(second.written, "what was read back can be written");
  require(second.num_entities == first.num_entities - first.num_nulls,
          "what was written reads back with as many entities");
  // Points that a record has no place for are left empty where all is kept, and read as 0.
  if (first.num_nulls == 0 && !treatment.options.keep) {
    require(second.outline == first.outline, "what was written reads back as the same entities");
    require(second.text == first.text, "a second write gives the same bytes");
  } else {
    const Outcome third = read_and_write(second.text, messages, treatment.options);
    require(third.outline == second.outline, "the second write reads back as the same entities");
    require(third.text == second.text, "a third write gives the same bytes");
  }
}

}  // namespace igs_fuzz
