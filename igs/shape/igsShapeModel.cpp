#include "igs/shape/igsShapeModel.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "igs/curves/igs102.h"
#include "igs/curves/igs116.h"
#include "igs/curves/igsPointset.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile.h"
#include "igs/objects/igsAnnotation.h"
#include "igs/objects/igsCast.h"
#include "igs/objects/igsCurve.h"
#include "igs/objects/igsSurface.h"
#include "igs/shape/private/igsFieldsOf.h"
#include "igs/shape/private/igsIsBlanked.h"
#include "igs/shape/private/igsPlacedShapes.h"
#include "igs/shape/private/igsSheets.h"
#include "igs/shape/private/igsVecOf.h"
#include "igs/solids/igs186.h"
#include "igs/solids/igs502.h"
#include "igs/solids/igs504.h"
#include "igs/solids/igs508.h"
#include "igs/solids/igs510.h"
#include "igs/solids/igs514.h"
#include "igs/structure/igs308.h"
#include "igs/structure/igs408.h"
#include "igs/surfaces/igs108.h"
#include "igs/surfaces/igs141.h"
#include "igs/surfaces/igs142.h"
#include "igs/surfaces/igs143.h"
#include "igs/surfaces/igs144.h"

namespace {
constexpr int used_for_annotation = 1, used_for_definition = 2;
constexpr std::size_t deepest_composite = 8;
// Of what instances place, and of the loops and pieces of all faces.
constexpr std::int64_t things_per_entity = 16, things_always = 10'000;
constexpr std::int64_t breaks_per_piece = 16;  // of a shape that is used again
constexpr std::int64_t boundaries_per_entity = 64, boundaries_always = 100'000;

int entity_use(const igsObject& entity) { return entity.directory_entry().status_flags().entity_use(); }

bool is_mark(const igsObject& entity) {
  return entity.typeof(igsAnnotation::type()) || entity.typeof(igs116::type()) || entity.typeof(igsPointset::type());
}

igsVec3 vertex_of(const igsObjectPtr& list, int position) {
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  const auto* const vertices = igs_cast<igs502>(list.object());
  return vertices != nullptr ? igs_vec_of(vertices->vertex(position)) : igsVec3{none, none, none};
}

/// Into the space of a subfigure instance from that of its definition.
igsPlacement placement_of(const igs408& instance) {
  const igsVec3 moved = igs_vec_of(instance.translation());
  const double scale = instance.scale();
  return igsPlacement::of(instance) * igsPlacement(std::isfinite(scale) && scale != igs_undefined_real ? scale : 1,
                                                   moved.is_finite() ? moved : igsVec3{});
}

bool is_always_unbounded(const igsObject& surface) {
  const igsEntityType type = surface.directory_entry().entity_type();
  return type == igsEntity190 || type == igsEntity192 || type == igsEntity194;
}

/// Bounded by a curve, and not the rest of the plane.
bool is_region(const igs108& plane) { return plane.directory_entry().form_number() == 1 && plane.boundary(); }

bool is_vertex(const igsOrientedEdge& use) {
  return use.edge_type() == 1 || igs_cast<igs502>(use.list().object()) != nullptr;
}

std::int64_t num_faces(const igsObjectPtr& shell) {
  const auto* const faces = igs_cast<igs514>(shell.object());
  return faces != nullptr ? faces->number_of_faces() : 0;
}

/// About how much a member of a subfigure places.
std::int64_t size_of(const igsObject& entity) {
  if (const auto* const solid = igs_cast<igs186>(&entity)) {
    std::int64_t size = 1 + num_faces(solid->outer_shell().shell());
    for (const igsOrientedShell& shell : solid->void_shells()) size += num_faces(shell.shell());
    return size;
  }
  const auto* const shell = igs_cast<igs514>(&entity);
  return shell != nullptr ? 1 + shell->number_of_faces() : 1;
}
}  // namespace

