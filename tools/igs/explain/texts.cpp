#include "explain/texts.h"

#include <algorithm>
#include <charconv>
#include <numbers>
#include <optional>
#include <unordered_map>

#include "files/model.h"
#include "text/text.h"

namespace {

/// The values of an error as words.
class ValueWords : public igsErrorValueVisitor {
 public:
  explicit ValueWords(const igsError& error) { error.visit_values(*this); }
  void value(int number) override { m_words.push_back(number == igs_unset_int ? "unset" : std::to_string(number)); }
  void value(double number) override {
    m_words.push_back(igs_is_undefined_real(number) ? "unset" : format_real(number));
  }
  void value(const utString& text) override { m_words.push_back('"' + printable(text) + '"'); }
  const std::vector<std::string>& words() const { return m_words; }

 private:
  std::vector<std::string> m_words;
};

std::string section_name(const std::string& number) {
  constexpr std::string_view names[] = {"Start", "Global", "Directory Entry", "Parameter Data", "Terminate"};
  const std::size_t index = number.size() == 1 ? static_cast<std::size_t>(number[0] - '0') : std::size(names);
  return index < std::size(names) ? std::string(names[index]) : number;
}

constexpr int digits_in_sentence = 4;  // the error carries the whole

std::string short_real(const std::string& number) {
  const std::optional<double> value = real_of(number);
  return value ? format_real(rounded_to_digits(*value, digits_in_sentence)) : number;
}

std::string in_degrees(const std::string& radians) {
  const std::optional<double> value = real_of(radians);
  return value ? format_real(rounded_to_digits(*value * 180 / std::numbers::pi, digits_in_sentence)) + " degrees"
               : radians;
}

std::string direction_name(const std::string& number) { return number == "1" ? "v" : "u"; }

std::string side_name(const std::string& number) {
  constexpr std::string_view names[] = {"where u is least", "where u is greatest", "where v is least",
                                        "where v is greatest"};
  const std::size_t index = number.size() == 1 ? static_cast<std::size_t>(number[0] - '0') : std::size(names);
  return index < std::size(names) ? std::string(names[index]) : number;
}

/// What may stand behind the number of a value in a sentence.
struct WayToSay {
  std::string_view name;
  std::string (*word)(const std::string& value);
};
constexpr WayToSay ways_to_say[] = {{"section", section_name},
                                    {"short", short_real},
                                    {"degrees", in_degrees},
                                    {"direction", direction_name},
                                    {"side", side_name}};

std::string said(const std::string& value, std::string_view placeholder) {
  for (const WayToSay& way : ways_to_say) {
    if (placeholder.ends_with(way.name)) return way.word(value);
  }
  return value;
}

/// The number at the start of `text`.
std::optional<std::size_t> leading_index(std::string_view text) {
  std::size_t index = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), index);
  return result.ec == std::errc() ? std::optional(index) : std::nullopt;
}

/// Replaces every "{...}" of the sentence by `word(...)`.
template <class Word>
std::string filled_in(std::string_view sentence, Word word) {
  std::string result;
  for (;;) {
    const std::size_t open = sentence.find('{');
    const std::size_t close = sentence.find('}', open);
    result += sentence.substr(0, open);
    if (open == std::string_view::npos || close == std::string_view::npos) return result;
    result += word(sentence.substr(open + 1, close - open - 1));
    sentence.remove_prefix(close + 1);
  }
}

std::string bare_values(const std::vector<std::string>& words) {
  std::string result = words.empty() ? "" : "values";
  for (const std::string& word : words) result += ' ' + word;
  return result;
}

}  // namespace

const ErrorText* find_error_text(std::string_view name) {
  static const auto texts_by_name = [] {
    std::unordered_map<std::string_view, const ErrorText*> texts;
    for (const ErrorText& text : all_error_texts()) texts.emplace(text.name, &text);
    return texts;
  }();
  const auto found = texts_by_name.find(name);
  return found != texts_by_name.end() ? found->second : nullptr;
}

std::string sentence_of(const igsError& error) {
  const ValueWords values(error);
  const ErrorText* text = find_error_text(error.objtype().name());
  if (text == nullptr) return bare_values(values.words());
  return filled_in(text->sentence, [&](std::string_view placeholder) {
    if (placeholder == "de") return std::to_string(de_number(error).value_or(0));
    const std::size_t index = leading_index(placeholder).value_or(values.words().size());
    if (index >= values.words().size()) return std::string("?");
    return said(values.words()[index], placeholder);
  });
}

bool is_missing_units_flag(const igsError& error) {
  constexpr int units_flag = 14;
  return error.isa(igsGlobalSectionIllegalDefault::type()) &&
         static_cast<const igsGlobalSectionIllegalDefault&>(error).value<0>() == units_flag;
}

bool is_about_units(const igsError& error) {
  return is_missing_units_flag(error) || error.isa(igsGlobalSectionInvalidUnitsFlag::type()) ||
         error.isa(igsGlobalSectionUnitNameTypeMismatch::type());
}

bool is_repairable(const ErrorText& text) {
  return text.repair_kind == RepairKind::writing || text.repair_kind == RepairKind::value ||
         text.repair_kind == RepairKind::nulls || text.repair_kind == RepairKind::geometry;
}

namespace {

/// The reals among the values of an error.
class RealValues : public igsErrorValueVisitor {
 public:
  explicit RealValues(const igsError& error) { error.visit_values(*this); }
  void value(int /*number*/) override {}
  void value(double number) override { m_reals.push_back(number); }
  void value(const utString& /*text*/) override {}
  const std::vector<double>& reals() const { return m_reals; }

 private:
  std::vector<double> m_reals;
};

Severity severity_by_size(const igsError& error) {
  constexpr double too_much = 10;
  const RealValues values(error);
  const double distance = values.reals().at(0), tolerance = values.reals().at(1);
  if (distance <= tolerance) return Severity::note;
  return distance <= too_much * tolerance ? Severity::warning : Severity::error;
}

}  // namespace

Severity severity_of(const igsError& error) {
  const ErrorText* text = find_error_text(error.objtype().name());
  if (text == nullptr) return Severity::error;
  if (text->is_by_size) return severity_by_size(error);
  return is_missing_units_flag(error) ? Severity::error : text->severity;
}

const char* severity_name(Severity severity) {
  constexpr const char* names[] = {"note", "warning", "error"};
  return names[static_cast<int>(severity)];
}

std::string severity_words(const ErrorText& text) {
  return text.is_by_size ? "note, warning or error by size" : severity_name(text.severity);
}

std::string page_url(std::string_view class_name) {
  return std::string(IGS_DOCS_URL) + "/errors/" + std::string(class_name) + ".html";
}

std::string general_sentence(const ErrorText& text) {
  return filled_in(text.sentence, [](std::string_view) { return "..."; });
}
