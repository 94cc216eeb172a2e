#include "commands/commands.h"

#include <unistd.h>

#include <iostream>

#include "command_line/nearest.h"
#include "explain/texts.h"
#include "files/complaints.h"
#include "files/exit_status.h"
#include "text/text.h"

namespace {

void list(const ErrorText& text, const Paint& paint) {
  const bool is_repaired = !text.repair.empty();
  std::cout << paint(Ink::heading, text.name) << "  " << general_sentence(text) << " ["
            << paint(is_repaired ? Ink::good : Ink::bad, is_repaired ? "repaired" : "not repaired") << "]\n";
}

void describe(const ErrorText& text, const Paint& paint) {
  const std::string_view no_repair = "It is not repaired; --delete-faulty deletes the entity, if it is about one.";
  std::cout << paint(Ink::heading, text.name) << "\n  Meaning: " << general_sentence(text)
            << ".\n  Repair: " << (text.repair.empty() ? no_repair : text.repair) << '\n';
}

void describe(const coResourceInfo& key, const Paint& paint) {
  std::cout << paint(Ink::heading, key.name) << "\n  Meaning: " << key.meaning
            << ".\n  Default: " << format_real(key.default_value) << "; --set " << key.name
            << "=VALUE changes it for one call\n";
}

const coResourceInfo* find_key(const std::string& name) {
  for (const coResourceInfo& key : coResourceTable::keys()) {
    if (key.name == name) return &key;
  }
  return nullptr;
}

void complain_of_name(const std::string& name) {
  std::vector<std::string_view> known;
  for (const ErrorText& text : all_error_texts()) known.push_back(text.name);
  for (const coResourceInfo& key : coResourceTable::keys()) known.push_back(key.name);
  const std::vector<std::string_view> near = nearest(name, known);
  complain(name, "no error class of this name" + (near.empty() ? "" : "; near names: " + joined(near)));
}

/// False when there is nothing of this name.
bool describe(const std::string& name, const Paint& paint) {
  if (const ErrorText* text = find_error_text(name)) {
    describe(*text, paint);
  } else if (const coResourceInfo* key = find_key(name)) {
    describe(*key, paint);
  } else {
    complain_of_name(name);
    return false;
  }
  return true;
}

}  // namespace

int run_explain(const Options& options) {
  const Paint paint(options.color, STDOUT_FILENO);
  int status = exit_clean;
  if (options.names.empty()) {
    for (const ErrorText& text : all_error_texts()) list(text, paint);
  }
  for (const std::string& name : options.names) {
    if (!describe(name, paint)) status = exit_failed;
  }
  return flush_output() ? status : exit_failed;
}