/// The entities that others are made of. Groups, drawings, views and properties only name what they show.
class igsEntitiesInUse {
 public:
  explicit igsEntitiesInUse(const igsFile& file) {
    for (igsFileIT it(&file); ++it != 0;) {
      const igsEntityType type = it()->directory_entry().entity_type();
      const bool is_subfigure = type == igsEntity308;
      if (type >= igsEntity402 && type <= igsEntity416) continue;
      for (const igsObject* target : igsFieldsOf(*it()).targets)
        add(*target, is_subfigure ? m_by_subfigures : m_by_others);
    }
  }

  /// By anything but a subfigure definition.
  bool is_part(const igsObject& entity) const { return contains(m_by_others, entity); }
  bool is_member(const igsObject& entity) const { return contains(m_by_subfigures, entity); }

 private:
  static std::size_t slot(const igsObject& entity) { return static_cast<std::size_t>(entity.de_number() / 2); }
  static bool contains(const std::vector<bool>& users, const igsObject& entity) {
    return slot(entity) < users.size() && users[slot(entity)];
  }
  static void add(const igsObject& entity, std::vector<bool>& users) {
    if (slot(entity) >= users.size()) users.resize(2 * slot(entity) + 1);
    users[slot(entity)] = true;
  }

  std::vector<bool> m_by_subfigures, m_by_others;  ///< by slot
};

class igsShapeModelMaker {
 public:
  igsShapeModelMaker(const igsFile& file, igsShapes& shapes, const igsShapeModelOptions& options, igsShapeModel& model)
      : m_model(model),
        m_options(options),
        m_in_use(file),
        m_sheets(file),
        m_shapes(shapes),
        m_placed_left(things_per_entity * file.num_entities() + things_always),
        m_pieces_left(boundaries_per_entity * file.num_entities() + boundaries_always) {
    m_used_shapes.reserve(static_cast<std::size_t>(file.num_entities()));
    for (igsFileIT it(&file); ++it != 0;) add_root(*it());
    std::vector<int>& left_out = m_model.m_left_out;
    std::sort(left_out.begin(), left_out.end());
    left_out.erase(std::unique(left_out.begin(), left_out.end()), left_out.end());
  }

 private:
  /// Where an entity stands, and what it takes over from what it is part of. Within one context an edge of a list is
  /// one edge.
  struct Place {
    igsPlacement placement;
    int context = 0;
    const igsObject* instance = nullptr;  ///< the outermost igs408
    bool is_blanked = false;
    bool is_annotation = false;
    bool is_on_sheet = false;
  };
  struct Subfigure {
    const igs308* definition;
    std::size_t next;
    Place place;
  };
  struct Composite {
    const igs102* curve;
    std::size_t next;
    igsPlacement placement;
  };
  using Pieces = std::vector<igsShapePiece>;
  struct EdgeKey {
    int context;
    const igs504* list;
    int position;
    bool operator==(const EdgeKey&) const = default;

    struct Hash {
      std::size_t operator()(const EdgeKey& key) const {
        constexpr std::size_t spread = 0x9E3779B9;
        const auto own = static_cast<std::size_t>(key.context) * spread + static_cast<std::size_t>(key.position);
        return own * spread + std::hash<const igs504*>()(key.list);
      }
    };
  };

  void add_root(const igsObject& entity);
  void add(const igsObject& entity, const Place& outside);
  bool is_shown(const igsObject& entity) const;
  Place place_of_root(const igsObject& entity) const;

  void place_instance(const igs408& root, Place place);
  void open(const igs408& instance, const Place& outside);
  bool place_member(const igsObject* member, const Place& place);

  void add_solid(const igs186& solid, Place place);
  void add_shell(igsShapeShell shell, bool is_reversed, const Place& place);
  void add_surface(const igsObject& entity, const Place& place);
  void add_wire(const igsObject& entity, const Place& place);
  void add_mark(const igsObject& entity, const Place& place);
  void add_face(const igsObject& entity, const Place& outside, int shell = -1, bool is_reversed = false);

