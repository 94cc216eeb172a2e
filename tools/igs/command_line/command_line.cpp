#include "command_line/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <exception>
#include <functional>
#include <iostream>
#include <utility>

#include "command_line/arguments.h"
#include "command_line/choice.h"
#include "command_line/help.h"
#include "command_line/nearest.h"
#include "command_line/report_options.h"
#include "command_line/settings.h"
#include "command_line/view_options.h"
#include "commands/commands.h"
#include "files/complaints.h"
#include "files/exit_status.h"
#include "files/jobs.h"
#include "files/names.h"
#include "text/text.h"

namespace {

constexpr const char* exit_status_help =
    "Exit status: 0 no error or warning is left, 1 some are left or an entity was\n"
    "lost, 2 a file could not be opened, read to its end or written, or the call is\n"
    "wrong. The highest of several files wins.";

constexpr const char* diff_exit_status_help =
    "Exit status: 0 the files hold the same, 1 they differ, 2 a file could not be\n"
    "opened or read to its end, or the call is wrong.";

constexpr const char* view_exit_status_help =
    "Exit status: 0 the picture was written, faults or not, 2 a file could not be\n"
    "opened, read to its end or written, or the call is wrong. What was read of a\n"
    "file that ends early is drawn.";

/// The keys of --set.
std::string keys_help() {
  std::string keys;
  for (const coResourceInfo& key : setting_keys()) keys += ' ' + std::string(key.name);
  return "Keys of --set, which igs explain KEY explains:\n" + wrapped(keys, 2);
}

/// A check for CLI11: why the text is no count, empty when it is one.
std::string is_count(const std::string& text) {
  const bool is_digits = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
  return is_digits ? "" : '"' + printable(text) + "\" is no count";
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
  const double value = real_of(text).value_or(-1);
  return value >= 0 && value < HUGE_VAL ? "" : '"' + printable(text) + "\" is no tolerance";
}

class CommandLine {
 public:
  CommandLine();
  /// Returns the exit status; no exception leaves it.
  int run(int argc, char** argv);

 private:
  int end_of_parsing(const CLI::ParseError& error, const std::vector<std::string>& words);
  CLI::App& add_command(const char* name, const char* description, const std::function<int()>& run);
  void add_info();
  void add_check();
  void add_repair();
  void add_diff();
  void add_print();
  void add_view();
  void add_explain();
  void add_help();

  // Options that several commands have.
  void add_format(CLI::App& command, Options& options, bool has_sarif = false);
  void add_limit(CLI::App& command, Options& options, const char* name, const char* description);
  void add_settings(CLI::App& command);
  void add_max_errors(CLI::App& command, Options& options);
  void apply_settings(Options& options) const;
  void add_color(CLI::App& command, Options& options);
  void add_jobs(CLI::App& command, Options& options,
                const char* description = "work on N files at a time; 1 without it");
  void add_many_names(CLI::App& command, Options& options);
  std::vector<std::string> names_to_work_on(const std::vector<std::string>& names);
  CLI::Option* add_names(CLI::App& command, Options& options, const char* description, const char* text);

