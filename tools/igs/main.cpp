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

#include "arguments.h"
#include "commands.h"
#include "exit_status.h"
#include "help.h"
#include "igs/igs.h"
#include "jobs.h"
#include "nearest.h"
#include "report.h"
#include "settings.h"
#include "text.h"

namespace {

constexpr std::size_t max_errors_in_text = 1000;
constexpr std::size_t no_limit = std::numeric_limits<std::size_t>::max();

constexpr const char* exit_status_help =
    "Exit status: 0 no error is left, 1 errors are left, 2 a file could not be\n"
    "opened, read to its end or written, or the call is wrong. The highest wins.";

constexpr const char* diff_exit_status_help =
    "Exit status: 0 the files hold the same, 1 they differ, 2 a file could not be\n"
    "opened or read to its end, or the call is wrong.";

/// The keys of --set.
std::string keys_help() {
  std::string keys;
  for (const coResourceInfo& key : coResourceTable::keys()) keys += ' ' + std::string(key.name);
  return "Keys of --set, which igs explain KEY explains:\n" + wrapped(keys, 2);
}

/// A check for CLI11: why the text is no count, empty when it is one.
std::string is_count(const std::string& text) {
  const bool is_digits = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
  return is_digits ? "" : '"' + printable(text) + "\" is no count";
}

/// The same for one of these words.
CLI::Validator one_of(const std::vector<std::string>& words) {
  return {[words](const std::string& text) {
            const bool is_known = std::find(words.begin(), words.end(), text) != words.end();
            return is_known ? "" : '"' + printable(text) + "\" is none of " + joined({words.begin(), words.end()});
          },
          ""};
}

/// The same for a number of jobs.
std::string is_number_of_jobs(const std::string& text) {
  constexpr std::size_t most_digits = 3;
  const bool is_small = text.size() <= most_digits && std::stoul(text) <= most_jobs;
  return is_small ? "" : printable(text) + " is too many, there are at most " + std::to_string(most_jobs);
}

/// The complaint without CLI11's turns of phrase.
std::string complaint_of(const CLI::ParseError& error) {
  std::string text = printable(error.what());
  if (error.get_name() == "RequiredError") text = text.substr(0, text.find(' ')) + " is missing";
  return text;
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
  int end_of_parsing(const CLI::ParseError& error, const std::vector<std::string>& words);
  CLI::App* add_command(const char* name, const char* description);
  void add_format(CLI::App* command, const std::vector<std::string>& formats = {"text", "json"});
  void add_color(CLI::App* command);
  void add_jobs(CLI::App* command);
  void add_files(CLI::App* command, std::vector<std::string>& files);
  void add_settings(CLI::App* command);
  void add_info();
  void add_check();
  void add_repair();
  void add_diff();
  void add_print();
  void add_explain();
  Format format() const;
  ColorMode color() const;
  std::size_t jobs() const { return m_jobs.value_or(1); }
  std::size_t max_errors() const;
  void apply_settings() const;

  CLI::App m_app{"Reads, checks, repairs and writes IGES files", "igs"};
  InfoOptions m_info;
  CheckOptions m_check;
  RepairOptions m_repair;
  DiffOptions m_diff;
  std::string m_format = "text";
  std::string m_color = "auto";
  std::string m_print_file;
  ExplainOptions m_explain;
  std::vector<std::string> m_settings;
  std::optional<std::size_t> m_max_errors;  ///< or changes
  std::optional<std::size_t> m_jobs;
  int m_status = exit_clean;
};

CommandLine::CommandLine() {
  m_app.require_subcommand(1);
  m_app.set_help_flag("-h,--help", "show this help, or after a command that of the command");
  m_app.set_version_flag("--version", "igs " IGS_VERSION, "show the version");
  m_app.formatter_fn(help_text);
  m_app.footer(exit_status_help);
  add_info();
  add_check();
  add_repair();
  add_diff();
  add_print();
  add_explain();
}

int CommandLine::run(int argc, char** argv) {
  const std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
  try {
    std::vector<std::string> arguments = arranged(m_app, words);
    std::reverse(arguments.begin(), arguments.end());  // as CLI11 takes them
    m_app.parse(arguments);
  } catch (const CLI::ParseError& error) {
    m_status = end_of_parsing(error, words);
  } catch (const std::exception& error) {
    std::cerr << "igs: " << error.what() << std::endl;
    m_status = exit_failed;
  }
  return m_status;
}

/// Shows the help or version asked for, or complains of the call.
int CommandLine::end_of_parsing(const CLI::ParseError& error, const std::vector<std::string>& words) {
  if (error.get_exit_code() == 0) {
    m_app.exit(error);
    return flush_output() ? exit_clean : exit_failed;
  }
  const bool is_of_command = !words.empty() && find_command(m_app, words[0]) != nullptr;
  const std::string command = is_of_command ? words[0] : "";
  std::cerr << "igs: " << command << (is_of_command ? ": " : "") << complaint_of(error) << "\nRun igs " << command
            << (is_of_command ? " " : "") << "--help for more information." << std::endl;
  return exit_failed;
}

CLI::App* CommandLine::add_command(const char* name, const char* description) {
  CLI::App* command = m_app.add_subcommand(name, description);
  command->set_help_flag("-h,--help", "show this help");
  return command->footer(exit_status_help);
}

void CommandLine::add_format(CLI::App* command, const std::vector<std::string>& formats) {
  std::string text;
  for (const std::string& format : formats) text += (text.empty() ? "" : "|") + format;
  const bool has_sarif = formats.back() == "sarif";
  command
      ->add_option("--format", m_format,
                   std::string("text for people; json, an object a line and a file") +
                       (has_sarif ? "; or sarif, for code review and CI" : ""))
      ->check(one_of(formats))
      ->option_text(text);
}

void CommandLine::add_color(CLI::App* command) {
  command->add_option("--color", m_color, "colour the text form; auto, the default, heeds NO_COLOR")
      ->check(one_of({"auto", "always", "never"}))
      ->option_text("auto|always|never");
}

void CommandLine::add_jobs(CLI::App* command) {
  command->add_option("--jobs", m_jobs, "work on N files at a time, each in a process of its own; 1 without it")
      ->check(is_count)
      ->check(is_number_of_jobs)
      ->option_text("N");
}

void CommandLine::add_files(CLI::App* command, std::vector<std::string>& files) {
  command->add_option("FILE", files, "IGES files; - is standard input")->required()->option_text("...");
}

void CommandLine::add_settings(CLI::App* command) {
  command->add_option("--set", m_settings, "change a tolerance or option")
      ->allow_extra_args(false)
      ->option_text("KEY=VALUE");
  command
      ->add_option("--max-errors", m_max_errors,
                   "list at most N errors a file (and N repaired ones); 1000 in text, all otherwise")
      ->check(is_count)
      ->option_text("N");
  command->footer(keys_help() + exit_status_help);
}

Format CommandLine::format() const {
  if (m_format == "json") return Format::json;
  return m_format == "sarif" ? Format::sarif : Format::text;
}

ColorMode CommandLine::color() const {
  if (m_color == "always") return ColorMode::always;
  return m_color == "never" ? ColorMode::never : ColorMode::automatic;
}

std::size_t CommandLine::max_errors() const {
  return m_max_errors.value_or(format() == Format::text ? max_errors_in_text : no_limit);
}

void CommandLine::apply_settings() const {
  for (const std::string& setting : m_settings) set_resource(setting);
}

void CommandLine::add_info() {
  CLI::App* command = add_command("info", "Show the sections of files and count their entities");
  add_format(command);
  add_color(command);
  add_jobs(command);
  add_files(command, m_info.files);
  command->callback([this] {
    m_info.format = format();
    m_info.color = color();
    m_info.jobs = jobs();
    m_status = run_info(m_info);
  });
}

void CommandLine::add_check() {
  CLI::App* command = add_command("check", "List the errors of files");
  add_format(command, {"text", "json", "sarif"});
  add_settings(command);
  add_color(command);
  add_jobs(command);
  add_files(command, m_check.files);
  command->callback([this] {
    m_check.format = format();
    m_check.color = color();
    m_check.jobs = jobs();
    m_check.max_errors = max_errors();
    apply_settings();
    m_status = run_check(m_check);
  });
}

void CommandLine::add_repair() {
  CLI::App* command = add_command("repair", "Repair what can be repaired in a file and write the result");
  add_format(command);
  add_settings(command);
  command->footer(std::string("Keys of --set: see igs check --help.\n") + exit_status_help);
  add_color(command);
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
    m_repair.color = color();
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
  add_color(command);
  command->add_option("CLASS", m_explain.names, "names as reports show them, or keys of --set; all without a name")
      ->option_text("...");
  command->callback([this] {
    m_explain.color = color();
    m_status = run_explain(m_explain);
  });
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
