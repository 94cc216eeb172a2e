#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <csignal>
#include <exception>
#include <iostream>
#include <limits>
#include <optional>
#if defined(_WIN32)
#include <fcntl.h>
#include <unistd.h>
#endif

#include "commands.h"
#include "exit_status.h"
#include "igs/igs.h"
#include "report.h"
#include "text.h"

namespace {

constexpr std::size_t max_errors_in_text = 1000;
constexpr std::size_t no_limit = std::numeric_limits<std::size_t>::max();

constexpr const char* exit_status_help =
    "Exit status:\n"
    "  0  no error is left\n"
    "  1  errors are left\n"
    "  2  a file could not be opened, read to its end or written, or the call is wrong\n"
    "The highest of several files' statuses wins.";

constexpr const char* diff_exit_status_help =
    "Exit status:\n"
    "  0  the files hold the same\n"
    "  1  they differ\n"
    "  2  a file could not be opened or read to its end, or the call is wrong";

/// The keys of --set, from the table that the library reads.
std::string resource_help() {
  std::string help = "Tolerances and options (KEY, default, meaning):\n";
  for (const coResourceInfo& key : coResourceTable::keys()) {
    help +=
        "  " + std::string(key.name) + "  " + format_real(key.default_value) + "  " + std::string(key.meaning) + '\n';
  }
  return help;
}

/// Applies one KEY=VALUE; throws what CLI11 takes for a wrong argument.
void set_resource(const std::string& setting) {
  const std::size_t equals = setting.find('=');
  if (equals == std::string::npos) throw CLI::ValidationError("--set", '"' + printable(setting) + "\" is no KEY=VALUE");
  const std::string key = setting.substr(0, equals);
  const char* const end = setting.data() + setting.size();
  double value = 0;
  const auto [stop, error] = std::from_chars(setting.data() + equals + 1, end, value);
  const std::string quoted = printable(setting.substr(equals + 1));
  const auto& keys = coResourceTable::keys();
  if (std::none_of(keys.begin(), keys.end(), [&](const coResourceInfo& known) { return known.name == key; })) {
    throw CLI::ValidationError("--set", "no key \"" + printable(key) + '"');
  }
  if (error != std::errc() || stop != end) throw CLI::ValidationError("--set", '"' + quoted + "\" is no number");
  if (kel_resource_table_inquire().set_value(key, value) == 0) {
    throw CLI::ValidationError("--set", quoted + " is not allowed for " + key);
  }
}

/// A check for CLI11: why the text is no count, empty when it is one.
std::string is_count(const std::string& text) {
  const bool is_digits = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
  return is_digits ? "" : '"' + printable(text) + "\" is no count";
}

/// As is_count, for a distance.
std::string is_tolerance(const std::string& text) {
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  const bool is_distance = error == std::errc() && stop == end && value >= 0 && value < HUGE_VAL;
  return is_distance ? "" : '"' + printable(text) + "\" is no tolerance";
}

class CommandLine {
 public:
  CommandLine();
  /// Returns the exit status; no exception leaves it.
  int run(int argc, char** argv);

 private:
  int end_of_parsing(const CLI::ParseError& error);
  CLI::App* add_command(const char* name, const char* description);
  void add_format(CLI::App* command);
  void add_files(CLI::App* command, std::vector<std::string>& files);
  void add_checking(CLI::App* command);
  void add_info();
  void add_check();
  void add_repair();
  void add_diff();
  void add_print();
  void add_explain();
  Format format() const;
  std::size_t max_errors() const;
  void apply_settings() const;