  CLI::App m_app{"Reads, checks, repairs and writes IGES files", "igs"};
  Options m_options;  ///< of commands that have no more
  RepairOptions m_repair;
  DiffOptions m_diff;
  ViewOptions m_view;
  std::vector<std::string> m_settings;
  NameSources m_sources;  ///< of commands with many files; the names given are the command's
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
  add_view();
  add_explain();
  add_help();
}

int CommandLine::run(int argc, char** argv) {
  const std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
  use_source_date();
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

CLI::App& CommandLine::add_command(const char* name, const char* description, const std::function<int()>& run) {
  CLI::App& command = *m_app.add_subcommand(name, description);
  command.set_help_flag("-h,--help", "show this help");
  command.footer(exit_status_help);
  command
      .add_option("--config", "take options from FILE; else from the nearest igs.toml, here or above; \"\" for none")
      ->configurable(false)
      ->option_text("FILE");
  command.callback([this, run] { m_status = std::max(m_status, run()); });
  return command;
}

void CommandLine::add_format(CLI::App& command, Options& options, bool has_sarif) {
  std::vector<std::pair<std::string, Format>> formats{{"text", Format::text}, {"json", Format::json}};
  if (has_sarif) formats.emplace_back("sarif", Format::sarif);
  const std::string description = "text for people; json, an object a line and a file";
  add_choice(command, "--format", description + (has_sarif ? "; or sarif, for code review and CI" : ""), formats,
             options.format);
}

void CommandLine::add_limit(CLI::App& command, Options& options, const char* name, const char* description) {
  command.add_option(name, options.limit, description)->check(is_count)->option_text("N");
}

void CommandLine::add_settings(CLI::App& command) {
  command.add_option("--set", m_settings, "change a tolerance or option")
      ->allow_extra_args(false)
      ->check(CLI::Validator(setting_fault, ""))
      ->option_text("KEY=VALUE");
}

void CommandLine::add_max_errors(CLI::App& command, Options& options) {
  add_limit(command, options, "--max-errors",
            "list at most N errors a file (and N repaired ones); 1000 in text, all otherwise");
}

void CommandLine::apply_settings(Options& options) const {
  for (const std::string& setting : m_settings) apply_setting(setting, options.shape);
}

void CommandLine::add_color(CLI::App& command, Options& options) {
  const std::vector<std::pair<std::string, ColorMode>> modes{
      {"auto", ColorMode::automatic}, {"always", ColorMode::always}, {"never", ColorMode::never}};
  add_choice(command, "--color", "colour the text form; auto, the default, heeds NO_COLOR", modes, options.color);
}

void CommandLine::add_jobs(CLI::App& command, Options& options, const char* description) {
  command.add_option("--jobs", options.jobs, description)->check(is_count)->check(is_number_of_jobs)->option_text("N");
}

CLI::Option* CommandLine::add_names(CLI::App& command, Options& options, const char* description, const char* text) {
  return command.add_option("FILE", options.names, description)->required()->option_text(text);
}

void CommandLine::add_many_names(CLI::App& command, Options& options) {
  command.add_flag("-r,--recursive", m_sources.searches_folders, "search folders for *.igs and *.iges, also with .gz");
  command
      .add_option("--files-from", m_sources.list,
                  "take more names from LIST: NUL or newline separated; - is standard input")
      ->configurable(false)
      ->option_text("LIST");
  add_names(command, options, "IGES files, folders with -r; - is standard input", "...")->required(false);
}

/// What the call names; throws where that is nothing.
std::vector<std::string> CommandLine::names_to_work_on(const std::vector<std::string>& names) {
  if (names.empty() && m_sources.list.empty()) throw CLI::RequiredError("FILE");
  m_sources.names = names;
  try {
    return expanded_names(m_sources, m_status);
  } catch (const std::runtime_error& error) {
    throw CLI::ValidationError("--files-from", error.what());
  }
}

void CommandLine::add_info() {
  CLI::App& command = add_command("info", "Show what files say: units, sender, dates, levels, entities", [this] {
    m_options.names = names_to_work_on(m_options.names);
    return run_info(m_options);
  });
  command.add_flag("--geometry", m_options.has_geometry, "measure the geometry, too: box, area, edges, volume");
  add_format(command, m_options);
  add_color(command, m_options);
  add_jobs(command, m_options);
  add_many_names(command, m_options);
}

void CommandLine::add_check() {
  CLI::App& command = add_command("check", "List the errors of files", [this] {
    m_options.names = names_to_work_on(m_options.names);
    apply_settings(m_options);
    return run_check(m_options);
  });
  add_report_options(command, m_options);
  add_format(command, m_options, true);
  add_settings(command);
  add_max_errors(command, m_options);
  command.footer(keys_help() + exit_status_help);
  add_color(command, m_options);
  add_jobs(command, m_options);
  add_many_names(command, m_options);
}

void CommandLine::add_repair() {
  CLI::App& command = add_command("repair", "Repair what can be repaired without loss, and write the result", [this] {
    m_repair.folders = m_repair.names;
    m_repair.names = names_to_work_on(m_repair.names);
    expect_targets(m_repair);
    apply_settings(m_repair);
    return run_repair(m_repair);
  });
  add_repair_options(command, m_repair);
  add_report_options(command, m_repair);
  add_format(command, m_repair);
  add_settings(command);
  add_max_errors(command, m_repair);
  command.footer(std::string("Keys of --set: see igs check --help.\n") + exit_status_help);
  add_color(command, m_repair);
  add_jobs(command, m_repair);
  add_many_names(command, m_repair);
}

void CommandLine::add_diff() {
  CLI::App& command =
      add_command("diff", "Say what differs between two files, entity by entity, whatever their order", [this] {
        if (m_diff.names == std::vector<std::string>{"-", "-"}) {
          throw CLI::ValidationError("FILE", "only one of the files can be standard input");
        }
        return run_diff(m_diff);
      });
  add_format(command, m_diff);
  command.add_option("--tolerance", m_diff.tolerance, "reals at most T apart count as the same; equal ones without it")
      ->check(is_tolerance)
      ->option_text("T");
  command.add_flag("--geometry", m_diff.has_geometry, "compare what the files and their faces measure, too");
  command
      .add_option("--geometry-tolerance", m_diff.figure_tolerance,
                  "figures that differ by at most this part of the larger one are the same; 1e-6 without it")
      ->check(is_tolerance)
      ->option_text("R");
  command.add_flag("--stat", m_diff.stat, "count what changed, by entity type, instead of listing it");
  add_limit(command, m_diff, "--max-changes", "list at most N changes; 1000 in text, all in json");
  add_names(command, m_diff, "the old file and the new one; one of them may be -, standard input", "OLD NEW")
      ->expected(2);
  command.footer(diff_exit_status_help);
}

void CommandLine::add_print() {
  CLI::App& command = add_command("print", "Print everything a file holds", [this] { return run_print(m_options); });
  add_names(command, m_options, "IGES file; - is standard input", " ")->expected(1);
}

void CommandLine::add_view() {
  CLI::App& command = add_command("view", "Draw the model and its faults: as a page, glTF or SVG", [this] {
    expect_picture(m_view);
    apply_settings(m_view);
    return run_view(m_view);
  });
  add_view_options(command, m_view);
  add_finding_rules(command, m_view);
  add_settings(command);
  add_jobs(command, m_view, "triangulate on N threads; 1 without it");
  add_names(command, m_view, "IGES file; - is standard input", " ")->expected(1);
  command.footer(std::string("Keys of --set: see igs check --help.\n") + view_exit_status_help);
}

void CommandLine::add_explain() {
  CLI::App& command = add_command("explain", "Say what error classes mean and whether they are repaired",
                                  [this] { return run_explain(m_options); });
  add_color(command, m_options);
  command
      .add_option("CLASS", m_options.names,
                  "names as reports show them, patterns of them, in which * is any text, or keys of "
                  "--set; all classes, a line each, without a name")
      ->option_text("CLASS-OR-PATTERN-OR-KEY...");
}

void CommandLine::add_help() {
  CLI::App& command = add_command("help", "Show what a command does and its options", [this] {
    const CLI::App& app = m_options.names.empty() ? m_app : command_of(m_app, m_options.names.front());
    std::cout << help_text(&app, app.get_name(), CLI::AppFormatMode::Normal);
    return flush_output() ? exit_clean : exit_failed;
  });
  command.add_option("COMMAND", m_options.names, "one of those that igs --help lists; igs itself without it")
      ->expected(1)
      ->option_text(" ");
}

}  // namespace

int run_command_line(int argc, char** argv) { return CommandLine().run(argc, argv); }
