#pragma once

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "command_line/nearest.h"
#include "text/text.h"

/// An option whose value is one of these words, each of which stands for a value.
template <class Value>
CLI::Option* add_choice(CLI::App& command, const std::string& name, const std::string& description,
                        const std::vector<std::pair<std::string, Value>>& choices, Value& chosen) {
  std::vector<std::string> words;
  words.reserve(choices.size());
  for (const auto& [word, value] : choices) words.push_back(word);
  const auto place_of = [words](const std::string& text) {
    return static_cast<std::size_t>(std::find(words.begin(), words.end(), text) - words.begin());
  };
  const auto choose = [choices, place_of, &chosen](const std::string& text) {
    chosen = choices.at(place_of(text)).second;
  };
  const auto is_known = [words, place_of](const std::string& text) {
    if (place_of(text) < words.size()) return std::string();
    return '"' + printable(text) + "\" is none of " + joined({words.begin(), words.end()});
  };
  return command.add_option_function<std::string>(name, choose, description)
      ->check(CLI::Validator(is_known, ""))
      ->option_text(CLI::detail::join(words, "|"));
}
