#include "files/with_file.h"

#include <exception>
#include <new>

#include "files/complaints.h"

Tally with_file(const std::string& name, const FileWork& work) {
  try {
    Model model(name);
    const std::string error = model.open_error();
    return error.empty() ? work.handle(model) : failed(name, error, work);
  } catch (const std::bad_alloc&) {
    return failed(name, "out of memory", work);
  } catch (const std::exception& exception) {
    return failed(name, exception.what(), work);
  }
}

Tally failed(const std::string& name, const std::string& reason, const FileWork& work) {
  complain(name, reason);
  if (work.failure) work.failure(name, reason);
  return {.status = exit_failed, .failure = reason};
}

Tally tally_of(const Model& model, long long entities, long long errors) {
  const std::string failure = model.read_error();
  if (!failure.empty()) complain(model.name(), failure);
  const int status = errors > 0 ? exit_errors : exit_clean;
  return {failure.empty() ? status : exit_failed, entities, errors, failure};
}