  void bound(igsShapeFace& face, const igs144& entity);
  void bound(igsShapeFace& face, const igs143& entity);
  void bound(igsShapeFace& face, const igs510& entity, const Place& place);
  igsShapeLoop loop_of(const igs142* curve);
  igsShapeLoop loop_of(const igs141* boundary);
  igsShapeLoop loop_of(const igs508* edges, const Place& place);
  void add_edge(const igsOrientedEdge& use, Pieces& pieces, const Place& place);
  int edge_of(const igs504& list, int position, const Place& place);

  void add_curve(const igsObject* curve, const igsPlacement& placement, bool is_reversed, Pieces& pieces);
  void add_parameter_curve(const igsObject* curve, int model, igsShapeLoop& loop);
  bool step_into(std::vector<Composite>& composites, const igsObject* curve, const igsPlacement& placement,
                 Pieces& pieces);
  igsShapeCurvePtr placed_curve(const igsObject* curve, const igsPlacement& placement);

  Place inside(const Place& place, const igsObject& entity);
  Place moved(Place place, const igsPlacement& own);
  bool may_use(const igsShapeCurvePtr& curve);
  bool may_use(const igsShapeSurfacePtr& surface);
  bool may_use(const void* shape, std::size_t num_breaks);
  bool may_draw(const igsObject& mark);
  bool may_add_piece() { return m_pieces_left > 0 && --m_pieces_left > 0; }
  void leave_out(const igsObject& entity) { m_model.m_left_out.push_back(entity.de_number()); }

  igsShapeModel& m_model;
  const igsShapeModelOptions m_options;
  igsEntitiesInUse m_in_use;
  igsSheets m_sheets;
  igsShapes& m_shapes;
  std::int64_t m_placed_left, m_pieces_left;
  int m_num_contexts = 1;
  std::unordered_set<const void*> m_used_shapes;
  std::unordered_map<const igsObject*, std::size_t> m_mark_sizes;  ///< of marks and of what they consist of
  std::vector<Subfigure> m_open;
  std::unordered_set<const igs308*> m_open_definitions;
  std::unordered_map<EdgeKey, int, EdgeKey::Hash> m_edges;
};

igsShapeModel::igsShapeModel(const igsFile& file) {
  igsShapes shapes(file);
  igsShapeModelMaker(file, shapes, {}, *this);
}

igsShapeModel::igsShapeModel(const igsFile& file, igsShapes& shapes, const igsShapeModelOptions& options) {
  igsShapeModelMaker(file, shapes, options, *this);
}

void igsShapeModelMaker::add_root(const igsObject& entity) {
  if (m_in_use.is_part(entity) || m_in_use.is_member(entity) || !is_shown(entity)) return;
  if (entity_use(entity) == used_for_definition) return;
  if (const auto* const instance = igs_cast<igs408>(&entity)) {
    place_instance(*instance, place_of_root(entity));
  } else {
    add(entity, place_of_root(entity));
  }
}

bool igsShapeModelMaker::is_shown(const igsObject& entity) const {
  const int use = entity_use(entity);
  return (m_options.has_blanked || !igs_is_blanked(entity)) && (m_options.has_marks || use != used_for_annotation) &&
         use != igsStatusFlags::use_2d_parametric;
}

igsShapeModelMaker::Place igsShapeModelMaker::place_of_root(const igsObject& entity) const {
  Place place;
  if (!m_options.has_marks) return place;
  if (const std::optional<igsPlacement>* const sheet = m_sheets.sheet_of(entity)) {
    place.placement = sheet->value_or(igsPlacement());
    place.is_on_sheet = !sheet->has_value();
  }
  return place;
}

