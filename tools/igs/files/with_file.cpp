#include "files/with_file.h"

#include <exception>
#include <new>

#include "files/complaints.h"

Tally with_file(const std::string& name, const FileWork& work, const Streams& streams) {
  try {
    Model model(name);
    const std::string error = model.open_error();
    return error.empty() ? work.handle(model, streams) : failed(name, error, work, streams);
  } catch (const UnreadableFile& fault) {
    return failed(fault.file, fault.what(), work, streams);
  } catch (const std::bad_alloc&) {
    return failed(name, "out of memory", work, streams);
  } catch (const std::exception& exception) {
    return failed(name, exception.what(), work, streams);
  }
}

Tally failed(const std::string& name, const std::string& reason, const FileWork& work, const Streams& streams) {
  complain(streams.err, name, reason);
  if (work.failure) work.failure(name, reason, streams);
  return {.status = exit_failed, .failure = reason};
}

Tally tally_of(const Model& model, const Streams& streams) {
  const std::string failure = model.read_error();
  if (!failure.empty()) complain(streams.err, model.name(), failure);
  return {.status = failure.empty() ? exit_clean : exit_failed, .failure = failure};
}
