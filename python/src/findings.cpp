#include "findings.h"

#include <pybind11/stl.h>

#include <limits>
#include <optional>
#include <ostream>
#include <shared_mutex>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "command_line/nearest.h"
#include "explain/texts.h"
#include "findings/check.h"
#include "host.h"
#include "input.h"
#include "repair/repaired_file.h"
#include "report/report.h"
#include "text/pattern.h"

namespace {

constexpr ReportOptions json_of_everything{.format = Format::json,
                                           .max_errors = std::numeric_limits<std::size_t>::max()};

std::string json_of(const Outcome& outcome) {
  std::ostringstream json;
  make_json_report(json_of_everything, json)->outcome(outcome);
  return std::move(json).str();
}

/// Which faults count: patterns to be ignored, those to be heeded alone, and pairs of a pattern and its severity.
FindingRules make_rules(std::vector<std::string> ignored, std::vector<std::string> only,
                        const std::vector<std::pair<std::string, std::string>>& rated) {
  FindingRules rules{std::move(ignored), std::move(only), {}};
  for (const auto& [pattern, name] : rated) {
    std::optional<Severity> found;
    for (const Severity severity : {Severity::note, Severity::warning, Severity::error}) {
      if (name == severity_name(severity)) found = severity;
    }
    if (!found) throw py::value_error("a severity is \"error\", \"warning\" or \"note\", not \"" + name + '"');
    rules.rated.emplace_back(pattern, *found);
  }
  return rules;
}

std::string check(Host& host, const FindingRules& rules, const std::optional<igsShapeCheckOptions>& geometry) {
  Model& model = host.model();
  const py::gil_scoped_release unlocked;
  if (model.has_entities()) {
    check_faults(model.file());
    check_geometry(model.file(), geometry);
  }
  Outcome outcome{.model = model, .found = {model, model.name()}, .failure = model.read_error()};
  outcome.found.findings = Findings::of_check(model.file(), rules);
  outcome.lost = lost_entities(model.file());
  return json_of(outcome);
}

/// Some repairs ask a setting of the process, which must not change while others work.
std::shared_mutex repairs_at_work;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): a lock is one

/// Geometry stays as it is as long as this lives; the one repair at work then.
class GeometryKept {
 public:
  explicit GeometryKept(bool is_kept) : m_is_kept(is_kept) {
    is_kept ? repairs_at_work.lock() : repairs_at_work.lock_shared();
    m_before = kel_resource_table_inquire().value(kelOptRigidTransforms);
    if (is_kept) kel_resource_table_inquire().set_value(kelOptRigidTransforms, false);
  }
  ~GeometryKept() {
    if (m_is_kept) kel_resource_table_inquire().set_value(kelOptRigidTransforms, m_before);
    m_is_kept ? repairs_at_work.unlock() : repairs_at_work.unlock_shared();
  }
  GeometryKept(const GeometryKept&) = delete;
  GeometryKept& operator=(const GeometryKept&) = delete;

 private:
  bool m_is_kept;
  bool m_before = true;
};

struct Repaired {
  std::string json;
  std::string bytes;
  std::string failure;  ///< why nothing is to be written; else empty
};

Repaired repair(const std::string& name, std::string_view bytes, const RepairRules& rules,
                const igsFileOptions& options, bool salvage, bool has_summary) {
  const py::gil_scoped_release unlocked;
  const GeometryKept kept(rules.keep_geometry);
  ViewBuffer buffer(bytes);
  std::istream stream(&buffer);
  Model model(name, OpenStream{stream});
  std::ostream nowhere(nullptr);
  RepairedFile repaired(model, rules, options, has_summary, nowhere);
  repaired.repair();
  Repaired result;
  if (!repaired.what_is_missing().empty() && !(salvage && repaired.can_be_written())) {
    result.failure = repaired.what_is_missing();
  } else {
    result.failure = repaired.write(name);
  }
  Outcome outcome = repaired.outcome();
  outcome.failure = result.failure;
  result.json = json_of(outcome);
  if (result.failure.empty()) result.bytes = repaired.bytes();
  return result;
}

/// The flag of the units of this name; nothing for none. Throws a ValueError where no units are called so.
std::optional<igsUnitType> units_called(const std::optional<std::string>& name) {
  if (!name) return std::nullopt;
  const igsUnitType flag = igsUnits::recognised(*name);
  if (flag == 0) throw py::value_error("no units are called \"" + *name + '"');
  return flag;
}

py::tuple repair_for_python(const std::string& name, const py::bytes& bytes, const igsFileOptions& options,
                            const FindingRules& rules, const std::optional<igsShapeCheckOptions>& geometry,
                            const std::optional<std::string>& units, bool keep_geometry, bool delete_faulty,
                            bool salvage, bool has_summary) {
  const RepairRules repair_rules{rules, keep_geometry, units_called(units), delete_faulty, geometry};
  try {
    const Repaired result = repair(name, bytes, repair_rules, options, salvage, has_summary);
    return py::make_tuple(result.json, result.failure.empty() ? py::object(py::bytes(result.bytes)) : py::none(),
                          result.failure);
  } catch (const UnreadableFile& unreadable) {  // packed data that end early
    throw py::value_error(unreadable.what());
  }
}

py::dict describe(const ErrorText& text) {
  py::dict words;
  words["class_name"] = text.name;
  words["meaning"] = general_sentence(text);
  words["severity"] = severity_words(text);
  words["repair"] = text.repair;
  words["repairable"] = is_repairable(text);
  words["consequence"] = text.is_consequence;
  words["quality_code"] = text.quality_code;
  return words;
}

/// The classes that a pattern fits, in the order of the program's list.
py::list explain(const std::string& pattern) {
  py::list found;
  for (const ErrorText& text : all_error_texts()) {
    if (matches(pattern, text.name)) found.append(describe(text));
  }
  return found;
}

/// For messages: "; did you mean a, b?".
std::string near_classes(const std::string& name) {
  std::vector<std::string_view> known;
  for (const ErrorText& text : all_error_texts()) known.push_back(text.name);
  return suggestion(name, known);
}

}  // namespace

void define_findings(py::module_& module) {
  py::class_<igsShapeCheckOptions>(module, "GeometryChecks",
                                   "From when on geometric faults count. Lengths are model units, angles radians; 0 "
                                   "stands for what follows from the file.")
      .def(py::init([](double tolerance, double least, double tiny, double angle, int degree) {
             return igsShapeCheckOptions{tolerance, least, tiny, angle, degree};
           }),
           py::kw_only(), py::arg("tolerance") = 0, py::arg("least") = 0, py::arg("tiny") = 0, py::arg("angle") = 0,
           py::arg("degree") = 0);
  py::class_<FindingRules>(module, "Rules").def(py::init(&make_rules));
  module.def("check", &check);
  module.def("repair", &repair_for_python);
  module.def("explain", &explain);
  module.def("near_classes", &near_classes);
}
