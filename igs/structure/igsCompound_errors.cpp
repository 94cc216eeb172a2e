#include "igs/structure/igsCompound_errors.h"

#include <utility>
#include <vector>

#include "igs/objects/igsCast.h"
#include "igs/structure/igsCompound.h"

namespace {
bool is_sound(const igsObjectPtr& member) {
  const igsObject* const object = member.object();
  return object != nullptr && object->num_logged_errors() == 0;
}
}  // namespace

int igsCompoundEntityError::obj() {
  if (m_obj != 0) return m_obj;
  const igsCompound* const compound = igs_cast<igsCompound>(object_at_key());
  const int member = compound != nullptr ? compound->get_entity(compound->get_current_index(m_member)).de_number() : 0;
  m_obj = member != 0 ? member : key();
  return m_obj;
}

int igsCompoundEntityError::fix() {
  igsCompound* const compound = igs_cast<igsCompound>(object_at_key());
  if (compound == nullptr) return 0;
  const int count = compound->number_of_entities();
  if (compound->num_logged_errors() > 1 || count <= 0) return 1;

  igsObjectPtrcoDynArr kept;
  std::vector<int> new_position(static_cast<std::size_t>(count), -1);
  for (int i = 0; i < count; ++i) {
    const igsObjectPtr member = compound->get_entity(i);
    if (!is_sound(member)) continue;
    new_position[static_cast<std::size_t>(i)] = static_cast<int>(kept.size());
    kept.push_back(member);
  }
  if (static_cast<int>(kept.size()) == count) return 1;
  for (int i = 0; i < count; ++i) compound->set_index(i, new_position[static_cast<std::size_t>(i)]);
  compound->set_entities(std::move(kept));
  return 1;
}
