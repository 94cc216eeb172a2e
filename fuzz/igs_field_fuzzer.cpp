// The fields of one run of records. The first line of an input chooses how it is read, the rest is the data:
//
//     P3,;irh       section (P, G or D), records per entity (a digit), delimiters, then kinds of fields in turn:
//     data ...      i, r, h for free integers, reals and strings; I, S for integers and texts of 8 columns
//
// The records are read three times: by igsInStream, by igsInStream from a stream in pieces and with every record sent
// through the repair steps, and by the model of the tests, which leaves every conversion to the C library. Value, codes
// and position have to agree after every field, and reading has to end.

#include <algorithm>
#include <cctype>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "igs/input/igsInStream.h"
#include "input/field_model.h"
#include "invariants.h"
#include "pieces.h"

namespace {
using igs_fuzz::require;
using records::FieldModel;
using records::FieldOutcome;

struct Plan {
  records::FieldLayout layout;
  std::string kinds = "i";
};

bool is_delimiter(char c) { return std::isgraph(static_cast<unsigned char>(c)) != 0; }

Plan plan_of(const std::string& line) {
  Plan plan;
  std::size_t at = 0;
  const auto next = [&] { return at < line.size() ? line[at++] : '\0'; };
  if (const char c = next(); c == 'G' || c == 'D') plan.layout.section = c;
  const int records = static_cast<unsigned char>(next()) % 10;
  plan.layout.records_per_entity = records > 0 ? records : INT_MAX;  // 0: all belong to one
  if (const char c = next(); is_delimiter(c)) plan.layout.delimiter = c;
  if (const char c = next(); is_delimiter(c)) plan.layout.end = c;
  if (at < line.size()) plan.kinds = line.substr(at);
  return plan;
}

std::vector<std::string> records_of(const Plan& plan, std::string data) {
  for (char& c : data) {
    if (c == '\n' || c == '\r') c = ' ';  // it would end the record
  }
  std::vector<std::string> records;
  const std::size_t width = plan.layout.width();
  for (std::size_t at = 0; at < data.size(); at += width) {
    records.push_back(data.substr(at, width));
    records.back().resize(width, ' ');
  }
  return records;
}

constexpr unsigned fixed_width = 8;
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(data, data + size);
  const std::size_t line_end = std::min(input.find('\n'), input.size());
  const Plan plan = plan_of(input.substr(0, line_end));
  const std::vector<std::string> records = records_of(plan, line_end < size ? input.substr(line_end + 1) : "");
  if (records.empty()) return 0;
  std::string text;
  for (std::size_t i = 0; i < records.size(); ++i) text += plan.layout.line(i, records[i]) + '\n';

  std::istringstream whole(text);
  igs_fuzz::Pieces pieces(text, 7);
  std::istream pieces_in(&pieces);
  igsInStream in(whole);
  igsInStream repaired(pieces_in, {.messages = nullptr, .shortcuts = false});
  for (igsInStream* reader : {&in, &repaired}) {
    reader->set_param_delimiter(plan.layout.delimiter);
    reader->set_record_delimiter(plan.layout.end);
    reader->reset();
  }
  FieldModel model(plan.layout, records);

  // Every field takes a column, or it freezes the reader and the step over the boundary takes a record.
  const std::size_t most_steps = 2 * text.size() + 16;
  for (std::size_t i = 0;; ++i) {
    require(i < most_steps, "reading ends");
    require(in.frozen() == model.frozen(), "the reader stops where the data says so");
    if (in.frozen()) {
      const int go_on = in.reset();
      require(repaired.reset() == go_on && model.reset() == (go_on != 0), "all readers come to the same end");
      if (go_on == 0) break;
    }
    const char kind = plan.kinds[i % plan.kinds.size()];
    FieldOutcome outcome = records::read_by_stream(in, kind, fixed_width);
    require(records::read_by_stream(repaired, kind, fixed_width) == outcome,
            "a record that is repaired reads like one that needs no repair");
    const FieldOutcome expected = model.read(kind, fixed_width);
    outcome.codes &= records::field_codes;
    require(model.ended() || outcome == expected, "a field is what the conversions of the C library make of it");
  }
  return 0;
}
