#include "view/scene.h"

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <utility>

#include "view/scene_entities.h"
#include "view/scene_findings.h"
#include "view/scene_maker.h"
#include "view/scene_tree.h"

namespace {

/// Lengths of the model are those of the real thing times the model space scale. Where the units are in doubt they
/// count as millimetres.
void set_units(const igsGlobalSection& global, Scene& scene) {
  constexpr igsUnitType millimetre = 2, metre = 6;
  const std::optional<igsUnitType> units = sound_units(global);
  if (units && *units != 0) scene.units = igsUnits::name(*units);
  scene.metres_per_unit = igsUnits::convert_between_units(units && *units != 0 ? *units : millimetre, metre);
  const double scale = global.model_space_scale(), scaled = scene.metres_per_unit / scale;
  if (scale > 0 && std::isfinite(scale) && scaled > 0 && std::isfinite(scaled)) scene.metres_per_unit = scaled;
}

Scene begun_scene(const Model& model) {
  Scene scene;
  scene.title = shown_text(std::filesystem::path(model.name()).filename().string());
  set_units(model.file().global_section(), scene);
  scene.levels = levels_of(model.file());
  for (LevelUse& level : scene.levels) {
    if (level.name) level.name = shown_text(*level.name);
  }
  return scene;
}

}  // namespace

std::size_t Scene::num_triangles() const {
  std::size_t count = 0;
  for (const SceneItem& item : items) count += item.triangles.size();
  return count;
}

std::string hex(std::uint32_t colour) {
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "#%06x", static_cast<unsigned>(colour & 0xffffffU));
  return text.data();
}

std::array<igsVec3, 4> corners_of(const igsShapeText& text) {
  return {text.start, text.start + text.along, text.start + text.along + text.up, text.start + text.up};
}

SceneMaker::SceneMaker(const Model& model, const SceneOptions& options)
    : m_scene(begun_scene(model)),
      m_entities(model.file(), m_scene),
      m_items(model.file(), options, m_entities, m_scene) {
  SceneTree(model.file(), m_items, m_entities, m_scene);
}

Scene make_scene(const Model& model, const Findings& findings, const SceneOptions& options) {
  SceneMaker maker(model, options);
  add_findings(model, findings, maker.items(), options.most_findings, maker.entities(), maker.scene());
  if (options.has_fields) maker.entities().add_fields();
  return std::move(maker.scene());
}
