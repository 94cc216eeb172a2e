#include "igs/shape/private/igsShownEntities.h"

#include <cstddef>
#include <utility>

#include "igs/objects/igsCast.h"
#include "igs/objects/igsObject.h"
#include "igs/solids/igs508.h"
#include "igs/surfaces/igs141.h"
#include "igs/surfaces/igs142.h"

namespace {
// The list is the queue, too: what an entity refers to is put behind it.
class ShownEntities : public igsPointerVisitor {
 public:
  explicit ShownEntities(const igsShapeModel& model) {
    for (const igsShapeFace& face : model.faces()) add(face.entity, false);
    for (const igsShapeWire& wire : model.wires()) add(wire.entity, false);
    for (std::size_t i = 0; i < m_all.size(); ++i) add_references(m_all[i]);
  }

  void visit(igsObjectPtr& pointer) override { add(pointer.object(), m_is_parametric); }
  std::vector<igsShownEntity>& all() { return m_all; }

 private:
  void add(const igsObject* entity, bool is_parametric) {
    if (entity == nullptr) return;
    const auto slot = static_cast<std::size_t>(entity->de_number() / 2);
    if (slot >= m_is_known.size()) m_is_known.resize(2 * slot + 1);
    if (m_is_known[slot]) return;
    m_is_known[slot] = true;
    m_all.push_back({entity, is_parametric});
  }

  // Curves in parameter space come first, and so are known when the other references are looked at.
  void add_references(igsShownEntity shown) {
    if (const auto* const curve = igs_cast<igs142>(shown.entity)) {
      add(curve->curve_2d().object(), true);
    } else if (const auto* const boundary = igs_cast<igs141>(shown.entity)) {
      for (const igsModelSpaceCurve& piece : boundary->model_space_curves()) {
        for (const igsObjectPtr& image : piece.parameter_curves()) add(image.object(), true);
      }
    } else if (const auto* const loop = igs_cast<igs508>(shown.entity)) {
      for (const igsOrientedEdge& edge : loop->oriented_edges()) {
        for (const igsHalfEdge& half : edge.half_edges()) add(half.curve().object(), true);
      }
    }
    m_is_parametric = shown.is_parametric;
    const_cast<igsObject*>(shown.entity)->visit_pointers(*this);
  }

  std::vector<igsShownEntity> m_all;
  std::vector<bool> m_is_known;  ///< by slot
  bool m_is_parametric = false;
};
}  // namespace

std::vector<igsShownEntity> igs_shown_entities(const igsShapeModel& model) {
  return std::move(ShownEntities(model).all());
}