void igsShapeModelMaker::add(const igsObject& entity, const Place& outside) {
  Place place = outside;
  place.is_blanked |= igs_is_blanked(entity);
  place.is_annotation |= entity_use(entity) == used_for_annotation;
  if (is_mark(entity)) {
    if (m_options.has_marks) add_mark(entity, place);
  } else if (entity.typeof(igsCurve::type()) || entity.typeof(igs142::type())) {
    add_wire(entity, place);
  } else if (place.is_annotation) {
    return;
  } else if (const auto* const solid = igs_cast<igs186>(&entity)) {
    add_solid(*solid, place);
  } else if (entity.typeof(igs514::type())) {
    add_shell({.entity = &entity}, false, place);
  } else if (entity.typeof(igs144::type()) || entity.typeof(igs143::type()) || entity.typeof(igs510::type())) {
    add_face(entity, place);
  } else if (entity.typeof(igsSurface::type())) {
    add_surface(entity, place);
  }
}

// Instances within instances, with a stack of their own. What goes round in circles is entered once.
void igsShapeModelMaker::place_instance(const igs408& root, Place place) {
  m_open.clear();
  m_open_definitions.clear();
  place.instance = &root;
  open(root, place);
  while (!m_open.empty()) {
    Subfigure& last = m_open.back();
    if (last.next == last.definition->entities().size()) {
      m_open_definitions.erase(last.definition);
      m_open.pop_back();
    } else if (!place_member(last.definition->entities()[last.next++].object(), Place(last.place))) {
      leave_out(root);
      return;
    }
  }
}

void igsShapeModelMaker::open(const igs408& instance, const Place& outside) {
  const auto* const definition = igs_cast<igs308>(instance.subfigure().object());
  if (definition == nullptr || !m_open_definitions.insert(definition).second) return;
  Place place = moved(outside, placement_of(instance));
  place.is_blanked |= igs_is_blanked(instance);
  place.is_annotation |= entity_use(instance) == used_for_annotation;
  m_open.push_back({definition, 0, place});
}

// False when it is too much for the file; nothing more is placed then.
bool igsShapeModelMaker::place_member(const igsObject* member, const Place& place) {
  const bool is_there = member != nullptr && is_shown(*member) && !m_in_use.is_part(*member);
  const std::int64_t size = is_there ? size_of(*member) : 1;
  if (size > m_placed_left) {
    m_placed_left = 0;
    return false;
  }
  m_placed_left -= size;
  if (!is_there) return true;
  if (const auto* const instance = igs_cast<igs408>(member)) {
    open(*instance, place);
  } else {
    add(*member, place);
  }
  return true;
}

void igsShapeModelMaker::add_solid(const igs186& solid, Place place) {
  place = moved(place, igsPlacement::of(solid));
  const auto add = [&](const igsOrientedShell& shell, bool is_void) {
    add_shell({.entity = shell.shell().object(), .solid = &solid, .is_void = is_void}, shell.orientation() == 0, place);
  };
  add(solid.outer_shell(), false);
  for (const igsOrientedShell& shell : solid.void_shells()) add(shell, true);
}

void igsShapeModelMaker::add_shell(igsShapeShell shell, bool is_reversed, const Place& place) {
  const auto* const entity = igs_cast<igs514>(shell.entity);
  if (entity == nullptr || (igs_is_blanked(*entity) && !m_options.has_blanked)) return;
  Place within = inside(place, *entity);
  within.is_blanked |= igs_is_blanked(*entity);
  shell.first_face = m_model.m_faces.size();
  for (const igsOrientedFace& face : entity->faces()) {
    if (!face.face()) continue;
    add_face(*face.face().object(), within, static_cast<int>(m_model.m_shells.size()),
             (face.orientation() == 0) != is_reversed);
  }
  shell.end_face = m_model.m_faces.size();
  m_model.m_shells.push_back(shell);
}

