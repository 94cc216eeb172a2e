#include "command_line/config.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string_view>
#include <system_error>

#include "command_line/arguments.h"
#include "command_line/nearest.h"
#include "files/input_file.h"
#include "text/text.h"

namespace {

/// One file's faults.
class ConfigFile {
 public:
  explicit ConfigFile(std::string name) : m_name(std::move(name)) {}
  std::vector<CLI::ConfigItem> items() const;
  [[noreturn]] void refuse(const std::string& reason) const {
    throw CLI::ParseError(printable(m_name) + ": " + reason, CLI::ExitCodes::ConfigError);
  }

 private:
  std::string m_name;
};

std::vector<CLI::ConfigItem> ConfigFile::items() const {
  InputFile input(m_name);
  if (input.error().empty()) input.keep_bytes();
  if (!input.error().empty()) refuse(input.error());
  std::istringstream text(input.take_bytes());
  try {
    std::vector<CLI::ConfigItem> all = CLI::ConfigTOML().from_config(text);
    std::erase_if(all, [](const CLI::ConfigItem& item) { return item.name == "++" || item.name == "--"; });  // sections
    return all;
  } catch (const CLI::ParseError& error) {
    refuse(printable(error.what()));
  }
}

/// Null when the command has no such option that a file may set.
CLI::Option* find_option(CLI::App& command, const std::string& key) {
  CLI::Option* const option = command.get_option_no_throw("--" + key);
  return option != nullptr && option->get_configurable() ? option : nullptr;
}

/// Every command that an item is about.
std::vector<CLI::App*> commands_of(CLI::App& app, const CLI::ConfigItem& item, const ConfigFile& file) {
  std::vector<CLI::App*> commands = app.get_subcommands([](CLI::App*) { return true; });
  if (item.parents.empty()) return commands;
  const std::string section = CLI::detail::join(item.parents, ".");
  std::erase_if(commands, [&](const CLI::App* command) { return command->get_name() != section; });
  if (commands.empty()) file.refuse("section [" + printable(section) + "] is of no command");
  return commands;
}

void expect_key(const std::vector<CLI::App*>& commands, const CLI::ConfigItem& item, const ConfigFile& file) {
  std::vector<std::string> known;
  for (CLI::App* command : commands) {
    if (find_option(*command, item.name) != nullptr) return;
    for (const CLI::Option* option : command->get_options([](CLI::Option*) { return true; })) {
      for (const std::string& key : option->get_lnames()) {
        if (option->get_configurable()) known.push_back(key);
      }
    }
  }
  std::sort(known.begin(), known.end());
  known.erase(std::unique(known.begin(), known.end()), known.end());
  file.refuse("no option \"" + printable(item.fullname()) + '"' + suggestion(item.name, {known.begin(), known.end()}));
}

/// Whether a flag is set.
bool is_flag_set(const CLI::ConfigItem& item, const ConfigFile& file) {
  const std::string value = item.inputs.size() == 1 ? item.inputs.front() : "";
  if (value != "true" && value != "false") file.refuse(printable(item.fullname()) + ": is true or false");
  return value == "true";
}

/// The option takes the values for a trial, so that a fault can be told with its place.
void expect_values(CLI::Option& option, const CLI::ConfigItem& item, const ConfigFile& file) {
  try {
    for (const std::string& value : item.inputs) option.add_result(value);
    option.run_callback();
  } catch (const CLI::ParseError& error) {
    const std::string reason = error.what(), name = option.get_name() + ": ";
    file.refuse(printable(item.fullname()) + ": " +
                printable(reason.substr(reason.starts_with(name) ? name.size() : 0)));
  }
  option.clear();
}

}  // namespace

std::string found_config() {
  constexpr const char* usual_name = "igs.toml";
  std::error_code error;
  std::filesystem::path folder = std::filesystem::current_path(error);
  for (; !error; folder = folder.parent_path()) {
    std::error_code none;
    if (std::filesystem::exists(folder / usual_name, none)) return (folder / usual_name).string();
    if (folder == folder.parent_path()) break;
  }
  return "";
}

std::vector<std::string> configured_words(CLI::App& app, CLI::App& command, const std::string& name,
                                          const std::vector<const CLI::Option*>& given) {
  const ConfigFile file(name);
  std::vector<std::string> words;
  for (const CLI::ConfigItem& item : file.items()) {
    const std::vector<CLI::App*> commands = commands_of(app, item, file);
    expect_key(commands, item, file);
    CLI::Option* const option = find_option(command, item.name);
    if (option == nullptr || std::find(commands.begin(), commands.end(), &command) == commands.end()) continue;
    const std::string word = "--" + item.name;
    const bool is_flag = option->get_items_expected_min() == 0;
    const bool is_set = !is_flag || is_flag_set(item, file);
    if (!is_flag) expect_values(*option, item, file);
    const bool is_overruled = !is_list(*option) && std::find(given.begin(), given.end(), option) != given.end();
    if (!is_set || is_overruled) continue;
    if (is_flag) words.push_back(word);
    if (is_flag) continue;
    for (const std::string& value : item.inputs) words.insert(words.end(), {word, value});
  }
  return words;
}
