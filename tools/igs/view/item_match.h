#pragma once

#include <vector>

#include "diff/match.h"
#include "view/scene_maker.h"

/// What became of the items of an old file in a new one.
struct ItemMatch {
  std::vector<int> new_items;                 ///< by old item: the new one that looks the same; -1 where there is none
  std::vector<SceneChange> old_items_become;  ///< by old item: removed, changed, or none where it looks the same
  std::vector<SceneChange> new_items_are;     ///< by new item: added, changed, or none where it looks the same
};

/// Items belong together where their entities match. Both scenes have been made with the same tolerance.
ItemMatch match_items(const SceneMaker& old_file, const SceneMaker& new_file, const EntityMatch& entities);
