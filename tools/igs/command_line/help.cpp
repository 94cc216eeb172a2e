#include "command_line/help.h"

#include <algorithm>
#include <sstream>

namespace {

constexpr std::size_t screen_columns = 80;
constexpr std::size_t description_column = 22;

/// "FILE...", "[CLASS...]", "OUT": how a positional argument stands in the usage line.
std::string usage_of_name(const CLI::Option& option) {
  const std::string& text = option.get_option_text();
  std::string name = text.find_first_not_of(". ") == std::string::npos ? option.get_name(true) : text;
  if (text == "...") name += text;
  return option.get_required() ? name : '[' + name + ']';
}

std::string usage(const CLI::App& app) {
  if (app.get_parent() == nullptr) return "Usage: igs COMMAND [OPTION]... [FILE]...\n";
  std::string line = "Usage: igs " + app.get_name() + " [OPTION]...";
  std::string names;
  for (const CLI::Option* option : app.get_options()) {
    if (option->get_positional()) {
      names += ' ' + usage_of_name(*option);
    } else if (option->get_required()) {
      line += " -" + option->get_snames().front() + ' ' + option->get_option_text();
    }
  }
  return line + names + '\n';
}

/// A row of two columns, the second as long as it needs.
std::string row(std::string left, const std::string& right) {
  left.insert(0, "  ");
  const std::string text = wrapped(right, description_column);
  if (left.size() + 2 > description_column) return left + '\n' + text;
  return left + text.substr(left.size());
}

std::string names_of(const CLI::Option& option) {
  if (option.get_positional()) return usage_of_name(option);
  std::string names;
  for (const std::string& name : option.get_snames()) names += '-' + name + ", ";
  for (const std::string& name : option.get_lnames()) names += "--" + name + ", ";
  names.resize(names.size() - 2);
  return option.get_option_text().empty() ? names : names + ' ' + option.get_option_text();
}

}  // namespace

std::string wrapped(std::string_view text, std::size_t indent) {
  std::istringstream words{std::string(text)};
  const std::string margin(indent, ' ');
  std::string result, line = margin;
  for (std::string word; words >> word;) {
    if (line.size() > indent && line.size() + 1 + word.size() > screen_columns) {
      result += line + '\n';
      line = margin;
    }
    if (line.size() > indent) line += ' ';
    line += word;
  }
  return result + line + '\n';
}

std::string help_text(const CLI::App* app, const std::string& /*name*/, CLI::AppFormatMode /*mode*/) {
  std::string text = usage(*app) + wrapped(app->get_description() + '.', 0) + '\n';
  for (const CLI::App* command : app->get_subcommands({})) text += row(command->get_name(), command->get_description());
  if (app->get_parent() == nullptr) text += '\n';
  for (const CLI::Option* option : app->get_options()) text += row(names_of(*option), option->get_description());
  const std::string footer = app->get_footer();
  return footer.empty() ? text : text + '\n' + footer.substr(footer.find_first_not_of('\n')) + '\n';
}
