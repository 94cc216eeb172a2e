#include "igs/structure/igs404.h"

#include "igs/fields/igsEntityFields.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/structure/igs404_errors.h"
#include "igs/structure/igs410_0.h"

igs404::igs404() { set_directory_entry_type(igsEntity404, 0); }

void igs404::set_views(std::vector<igs404View> views) {
  m_views.elements() = std::move(views);
  m_views.restart_index();
}

void igs404::drop_null_views(int original) {
  m_views.purge(original, [](const igs404View& view) { return view.view().object() != nullptr; });
}

bool igs404::has_turned_views() const { return directory_entry().form_number() == 1; }

// The views first: the repair of the members waits until no other fault is left.
void igs404::check_pd() const {
  using MemberTest = igsReferenceTest<igs404NullEntityPointer, igs404NullEntityPointer, igs404BadEntityPointer>;
  using ViewTest = igsReferenceTest<igs404NullViewPointer, igs404InvalidViewPointer, igs404BadViewPointer>;
  m_views.restart_index();
  restart_index();
  for (int i = 0; const igs404View& view : views()) {
    ViewTest::check(*this, view.view(), igsExactly<igs410_0>(), i);
    if (view.origin().is_undefined()) tag<igs404InvalidOrigin>(i);
    ++i;
  }
  for (int i = 0; const igsObjectPtr& member : entities())
    MemberTest::check(*this, member, igsKindOf<igsObject>(), i++);
}

// The pointers themselves, whichever form the fields have.
void igs404::visit_pointers(igsPointerVisitor& visitor) {
  igsFieldPointers pointers(visitor);
  for (igs404View& view : m_views.elements()) igs404View::fields(view, pointers);
  entity_list(*this, pointers, 0, igsBadCount<igs404BadNumEntities>());
}
