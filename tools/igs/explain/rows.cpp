#include "explain/rows.h"

#include <array>

namespace {

constexpr char head_mark = '*';  // at the end of the name

std::string replaced(std::string text, std::string_view old, std::string_view by) {
  for (std::size_t at = 0; (at = text.find(old, at)) != std::string::npos; at += by.size()) {
    text.replace(at, old.size(), by);
  }
  return text;
}

std::string completed(const std::string& text, std::string_view noun) {
  const std::string named = replaced(text, "@", noun);
  std::string counted = named;
  for (const std::string_view digit : {"0}", "1}", "2}", "3}"}) {
    counted =
        replaced(counted, std::string("{#").append(digit), std::string("{").append(digit).append(" (counted from 0)"));
  }
  return counted;
}

std::vector<ErrorText> completed(const Rows& rows) {
  std::vector<ErrorText> texts;
  std::string prefix, noun;
  for (ErrorText text : rows.texts) {
    if (text.name.back() == head_mark) {
      prefix = text.name.substr(0, text.name.size() - 1);
      noun = text.sentence;
      continue;
    }
    if (!text.name.starts_with("igs")) text.name.insert(0, prefix);
    text.sentence = completed(text.sentence, noun);
    text.repair = completed(text.repair, noun);
    texts.push_back(std::move(text));
  }
  return texts;
}

Rows named(const std::array<const char*, 3>& names, std::string_view name, std::string_view thing,
           std::string_view is_wrong, const Repairs& repairs) {
  const std::string start = std::string(thing) + ' ';
  return {{Severity::error, replaced(names[0], "%", name), start + "is missing", repairs.of_null},
          {Severity::error, replaced(names[1], "%", name), start + std::string(is_wrong), repairs.of_wrong},
          consequence(replaced(names[2], "%", name), start + "has faults of its own", repairs.of_faults)};
}

}  // namespace

Rows::Rows(Severity severity, std::string_view name, std::string_view sentence, Repair repair)
    : texts{{std::string(name), std::string(sentence), std::string(repair.text), severity, repair.kind, false}} {}

Rows by_size(std::string_view name, std::string_view sentence, Repair repair) {
  Rows row(Severity::warning, name, sentence, repair);
  row.texts.front().is_by_size = true;
  return row;
}

Rows known_as(std::string_view quality_code, Rows row) {
  row.texts.front().quality_code = quality_code;
  return row;
}

Rows::Rows(std::initializer_list<Rows> parts) {
  for (const Rows& part : parts) texts.insert(texts.end(), part.texts.begin(), part.texts.end());
}

Rows entity(std::string_view prefix, std::string_view noun) {
  return {Severity::note, std::string(prefix) + head_mark, noun};
}

Rows consequence(std::string_view name, std::string_view sentence, Repair repair) {
  Rows row(Severity::warning, name, sentence, repair);
  row.texts.front().is_consequence = true;
  return row;
}

Rows reference(std::string_view name, std::string_view thing, std::string_view is_wrong, const Repairs& repairs) {
  return named({"Null%", "Wrong%Type", "Invalid%"}, name, thing, is_wrong, repairs);
}

Rows pointer(std::string_view name, std::string_view thing, std::string_view is_wrong, const Repairs& repairs) {
  return named({"Null%Ptr", "Invalid%Type", "Invalid%Data"}, name, thing, is_wrong, repairs);
}

Rows optional(Rows reference) {
  reference.texts.erase(reference.texts.begin());
  return reference;
}

Rows in_u_and_v(const Rows& rows) {
  Rows result = rows;
  result.texts.insert(result.texts.end(), rows.texts.begin(), rows.texts.end());
  for (std::size_t i = 0; i < result.texts.size(); ++i) {
    const bool is_u = i < rows.texts.size();
    result.texts[i].name = replaced(result.texts[i].name, "%", is_u ? "U" : "V");
    result.texts[i].sentence = replaced(result.texts[i].sentence, "%", is_u ? "u" : "v");
  }
  return result;
}

const std::vector<ErrorText>& all_error_texts() {
  static const std::vector<ErrorText> all =
      completed({section_texts(), curve_texts(), surface_texts(), solid_texts(), analytic_texts(), annotation_texts(),
                 structure_texts(), shape_texts()});
  return all;
}