// The matrix of a surface is in its shape.
void igsShapeModelMaker::add_surface(const igsObject& entity, const Place& place) {
  const auto* const plane = igs_cast<igs108>(&entity);
  if (is_always_unbounded(entity) || (plane != nullptr && !is_region(*plane))) return;
  igsShapeFace face;
  face.entity = &entity;
  face.surface = m_shapes.surface(&entity);
  face.placement = place.placement;
  face.instance = place.instance;
  face.is_blanked = place.is_blanked;
  if (plane != nullptr) {
    face.has_outer_loop = true;
    face.loops.emplace_back().entity = plane->boundary().object();
    face.loops.back().prefers_model = true;
    add_curve(plane->boundary().object(), igsPlacement::of(entity), false, face.loops.back().model);
  } else {
    face.is_bounded_by_surface = true;
    if (face.surface != nullptr && !face.surface->is_finite()) return;
  }
  if (!may_use(face.surface)) return leave_out(entity);
  m_model.m_faces.push_back(std::move(face));
}

void igsShapeModelMaker::add_wire(const igsObject& entity, const Place& place) {
  const igsShapeCurvePtr curve = m_shapes.curve(&entity);
  if (!may_use(curve)) return leave_out(entity);
  if (curve != nullptr && !curve->range().is_finite()) return;
  m_model.m_wires.push_back(
      {&entity, curve, place.placement, place.instance, place.is_blanked, place.is_annotation, place.is_on_sheet});
}

void igsShapeModelMaker::add_mark(const igsObject& entity, const Place& place) {
  if (!may_draw(entity)) return leave_out(entity);
  m_model.m_marks.push_back({&entity, place.placement, place.instance, place.is_blanked, place.is_on_sheet});
}

void igsShapeModelMaker::add_face(const igsObject& entity, const Place& outside, int shell, bool is_reversed) {
  if (!may_add_piece()) return leave_out(entity);
  const Place place = inside(outside, entity);
  igsShapeFace face;
  face.entity = &entity;
  face.placement = place.placement;
  face.shell = shell;
  face.is_reversed = is_reversed;
  face.instance = place.instance;
  face.is_blanked = place.is_blanked;
  if (const auto* const trimmed = igs_cast<igs144>(&entity)) bound(face, *trimmed);
  if (const auto* const bounded = igs_cast<igs143>(&entity)) bound(face, *bounded);
  if (const auto* const of_solid = igs_cast<igs510>(&entity)) bound(face, *of_solid, place);
  if (!may_use(face.surface) || m_pieces_left <= 0) {
    leave_out(entity);
    face.surface = nullptr;
    face.loops.clear();
  }
  m_model.m_faces.push_back(std::move(face));
}

void igsShapeModelMaker::bound(igsShapeFace& face, const igs144& entity) {
  face.surface = m_shapes.surface(entity.surface().object());
  face.has_outer_loop = entity.outer_boundary_flag() != 0 || entity.outer_boundary();
  face.is_bounded_by_surface = !face.has_outer_loop;
  if (face.has_outer_loop) face.loops.push_back(loop_of(igs_cast<igs142>(entity.outer_boundary().object())));
  for (const igsObjectPtr& inner : entity.inner_boundaries()) {
    if (!may_add_piece()) return;
    face.loops.push_back(loop_of(igs_cast<igs142>(inner.object())));
  }
}

void igsShapeModelMaker::bound(igsShapeFace& face, const igs143& entity) {
  face.surface = m_shapes.surface(entity.basis_surface().object());
  for (const igsObjectPtr& boundary : entity.boundaries()) {
    if (!may_add_piece()) return;
    face.loops.push_back(loop_of(igs_cast<igs141>(boundary.object())));
  }
}

void igsShapeModelMaker::bound(igsShapeFace& face, const igs510& entity, const Place& place) {
  face.surface = m_shapes.surface(entity.surface().object());
  face.has_outer_loop = entity.outer_loop_flag() == 1;
  for (int i = 0; i < entity.number_of_loops(); ++i) {
    if (!may_add_piece()) return;
    face.loops.push_back(loop_of(igs_cast<igs508>(entity.loop(i).object()), place));
  }
}

