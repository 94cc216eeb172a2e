#include "commands/commands.h"

#include <unistd.h>

#include <iostream>

#include "command_line/nearest.h"
#include "command_line/settings.h"
#include "explain/texts.h"
#include "files/complaints.h"
#include "files/exit_status.h"
#include "text/pattern.h"
#include "text/text.h"

namespace {

void list(const ErrorText& text, const Paint& paint) {
  const bool is_repaired = text.repair_kind != RepairKind::none;
  std::cout << paint(Ink::heading, text.name) << "  " << severity_words(text) << ": " << general_sentence(text) << " ["
            << paint(is_repaired ? Ink::good : Ink::bad, is_repaired ? "repaired" : "not repaired") << "]\n";
}

void describe(const ErrorText& text, const Paint& paint) {
  const std::string_view no_repair = "It is not repaired; --delete-faulty deletes the entity, if it is about one.";
  const char* const moves_geometry = " This changes geometry: --keep-geometry leaves the fault as it is.";
  const char* const loses = " To igs repair that is no repair but a loss, which it avoids or reports.";
  std::cout << paint(Ink::heading, text.name) << "\n  Meaning: " << general_sentence(text)
            << ".\n  Severity: " << severity_words(text)
            << (text.is_consequence ? ", a consequence of what is wrong with that entity" : "")
            << "\n  Repair: " << (text.repair.empty() ? no_repair : text.repair)
            << (text.repair_kind == RepairKind::geometry ? moves_geometry : "")
            << (text.repair_kind == RepairKind::removal ? loses : "") << '\n';
  if (!text.quality_code.empty()) {
    std::cout << "  Product data quality: " << text.quality_code << " (SASIG guideline)\n";
  }
}

void describe(const coResourceInfo& key, const Paint& paint) {
  std::cout << paint(Ink::heading, key.name) << "\n  Meaning: " << key.meaning
            << ".\n  Default: " << format_real(key.default_value) << "; --set " << key.name
            << "=VALUE changes it for one call\n";
}

void complain_of_name(const std::string& name) {
  if (name.find('*') != std::string::npos)
    return complain(std::cerr, name, "no error class and no key is as this pattern says");
  std::vector<std::string_view> known;
  for (const ErrorText& text : all_error_texts()) known.push_back(text.name);
  for (const coResourceInfo& key : setting_keys()) known.push_back(key.name);
  const std::vector<std::string_view> near = nearest(name, known);
  complain(std::cerr, name, "no error class of this name" + (near.empty() ? "" : "; near names: " + joined(near)));
}

/// All that the pattern fits. False when there is nothing.
bool describe(const std::string& pattern, const Paint& paint) {
  bool is_any = false;
  const auto describe_all = [&](const auto& things) {
    for (const auto& thing : things) {
      if (!matches(pattern, thing.name)) continue;
      describe(thing, paint);
      is_any = true;
    }
  };
  describe_all(all_error_texts());
  describe_all(setting_keys());
  return is_any;
}

}  // namespace

int run_explain(const Options& options) {
  const Paint paint(options.color, STDOUT_FILENO);
  int status = exit_clean;
  if (options.names.empty()) {
    for (const ErrorText& text : all_error_texts()) list(text, paint);
  }
  for (const std::string& name : options.names) {
    if (describe(name, paint)) continue;
    complain_of_name(name);
    status = exit_failed;
  }
  return flush_output() ? status : exit_failed;
}
