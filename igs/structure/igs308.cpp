#include "igs/structure/igs308.h"

#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/structure/igs308_errors.h"

namespace {
using MemberTest = igsReferenceTest<igs308NullGeometryPointer, igs308NullGeometryPointer, igs308BadSubEntity>;
}  // namespace

igs308::igs308() { set_directory_entry_type(igsEntity308, 0); }

// The depth first: the repair of the members waits until no other fault is left.
void igs308::check_pd() const {
  restart_index();
  if (m_depth < 0) tag<igs308InvalidDepth>(m_depth);
  for (int i = 0; const igsObjectPtr& member : entities())
    MemberTest::check(*this, member, igsKindOf<igsObject>(), i++);
}