igsShapeLoop igsShapeModelMaker::loop_of(const igs142* curve) {
  igsShapeLoop loop;
  loop.entity = curve;
  if (curve == nullptr) return loop;
  if (curve->curve_3d()) add_curve(curve->curve_3d().object(), igsPlacement::of(*curve), false, loop.model);
  if (curve->curve_2d()) add_parameter_curve(curve->curve_2d().object(), -1, loop);
  loop.prefers_model = !loop.model.empty() && (curve->preferred_representation() == 2 || loop.parameter.empty());
  return loop;
}

igsShapeLoop igsShapeModelMaker::loop_of(const igs141* boundary) {
  igsShapeLoop loop;
  loop.entity = boundary;
  if (boundary == nullptr) return loop;
  const igsPlacement placement = igsPlacement::of(*boundary);
  for (const igsModelSpaceCurve& curve : boundary->model_space_curves()) {
    if (!may_add_piece()) break;
    const std::size_t first = loop.model.size();
    add_curve(curve.curve().object(), placement, curve.sense() == igsModelSpaceCurve::reversed, loop.model);
    const int model = loop.model.size() == first + 1 ? static_cast<int>(first) : -1;
    for (const igsObjectPtr& image : curve.parameter_curves()) add_parameter_curve(image.object(), model, loop);
  }
  loop.prefers_model = !loop.model.empty() && (boundary->preferred_representation() == 1 || loop.parameter.empty());
  return loop;
}

igsShapeLoop igsShapeModelMaker::loop_of(const igs508* edges, const Place& place) {
  igsShapeLoop loop;
  loop.entity = edges;
  if (edges == nullptr) return loop;
  for (const igsOrientedEdge& use : edges->oriented_edges()) {
    if (!may_add_piece()) break;
    const std::size_t first = loop.model.size();
    if (!is_vertex(use)) add_edge(use, loop.model, place);
    const int model = loop.model.size() > first ? static_cast<int>(first) : -1;
    for (const igsHalfEdge& half : use.half_edges()) add_parameter_curve(half.curve().object(), model, loop);
  }
  loop.prefers_model = !loop.model.empty();
  return loop;
}

void igsShapeModelMaker::add_edge(const igsOrientedEdge& use, Pieces& pieces, const Place& place) {
  igsShapePiece& piece = pieces.emplace_back();
  const auto* const list = igs_cast<igs504>(use.list().object());
  if (list == nullptr || use.index() < 0 || use.index() >= list->number_of_edges()) return;
  piece.edge = edge_of(*list, use.index(), place);
  igsShapeEdge& edge = m_model.m_edges[static_cast<std::size_t>(piece.edge)];
  edge.faces.push_back(static_cast<int>(m_model.m_faces.size()));
  piece.curve = edge.curve;
  piece.entity = edge.curve_entity;
  piece.is_reversed = use.orientation() == 0;
}

int igsShapeModelMaker::edge_of(const igs504& list, int position, const Place& place) {
  const int next = static_cast<int>(m_model.m_edges.size());
  const auto [found, is_new] = m_edges.try_emplace({place.context, &list, position}, next);
  if (!is_new) return found->second;
  const igsEdge& source = list.edge(position);
  igsShapeEdge& edge = m_model.m_edges.emplace_back();
  edge.list = &list;
  edge.position = position;
  edge.curve = m_shapes.curve(source.curve().object());
  if (!may_use(edge.curve)) edge.curve = nullptr;
  edge.curve_entity = source.curve().object();
  edge.first = vertex_of(source.first_list(), source.first_offset());
  edge.second = vertex_of(source.second_list(), source.second_offset());
  edge.placement = place.placement;
  return next;
}

void igsShapeModelMaker::add_parameter_curve(const igsObject* curve, int model, igsShapeLoop& loop) {
  const std::size_t first = loop.parameter.size();
  add_curve(curve, igsPlacement(), false, loop.parameter);
  for (std::size_t i = first; i < loop.parameter.size(); ++i) loop.parameter[i].model = model;
}