  CLI::App m_app{"Reads, checks, repairs and writes IGES files.", "igs"};
  InfoOptions m_info;
  CheckOptions m_check;
  RepairOptions m_repair;
  DiffOptions m_diff;
  std::string m_format = "text";
  std::string m_print_file;
  std::vector<std::string> m_class_names;
  std::vector<std::string> m_settings;
  std::optional<std::size_t> m_max_errors;  ///< or changes
  int m_status = exit_clean;
};

CommandLine::CommandLine() {
  m_app.require_subcommand(1);
  m_app.set_version_flag("--version", "igs " IGS_VERSION);
  m_app.footer(exit_status_help);
  add_info();
  add_check();
  add_repair();
  add_diff();
  add_print();
  add_explain();
}

int CommandLine::run(int argc, char** argv) {
  try {
    m_app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    m_status = end_of_parsing(error);
  } catch (const std::exception& error) {
    std::cerr << "igs: " << error.what() << std::endl;
    m_status = exit_failed;
  }
  return m_status;
}

/// Shows the help or version asked for, or complains of the call.
int CommandLine::end_of_parsing(const CLI::ParseError& error) {
  if (error.get_exit_code() != 0) {
    std::cerr << "igs: " << printable(error.what()) << "\nRun with --help for more information." << std::endl;
    return exit_failed;
  }
  m_app.exit(error);
  return flush_output() ? exit_clean : exit_failed;
}

CLI::App* CommandLine::add_command(const char* name, const char* description) {
  return m_app.add_subcommand(name, description)->footer(exit_status_help);
}

void CommandLine::add_format(CLI::App* command) {
  command->add_option("--format", m_format, "text for people, or json: one object a line and a file")
      ->check(CLI::IsMember({"text", "json"}))
      ->option_text("text|json");
}

void CommandLine::add_files(CLI::App* command, std::vector<std::string>& files) {
  command->add_option("FILE", files, "IGES files; - is standard input")->required()->option_text("...");
}

void CommandLine::add_checking(CLI::App* command) {
  add_format(command);
  command->add_option("--set", m_settings, "change a tolerance or option, see below")
      ->allow_extra_args(false)
      ->option_text("KEY=VALUE");
  command
      ->add_option("--max-errors", m_max_errors,
                   "list at most N errors a file (and N repaired ones); 1000 in text, all in json")
      ->check(is_count)
      ->option_text("N");
  command->footer(resource_help() + '\n' + exit_status_help);
}

Format CommandLine::format() const { return m_format == "json" ? Format::json : Format::text; }

std::size_t CommandLine::max_errors() const {
  return m_max_errors.value_or(format() == Format::json ? no_limit : max_errors_in_text);
}

void CommandLine::apply_settings() const {
  for (const std::string& setting : m_settings) set_resource(setting);
}

void CommandLine::add_info() {
  CLI::App* command = add_command("info", "Show the sections of files and count their entities");
  add_format(command);
  add_files(command, m_info.files);
  command->callback([this] {
    m_info.format = format();
    m_status = run_info(m_info);
  });
}

void CommandLine::add_check() {
  CLI::App* command = add_command("check", "List the errors of files");
  add_checking(command);
  add_files(command, m_check.files);
  command->callback([this] {
    m_check.format = format();
    m_check.max_errors = max_errors();
    apply_settings();
    m_status = run_check(m_check);
  });
}

void CommandLine::add_repair() {
  CLI::App* command = add_command("repair", "Repair what can be repaired in a file and write the result");
  add_checking(command);
  command->add_flag("--delete-faulty", m_repair.delete_faulty,
                    "delete the entities that still have errors after the repairs. Sound entities whose only fault "
                    "cannot be repaired (a wrong line count, say) go, too");
  command->add_flag("--summary", m_repair.summary,
                    "after the report, list what differs between what was read and what was written");
  command
      ->add_option("-o,--output", m_repair.target,
                   "the file to write, whole or not at all; - is standard output; may be FILE")
      ->required()
      ->option_text("OUT");
  command->add_option("FILE", m_repair.file, "IGES file; - is standard input")->required()->option_text(" ");
  command->callback([this] {
    m_repair.format = format();
    m_repair.max_errors = max_errors();
    apply_settings();
    m_status = run_repair(m_repair);
  });
}

void CommandLine::add_diff() {
  CLI::App* command = add_command("diff", "Say what differs between two files, entity by entity, whatever their order");
  add_format(command);
  command->add_option("--tolerance", m_diff.tolerance, "reals at most T apart count as the same; equal ones without it")
      ->check(is_tolerance)
      ->option_text("T");
  command->add_option("--max-changes", m_max_errors, "list at most N changes; 1000 in text, all in json")
      ->check(is_count)
      ->option_text("N");
  command->add_option("FILE", m_diff.files, "the old file and the new one; one of them may be -, standard input")
      ->required()
      ->expected(2)
      ->option_text("OLD NEW");
  command->footer(diff_exit_status_help);
  command->callback([this] {
    if (m_diff.files == std::vector<std::string>{"-", "-"}) {
      throw CLI::ValidationError("FILE", "only one of the files can be standard input");
    }
    m_diff.format = format();
    m_diff.max_changes = max_errors();
    m_status = run_diff(m_diff);
  });
}

void CommandLine::add_print() {
  CLI::App* command = add_command("print", "Print everything a file holds");
  command->add_option("FILE", m_print_file, "IGES file; - is standard input")->required()->option_text(" ");
  command->callback([this] { m_status = run_print(m_print_file); });
}

void CommandLine::add_explain() {
  CLI::App* command = add_command("explain", "Say what error classes mean and whether they are repaired");
  command->add_option("CLASS", m_class_names, "names as reports show them; all without a name")->option_text("...");
  command->callback([this] { m_status = run_explain(m_class_names); });
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
#if defined(_WIN32)
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO}) _setmode(descriptor, _O_BINARY);
#else
  // A reader that goes away is a write error like any other, so that temporary files are removed.
  std::signal(SIGPIPE, SIG_IGN);  // NOLINT(cert-err33-c): without it the default holds
#endif
  try {
    return CommandLine().run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "igs: " << error.what() << std::endl;
    return exit_failed;
  }
}
