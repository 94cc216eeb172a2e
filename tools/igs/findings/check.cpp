#include "findings/check.h"

#include <algorithm>
#include <new>

#include "explain/texts.h"
#include "files/model.h"
#include "findings/place.h"

std::vector<LostEntity> lost_entities(const igsFile& file) {
  std::vector<LostEntity> list;
  for_each_active_error(file.error_log(), [&](igsLogID log, const igsError& error) {
    if (!error.isa(igsFileNoPDData::type()) && !error.isa(igsFileLostDirectoryEntry::type())) return;
    const int de = *de_number(error), type = file.dropped_type(de);
    list.push_back({de, type != 0 ? std::optional(type) : std::nullopt, line_of(file, log, error), sentence_of(error)});
  });
  std::stable_sort(list.begin(), list.end(), [](const LostEntity& a, const LostEntity& b) { return a.line < b.line; });
  return list;
}

std::string what_is_missing(const Model& model) {
  std::string missing = model.read_error();
  for_each_active_error(model.file().error_log(), [&](igsLogID, const igsError& error) {
    const bool is_whole = !error.isa(igsFileMissingSection::type()) && !error.isa(igsFileSecondFile::type());
    if (missing.empty() && !is_whole) missing = "not whole: " + sentence_of(error);
  });
  return missing;
}

void check_faults(igsFile& file) {
  igsSimpleSectionLog& log = file.error_log().structure_log();
  igsSimpleSectionLogIT errors(log);
  while (++errors != 0) {
    const ErrorText* const text = find_error_text(errors()->objtype().name());
    if (text != nullptr && text->repair_kind == RepairKind::writing) log.mark_as_fixed(errors());
  }
  file.check();
  if (file.out_of_memory()) throw std::bad_alloc();
}

int check_geometry(igsFile& file, const std::optional<igsShapeCheckOptions>& options) {
  return options ? igsShapeCheck(file, *options) : 0;
}
