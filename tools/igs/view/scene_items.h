#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "view/scene.h"
#include "view/scene_entities.h"

/// What is known of an item beside what the scene has.
struct ItemOrigin {
  const igsObject* entity = nullptr;
  const igsObject* instance = nullptr;  ///< the outermost igs408 that places it; null where there is none
  int shell = -1;                       ///< 0-based, in igsShapeModel::shells(); -1 for what is in none
};

/// Makes the items of a file. Those of the faces come first, in the order of the model, with or without triangles.
class SceneItems {
 public:
  SceneItems(const igsFile& file, const SceneOptions& options, SceneEntities& entities, Scene& scene);

  const igsShapeModel& model() const { return m_model; }
  const std::vector<ItemOrigin>& origins() const { return m_origins; }
  /// Entities beside those of the items, with an item in which one sees them: surfaces with faces, loops with edges.
  const std::vector<std::pair<const igsObject*, int>>& seen_in() const { return m_seen_in; }

 private:
  using Line = std::vector<igsVec3>;

  int add_item(ItemKind kind, const igsObject& entity, const igsObject* instance, bool is_off);
  SceneItem& item(int number) { return m_scene.items[static_cast<std::size_t>(number)]; }
  void add_faces();
  void add_shared_edges();
  void add_loose_edges();
  int add_loose_edge(int face, const igsShapeCurvePtr& curve, const igsObject* entity);
  void add_loop(int face, const igsShapeLoop& loop);
  void add_boundaries(int face);
  void add_wires();
  void add_marks();
  void add_mark(const igsShapeMark& mark);
  igsShapeTolerance tolerance_of_lines(ItemKind kind) const;
  void add_line(const igsShapeCurve& curve, const igsPlacement& placement, int number);
  void see(const igsObject* entity, int item);
  void drop_undrawable();
  void thin_out_lines();
  void add_remarks();
  void find_box();

  const SceneOptions& m_options;
  SceneEntities& m_entities;
  Scene& m_scene;
  igsShapes m_shapes;
  igsShapeModel m_model;
  std::vector<igsShapeMesh> m_meshes;
  std::vector<int> m_unmeshed;  ///< DE numbers of faces
  std::vector<ItemOrigin> m_origins;
  std::vector<std::pair<const igsObject*, int>> m_seen_in;
  std::vector<int> m_edge_items;   ///< by edge of the model; -1 for one that has no curve
  std::size_t m_line_points_left;  ///< before curves are followed less closely
};
