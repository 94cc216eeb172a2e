#pragma once

#include <vector>

#include "igs/errors/igsErrorClass.h"

namespace igs_test {

/// What the fixers called, in order.
inline std::vector<int> fix_calls;

/// Counts its instances, notes its fix calls as `name` and answers them with `result`.
template <class Kind, igsName Name>
class RecordedError : public igsTyped<RecordedError<Kind, Name>, Name, Kind> {
 public:
  explicit RecordedError(int name, int result = 1) : name(name), result(result) { ++alive; }
  ~RecordedError() override { --alive; }
  /// A fault logged by entity `key` that concerns entity `obj` (0: itself).
  static RecordedError* create(int key, int name, int obj = 0, int result = 1) {
    auto* const error = new RecordedError(name, result);
    error->set_key(key);
    error->set_obj(obj);
    return error;
  }
  int fix() override { return fix_calls.push_back(name), result; }
  void visit_values(igsErrorValueVisitor& visitor) const override { visitor.value(name); }

  const int name, result;
  static inline int alive = 0;
};

using ObjectFault = RecordedError<igsObjectError, "ObjectFault">;
using StructureFault = RecordedError<igsStructureError, "StructureFault">;
using GlobalFault = RecordedError<igsGlobalError, "GlobalFault">;
using StartFault = RecordedError<igsStartError, "StartFault">;
using TerminateFault = RecordedError<igsTerminateError, "TerminateFault">;
/// An error of none of the five kinds.
using StrayFault = RecordedError<igsError, "StrayFault">;

}  // namespace igs_test
