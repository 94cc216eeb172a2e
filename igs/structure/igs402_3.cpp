#include "igs/structure/igs402_3.h"

#include "igs/fields/igsEntityFields.h"
#include "igs/structure/igs402_3_errors.h"
#include "igs/structure/igs410_0.h"

namespace {
using ViewTest = igsReferenceTest<igs402_3NullView, igs402_3WrongViewType, igs402_3InvalidView>;
}  // namespace

igs402_3::igs402_3() { set_directory_entry_type(igsEntity402, 3); }

void igs402_3::drop_unusable_views(int original) {
  m_views.purge(original, [](const igsObjectPtr& view) {
    return view.object() != nullptr && igsExactly<igs410_0>()(*view.object());
  });
}

void igs402_3::check_pd() const {
  m_views.restart_index();
  restart_index();
  if (views().empty()) tag<igs402_3NoViews>();
  for (int i = 0; const igsObjectPtr& view : views()) ViewTest::check(*this, view, igsExactly<igs410_0>(), i++);
  for (int i = 0; const igsObjectPtr& member : entities()) {
    if (member.object() == nullptr) tag<igs402_3NullEntity>(i);
    ++i;
  }
}
