#pragma once

#include "view/scene.h"
#include "view/scene_entities.h"
#include "view/scene_items.h"

/// What a file shows, without its findings. The file must outlive it.
class SceneMaker {
 public:
  SceneMaker(const Model& model, const SceneOptions& options);
  SceneMaker(const SceneMaker&) = delete;
  SceneMaker& operator=(const SceneMaker&) = delete;
  ~SceneMaker() = default;

  Scene& scene() { return m_scene; }
  const Scene& scene() const { return m_scene; }
  SceneEntities& entities() { return m_entities; }
  const SceneItems& items() const { return m_items; }

 private:
  Scene m_scene;  // the others add to it
  SceneEntities m_entities;
  SceneItems m_items;
};