void igsShapeModelMaker::add_curve(const igsObject* curve, const igsPlacement& placement, bool is_reversed,
                                   Pieces& pieces) {
  const auto first = static_cast<std::ptrdiff_t>(pieces.size());
  std::vector<Composite> composites;
  bool goes_on = step_into(composites, curve, placement, pieces);
  while (goes_on && !composites.empty()) {
    Composite& last = composites.back();
    if (last.next == last.curve->sub_curves().size()) {
      composites.pop_back();
    } else {
      const igsPlacement within = last.placement;
      goes_on = step_into(composites, last.curve->sub_curves()[last.next++].object(), within, pieces);
    }
  }
  if (!is_reversed) return;
  std::reverse(pieces.begin() + first, pieces.end());
  std::for_each(pieces.begin() + first, pieces.end(), [](igsShapePiece& piece) { piece.is_reversed = true; });
}

// False when there are too many pieces for the file. Points among the members of a composite curve are no pieces.
bool igsShapeModelMaker::step_into(std::vector<Composite>& composites, const igsObject* curve,
                                   const igsPlacement& placement, Pieces& pieces) {
  if (!may_add_piece()) return false;
  const auto* const composite = igs_cast<igs102>(curve);
  const bool is_open = std::any_of(composites.begin(), composites.end(),
                                   [&](const Composite& outer) { return outer.curve == composite; });
  if (composite != nullptr && !is_open && composites.size() < deepest_composite) {
    composites.push_back({composite, 0, placement * igsPlacement::of(*composite)});
  } else if (composites.empty() || curve == nullptr || !curve->typeof(igs116::type())) {
    pieces.push_back({.curve = composite == nullptr ? placed_curve(curve, placement) : nullptr, .entity = curve});
  }
  return true;
}

igsShapeCurvePtr igsShapeModelMaker::placed_curve(const igsObject* curve, const igsPlacement& placement) {
  igsShapeCurvePtr shape = m_shapes.curve(curve);
  if (!may_use(shape)) return nullptr;
  if (shape == nullptr || placement.is_identity()) return shape;
  return m_shapes.may_add(shape->breaks().size()) ? igs_placed(std::move(shape), placement) : nullptr;
}

bool igsShapeModelMaker::may_use(const igsShapeCurvePtr& curve) {
  return curve == nullptr || may_use(curve.get(), curve->breaks().size());
}

bool igsShapeModelMaker::may_use(const igsShapeSurfacePtr& surface) {
  return surface == nullptr || may_use(surface.get(), surface->u().breaks.size() + surface->v().breaks.size());
}

// A shape that is used once is in proportion to the file; long ones cannot be used again and again.
bool igsShapeModelMaker::may_use(const void* shape, std::size_t num_breaks) {
  if (m_used_shapes.insert(shape).second) return true;
  m_pieces_left -= static_cast<std::int64_t>(num_breaks) / breaks_per_piece;
  return m_pieces_left > 0;
}

// A mark and what it consists of are drawn once for each use.
bool igsShapeModelMaker::may_draw(const igsObject& mark) {
  if (m_pieces_left <= 0) return false;
  const igsFieldsOf fields(mark);
  const auto may_use_fields = [&](const igsObject& entity) {
    const auto [found, is_new] = m_mark_sizes.try_emplace(&entity, 0);
    if (is_new) found->second = igsFieldsOf(entity).size;
    return may_use(&entity, found->second);
  };
  return may_use_fields(mark) && std::all_of(fields.targets.begin(), fields.targets.end(),
                                             [&](const igsObject* target) { return may_use_fields(*target); });
}

// What a matrix moves shares no edges with what it does not.
igsShapeModelMaker::Place igsShapeModelMaker::inside(const Place& place, const igsObject& entity) {
  const igsPlacement own = igsPlacement::of(entity);
  return own.is_identity() ? place : moved(place, own);
}

igsShapeModelMaker::Place igsShapeModelMaker::moved(Place place, const igsPlacement& own) {
  place.placement = place.placement * own;
  place.context = m_num_contexts++;
  return place;
}
