#include "command_line/report_options.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <map>

#include "command_line/choice.h"
#include "explain/texts.h"
#include "text/pattern.h"

namespace {

const std::vector<std::pair<std::string, Severity>> levels{
    {"error", Severity::error}, {"warning", Severity::warning}, {"note", Severity::note}};

/// A check for CLI11: why the text is no pattern of error classes, empty when it is one.
std::string is_class_pattern(const std::string& text) {
  const std::vector<ErrorText>& all = all_error_texts();
  const bool is_known =
      std::any_of(all.begin(), all.end(), [&text](const ErrorText& each) { return matches(text, each.name); });
  return is_known ? "" : "no error class is called \"" + printable(text) + '"';
}

std::pair<std::string, Severity> rating_of(const std::string& text) {
  const std::size_t equals = text.find('=');
  const std::string pattern = text.substr(0, equals);
  const std::string word = equals != std::string::npos ? text.substr(equals + 1) : "";
  const auto level =
      std::find_if(levels.begin(), levels.end(), [&word](const auto& each) { return each.first == word; });
  if (level == levels.end()) {
    throw CLI::ValidationError("--severity", '"' + printable(text) + "\" is no PATTERN=error|warning|note");
  }
  if (const std::string fault = is_class_pattern(pattern); !fault.empty()) {
    throw CLI::ValidationError("--severity", fault);
  }
  return {pattern, level->second};
}

void add_patterns(CLI::App& command, const char* name, const char* description, std::vector<std::string>& patterns) {
  command.add_option(name, patterns, description)
      ->check(CLI::Validator(is_class_pattern, ""))
      ->allow_extra_args(false)
      ->option_text("PATTERN");
}

std::string is_number_of_digits(const std::string& text) {
  constexpr int most_digits = 17;
  int digits = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), digits);
  const bool is_sound =
      error == std::errc() && stop == text.data() + text.size() && digits >= 1 && digits <= most_digits;
  return is_sound ? "" : '"' + printable(text) + "\" is no number of digits from 1 to 17";
}

}  // namespace

void add_finding_rules(CLI::App& command, Options& options) {
  add_patterns(command, "--ignore", "leave out faults of these classes; * is any text", options.rules.ignored);
  add_patterns(command, "--only", "heed faults of these classes alone", options.rules.only);
  const auto rate = [&options](const std::vector<std::string>& texts) {
    for (const std::string& text : texts) options.rules.rated.push_back(rating_of(text));
  };
  command.add_option_function<std::vector<std::string>>("--severity", rate, "rate classes as error, warning or note")
      ->allow_extra_args(false)
      ->option_text("PATTERN=LEVEL");
  command.add_flag("--no-geometry", options.no_geometry, "leave out the geometric checks: gaps, free edges, ...");
}

void add_report_options(CLI::App& command, Options& options) {
  add_finding_rules(command, options);
  add_choice(command, "--fail-on", "from where on findings make the exit status 1; warning without it", levels,
             options.fail_on);
  command.add_flag("--all", options.all, "list consequences of other faults, and all that are alike, too");
  command.add_flag("-q,--quiet", options.quiet, "print only files with findings");
}

void add_repair_options(CLI::App& command, RepairOptions& options) {
  command.add_option("-o,--output", options.target, "the file to write; - is standard output; may be FILE")
      ->configurable(false)
      ->option_text("OUT");
  command.add_option("--output-dir", options.output_dir, "write each file under its name in DIR")
      ->configurable(false)
      ->option_text("DIR");
  command.add_flag("--in-place", options.in_place, "write each file in its place")->configurable(false);
  command.add_flag("--dry-run", options.dry_run, "write nothing; say what would be repaired and changed");
  command.add_flag("--summary", options.summary, "list what differs between what was read and what was written");
  command.add_flag("--keep-geometry", options.keep_geometry,
                   "leave coordinates, knots, weights and parameters as they are");
  const auto take_units = [&options](const std::string& name) { options.units = igsUnits::recognised(name); };
  command
      .add_option_function<std::string>("--units", take_units,
                                        "what the units are where that is in doubt: MM, INCH, ...")
      ->check(CLI::Validator(
          [](const std::string& name) {
            return igsUnits::recognised(name) != 0 ? "" : '"' + printable(name) + "\" is no unit";
          },
          ""))
      ->option_text("NAME");
  command.add_flag("--salvage", options.salvage, "write what was read of a file that is not whole");
  command.add_flag("--drop-unsupported", options.drop_unsupported,
                   "leave out entities without a class, their pointers, and comments");
  command.add_flag("--delete-faulty", options.delete_faulty,
                   "delete the entities that have errors or warnings left, and those that cannot do without them");
  command.add_option("--digits", options.digits, "write reals with N digits; as many as they need without it")
      ->check(CLI::Validator(is_number_of_digits, ""))
      ->option_text("N");
  add_choice<igsExponentLetter>(command, "--exponent", "the letter of exponents; as read without it",
                                {{"E", igsExponentLetter::e}, {"D", igsExponentLetter::d}}, options.exponent);
  add_choice<igsLineEnd>(command, "--line-ends", "as read without it",
                         {{"lf", igsLineEnd::lf}, {"crlf", igsLineEnd::crlf}}, options.line_end);
}

namespace {

[[noreturn]] void refuse_targets(const std::string& reason) {
  throw CLI::ParseError(reason, CLI::ExitCodes::ArgumentMismatch);
}

}  // namespace

void expect_targets(const RepairOptions& options) {
  const int given =
      (options.target.empty() ? 0 : 1) + (options.output_dir.empty() ? 0 : 1) + (options.in_place ? 1 : 0);
  if (given == 0 && !options.dry_run) refuse_targets("--output, --output-dir or --in-place is missing");
  if (given > 1) refuse_targets("only one of --output, --output-dir and --in-place can be given");
  if (!options.target.empty() && options.names.size() > 1)
    refuse_targets("unexpected " + printable(options.names[1]) + "; --output takes one file");
  const bool reads_input = std::find(options.names.begin(), options.names.end(), "-") != options.names.end();
  if (reads_input && (options.in_place || !options.output_dir.empty())) {
    refuse_targets("standard input has no name to write to; --output gives it one");
  }
}
