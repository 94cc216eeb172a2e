#pragma once

#include <cstddef>
#include <cstdio>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "files/input_file.h"
#include "files/progress.h"
#include "igs/igs.h"

/// Keeps the texts that the library sends to its message sink, in order. A file can provoke one for each of millions of
/// fields: most of a long list is kept in a temporary file, as long as there is room for it.
class MessageList : public kelabsOutput {
 public:
  /// Calls `visit` for each text. Not to be called while texts are added.
  void for_each(const std::function<void(const std::string&)>& visit) const;

 protected:
  void write(const char* tag, const char* text) override;

 private:
  struct Close {
    void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
  };
  void put_aside();

  std::string m_texts;  ///< each ends with a NUL
  std::unique_ptr<std::FILE, Close> m_file;
  std::size_t m_in_file = 0;  ///< bytes of texts that stand in the file, before m_texts
  bool m_is_file_full = false;
};

/// The entity types of a file by DE number, as they are at one moment.
class EntityTypes {
 public:
  EntityTypes() = default;
  explicit EntityTypes(const igsFile& file);

  /// The type of the entity with this DE number; nothing where no entity lives.
  std::optional<int> at(int de_number) const;
  /// How many entities of each type there are.
  const std::map<int, int>& counts() const { return m_counts; }

 private:
  std::vector<int> m_types;  ///< by slot; `no_entity` where there is none
  std::map<int, int> m_counts;
};

/// Nothing can be said of a file but why.
struct UnreadableFile : std::runtime_error {
  UnreadableFile(std::string file_, const std::string& reason) : std::runtime_error(reason), file(std::move(file_)) {}
  std::string file;
};

/// One file of the command line in memory. `read` is called once, after opening has succeeded.
class Model {
 public:
  explicit Model(const std::string& name);
  /// A file in memory, under a name for reports.
  Model(const std::string& name, InMemory input);
  Model(const std::string& name, OpenStream input);

  /// Why the file cannot be opened, or is not worth reading; empty when it is.
  std::string open_error() const;
  /// What the library is asked for; before reading.
  void set_options(const igsFileOptions& options) { m_file.set_options(options); }
  /// `complaints`: where the library says what it cannot put into an error.
  /// Throws an UnreadableFile when it turns out at once that the file is no IGES file.
  void read(std::ostream& complaints);
  /// As read(), for what others have complained of already; throws nothing of its own.
  void read_silently();
  /// Before reading: what is read is kept until take_input().
  void keep_input() { m_input.keep_bytes(); }
  std::string take_input() { return m_input.take_bytes(); }
  /// Throws std::bad_alloc when the library's last piece of work ended because memory ran out.
  void expect_memory() const;

  /// Whether it is packed by gzip.
  bool is_packed() const { return m_input.is_packed(); }
  /// Whether the file was read to its end.
  bool was_read() const { return m_was_read; }
  /// Whether all entities were read, so that it makes sense to check them.
  bool has_entities() const { return m_was_read || m_file.parameter_data_read() != 0; }
  /// Why the file could not be read to its end, empty when it could.
  std::string read_error() const;

  const std::string& name() const { return m_name; }
  igsFile& file() { return m_file; }
  const igsFile& file() const { return m_file; }
  const Progress& progress() const { return m_progress; }
  const MessageList& messages() const { return m_messages; }

 private:
  void read_from_input(std::ostream& complaints);

  std::string m_name;
  InputFile m_input;
  Progress m_progress;
  MessageList m_messages;
  igsFile m_file;
  bool m_was_read = false;
};

/// What the program asks of the library where files are shown or compared, and where they are checked and repaired.
igsFileOptions options_to_show();
igsFileOptions options_of_program();

/// An igsLogID as reports name it: "object".
const char* log_name(igsLogID log);
/// The DE number that an error is about; nothing for errors of the Global, Start and Terminate sections.
std::optional<int> de_number(const igsError& error);

/// Calls `visit(igsLogID, igsError&)`, which may mark the error as fixed, for the active errors, log by log, each in
/// slot order.
template <class Visit>
void for_each_active_error(const igsErrorLog& log, Visit visit) {
  for (int id = 0; id < igs_num_section_logs; ++id) {
    igsSimpleSectionLogIT errors(log.get_section_log(static_cast<igsLogID>(id)));
    while (++errors != 0) visit(static_cast<igsLogID>(id), *errors());
  }
}

/// As for_each_active_error, for the errors that were repaired, in fixing order.
template <class Visit>
void for_each_fixed_error(const igsErrorLog& log, Visit visit) {
  for (int id = 0; id < igs_num_section_logs; ++id) {
    for (igsError* const error : log.get_section_log(static_cast<igsLogID>(id))->fixed_errors()) {
      visit(static_cast<igsLogID>(id), *error);
    }
  }
}
