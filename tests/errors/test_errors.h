#pragma once

#include <vector>

#include "igs/errors/igsErrorClass.h"

namespace igs_test {

/// What the fixers called, in order.
inline std::vector<int> fix_calls;

/// Counts its instances, notes its fix calls as `name` and answers them with `result`.
template <class Self, igsName Name, class Kind>
class RecordedError : public igsTyped<Self, Name, Kind> {
 public:
  explicit RecordedError(int name, int result = 1) : name(name), result(result) { ++alive; }
  ~RecordedError() override { --alive; }
  int fix() override {
    fix_calls.push_back(name);
    return result;
  }
  void visit_values(igsErrorValueVisitor& visitor) const override { visitor.value(name); }

  const int name;
  const int result;
  static inline int alive = 0;
};

class ObjectFault : public RecordedError<ObjectFault, "ObjectFault", igsObjectError> {
 public:
  using RecordedError::RecordedError;
  /// A fault logged by entity `key` that concerns entity `obj` (0: itself).
  static ObjectFault* create(int key, int name, int obj = 0, int result = 1) {
    auto* error = new ObjectFault(name, result);
    error->set_key(key);
    error->set_obj(obj);
    return error;
  }
};
class StructureFault : public RecordedError<StructureFault, "StructureFault", igsStructureError> {
 public:
  using RecordedError::RecordedError;
};
class GlobalFault : public RecordedError<GlobalFault, "GlobalFault", igsGlobalError> {
 public:
  using RecordedError::RecordedError;
};
class StartFault : public RecordedError<StartFault, "StartFault", igsStartError> {
 public:
  using RecordedError::RecordedError;
};
class TerminateFault : public RecordedError<TerminateFault, "TerminateFault", igsTerminateError> {
 public:
  using RecordedError::RecordedError;
};
/// An error of none of the five kinds.
class StrayFault : public RecordedError<StrayFault, "StrayFault", igsError> {
 public:
  using RecordedError::RecordedError;
};

}  // namespace igs_test
