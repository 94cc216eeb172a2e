#include "command_line/arguments.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "command_line/config.h"
#include "command_line/nearest.h"
#include "text/text.h"

namespace {

struct Words {
  std::vector<std::string> options;  ///< each followed by its value
  std::vector<std::string> names;
  std::vector<const CLI::Option*> given;
  std::optional<std::string> config;  ///< value of --config
};

[[noreturn]] void refuse(const std::string& reason) { throw CLI::ParseError(reason, CLI::ExitCodes::ArgumentMismatch); }

std::vector<std::string_view> views(const std::vector<std::string>& names) { return {names.begin(), names.end()}; }

[[noreturn]] void refuse_option(const CLI::App& app, const std::string& word) {
  std::vector<std::string> known;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) known.push_back("--" + name);
  }
  refuse("unknown option " + printable(word) + suggestion(word, views(known)));
}

[[noreturn]] void refuse_command(const CLI::App& app, const std::string& word) {
  std::vector<std::string> known;
  for (const CLI::App* command : app.get_subcommands({})) known.push_back(command->get_name());
  const std::string near = suggestion(word, views(known));
  refuse("unknown command \"" + printable(word) + '"' + (near.empty() ? "; there are " + joined(views(known)) : near));
}

bool is_option(const std::string& word) { return word.size() > 1 && word.front() == '-'; }

/// A word "--name=value" or "-nvalue" as two; another as it is.
std::vector<std::string> split_option(const std::string& word) {
  const bool is_long = word.compare(0, 2, "--") == 0;
  const std::size_t end = is_long ? word.find('=') : 2;
  if (end >= word.size()) return {word};
  return {word.substr(0, end), word.substr(is_long ? end + 1 : end)};
}

/// Makes "-qr" at `at` two words, "-q" and "-r", where -q needs no value.
void unbundle(const CLI::App& app, std::vector<std::string>& all, std::size_t at) {
  const std::string word = all[at];
  if (word.size() < 3 || word[1] == '-' || word[2] == '=') return;
  const CLI::Option* const option = app.get_option_no_throw(word.substr(0, 2));
  if (option == nullptr || option->get_items_expected_min() > 0) return;
  all[at].resize(2);
  all.insert(all.begin() + static_cast<std::ptrdiff_t>(at) + 1, '-' + word.substr(2));
}

/// Takes an option and its value, which may be the word after it, at `at`; leaves `at` at the last word taken.
void take_option(const CLI::App& app, std::vector<std::string>& all, std::size_t& at, Words& words) {
  unbundle(app, all, at);
  std::vector<std::string> parts = split_option(all[at]);
  const CLI::Option* option = app.get_option_no_throw(parts[0]);
  if (option == nullptr || option->get_positional()) refuse_option(app, parts[0]);
  const bool needs_value = option->get_items_expected_min() > 0;
  if (!needs_value && parts.size() > 1) refuse(parts[0] + " takes no value");
  if (needs_value && parts.size() == 1) {
    if (++at == all.size()) refuse(parts[0] + " needs a value, " + option->get_option_text());
    parts.push_back(all[at]);
  }
  words.given.push_back(option);
  if (option->check_lname("config")) words.config = parts[1];
  words.options.insert(words.options.end(), parts.begin(), parts.end());
}

Words separated(const CLI::App& app, std::vector<std::string> all, std::size_t begin) {
  Words words;
  bool has_names_alone = false;
  for (std::size_t at = begin; at < all.size(); ++at) {
    if (has_names_alone || !is_option(all[at])) {
      words.names.push_back(all[at]);
    } else if (all[at] == "--") {
      has_names_alone = true;
    } else {
      take_option(app, all, at, words);
    }
  }
  return words;
}

bool is_given(const Words& words, const CLI::Option* option) {
  return std::find(words.given.begin(), words.given.end(), option) != words.given.end();
}

/// Makes the command take so many names, none of which is split.
void expect_names(CLI::App& command, const std::vector<std::string>& names) {
  for (CLI::Option* option : command.get_options([](const CLI::Option* each) { return each->get_positional(); })) {
    if (is_list(*option) && !names.empty()) option->expected(static_cast<int>(names.size()));
    option->allow_extra_args(false);
    const auto most = static_cast<std::size_t>(option->get_items_expected_max());
    if (names.size() > most) refuse("unexpected " + printable(names[most]));
    if (most > 1 && !names.empty() && names.size() < most)
      refuse("too few names; there have to be " + option->get_option_text());
  }
}

}  // namespace

bool is_list(const CLI::Option& option) {
  return option.get_items_expected_max() >= CLI::detail::expected_max_vector_size;
}

CLI::App* find_command(CLI::App& app, const std::string& name) {
  const auto found = app.get_subcommands([&name](CLI::App* command) { return command->get_name() == name; });
  return found.empty() ? nullptr : found.front();
}

CLI::App& command_of(CLI::App& app, const std::string& name) {
  CLI::App* command = find_command(app, name);
  if (command == nullptr) refuse_command(app, name);
  return *command;
}

std::vector<std::string> arranged(CLI::App& app, const std::vector<std::string>& words) {
  if (words.empty()) refuse("a command is missing");
  if (is_option(words[0])) return separated(app, {words[0]}, 0).options;
  CLI::App& command = command_of(app, words[0]);
  Words parts = separated(command, words, 1);
  expect_names(command, parts.names);
  const std::string config = parts.config ? *parts.config : found_config();
  std::vector<std::string> result{words[0]};
  if (!config.empty() && !is_given(parts, command.get_help_ptr())) {
    const std::vector<std::string> configured = configured_words(app, command, config, parts.given);
    result.insert(result.end(), configured.begin(), configured.end());
  }
  result.insert(result.end(), parts.options.begin(), parts.options.end());
  if (!parts.names.empty()) result.emplace_back("--");
  result.insert(result.end(), parts.names.begin(), parts.names.end());
  return result;
}
