#pragma once

#include "view/scene.h"
#include "view/scene_items.h"

/// Adds the findings of a file, the worst first, with the items that show what they are about.
void add_findings(const Model& model, const Findings& findings, const SceneItems& items, std::size_t most,
                  SceneEntities& entities, Scene& scene);
