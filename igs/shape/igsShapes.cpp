#include "igs/shape/igsShapes.h"

#include <algorithm>
#include <utility>

#include "igs/curves/igs100.h"
#include "igs/curves/igs102.h"
#include "igs/curves/igs104.h"
#include "igs/curves/igs110.h"
#include "igs/curves/igs112.h"
#include "igs/curves/igs126.h"
#include "igs/curves/igs130.h"
#include "igs/curves/igsPointset.h"
#include "igs/curves/igsPolyline.h"
#include "igs/curves/igsSimpleClosedPlanarCurve.h"
#include "igs/file/igsFile.h"
#include "igs/objects/igsCast.h"
#include "igs/shape/igsPlacement.h"
#include "igs/shape/private/igsPlacedShapes.h"
#include "igs/shape/private/igsShapeMakers.h"
#include "igs/solids/igs510.h"
#include "igs/surfaces/igs108.h"
#include "igs/surfaces/igs114.h"
#include "igs/surfaces/igs118.h"
#include "igs/surfaces/igs120.h"
#include "igs/surfaces/igs122.h"
#include "igs/surfaces/igs128.h"
#include "igs/surfaces/igs140.h"
#include "igs/surfaces/igs141.h"
#include "igs/surfaces/igs142.h"
#include "igs/surfaces/igs143.h"
#include "igs/surfaces/igs144.h"
#include "igs/surfaces/igs190.h"
#include "igs/surfaces/igs192.h"
#include "igs/surfaces/igs194.h"
#include "igs/surfaces/igs196.h"
#include "igs/surfaces/igs198.h"

namespace {
// Each level may ask for two shapes: evaluation takes at most 2^8 steps.
constexpr int most_levels = 8;
// References are followed farther than that, so that it does not depend on the order in which shapes are asked for.
constexpr int longest_chain_of_shapes = 64;
constexpr std::int64_t pieces_always = 100'000, uses_of_each_piece = 16;

template <class Shape>
struct Maker {
  const kluTypeInfo& (*type)();
  Shape (*make)(const igsObject& entity, igsShapes& shapes);
};

template <class Shape, class Entity>
constexpr Maker<Shape> maker_of{&Entity::type, [](const igsObject& entity, igsShapes& shapes) {
                                  return igs_make_shape(static_cast<const Entity&>(entity), shapes);
                                }};
template <class Entity>
constexpr auto curve_of = maker_of<igsShapeCurvePtr, Entity>;
template <class Entity>
constexpr auto surface_of = maker_of<igsShapeSurfacePtr, Entity>;

constexpr Maker<igsShapeCurvePtr> curve_makers[] = {
    curve_of<igs100>,      curve_of<igs102>,      curve_of<igs104>,
    curve_of<igsPointset>, curve_of<igsPolyline>, curve_of<igsSimpleClosedPlanarCurve>,
    curve_of<igs110>,      curve_of<igs112>,      curve_of<igs126>,
    curve_of<igs130>,      curve_of<igs141>,      curve_of<igs142>,
};

constexpr Maker<igsShapeSurfacePtr> surface_makers[] = {
    surface_of<igs108>,   surface_of<igs114>,   surface_of<igs118>,   surface_of<igs120>,   surface_of<igs122>,
    surface_of<igs128>,   surface_of<igs140>,   surface_of<igs143>,   surface_of<igs144>,   surface_of<igs190_0>,
    surface_of<igs190_1>, surface_of<igs192_0>, surface_of<igs192_1>, surface_of<igs194_0>, surface_of<igs194_1>,
    surface_of<igs196_0>, surface_of<igs196_1>, surface_of<igs198_0>, surface_of<igs198_1>, surface_of<igs510>,
};

template <class Shape, std::size_t N>
Shape make_placed(const Maker<Shape> (&makers)[N], const igsObject& entity, igsShapes& shapes) {
  const auto maker =
      std::find_if(makers, makers + N, [&](const Maker<Shape>& row) { return entity.typeof(row.type()); });
  if (maker == makers + N) return nullptr;
  return igs_placed(maker->make(entity, shapes), igsPlacement::of(entity));
}
}  // namespace

igsShapes::igsShapes(const igsFile& file)
    : m_pieces_left(std::max(pieces_always, uses_of_each_piece * file.num_entities())) {
  m_curves.reserve(static_cast<std::size_t>(file.num_entities()));
}

bool igsShapes::may_add(std::size_t pieces) {
  m_has_asked = true;
  if (static_cast<std::int64_t>(pieces) > m_pieces_left) return false;
  m_pieces_left -= static_cast<std::int64_t>(pieces);
  return true;
}

// While an entity's shape is made it stands as null, which ends circles.
template <class Shape, class Make>
Shape igsShapes::made_once(std::unordered_map<const igsObject*, Made<Shape>>& shapes, const igsObject* entity,
                           Make make) {
  if (entity == nullptr) return nullptr;
  const auto [found, is_new] = shapes.try_emplace(entity);
  Made<Shape>& known = found->second;
  if (!is_new) {
    m_levels = std::max(m_levels, known.levels);
    return known.shape;
  }
  if (m_depth == longest_chain_of_shapes) {
    shapes.erase(found);
    return nullptr;
  }
  const int levels_outside = std::exchange(m_levels, 0);
  ++m_depth;
  Made<Shape> made{make(*entity), 0};
  --m_depth;
  made.levels = m_levels + 1;
  if (made.levels > most_levels) made.shape = nullptr;
  m_levels = std::max(levels_outside, made.levels);
  return (known = std::move(made)).shape;
}

// What is made of the entity's own data is in proportion to them, and may be used again as often.
igsShapeCurvePtr igsShapes::curve(const igsObject* entity) {
  return made_once(m_curves, entity, [&](const igsObject& object) {
    m_has_asked = false;
    igsShapeCurvePtr shape = make_placed(curve_makers, object, *this);
    if (shape == nullptr) return shape;
    const std::size_t pieces = shape->breaks().size();
    if (!m_has_asked) m_pieces_left += uses_of_each_piece * static_cast<std::int64_t>(pieces);
    return may_add(pieces) ? shape : nullptr;
  });
}

igsShapeSurfacePtr igsShapes::surface(const igsObject* entity) {
  return made_once(m_surfaces, entity, [&](const igsObject& object) {
    m_has_asked = false;
    igsShapeSurfacePtr shape = make_placed(surface_makers, object, *this);
    if (shape != nullptr && !m_has_asked) {
      const std::size_t pieces = shape->u().breaks.size() + shape->v().breaks.size();
      m_pieces_left += uses_of_each_piece * static_cast<std::int64_t>(pieces);
    }
    m_has_asked = true;
    return shape;
  });
}
