#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "igs/igs.h"

// What is in a file, counted.

/// Entities by type and form as the file has them.
using KindCounts = std::map<std::pair<int, int>, int>;

struct EntityCounts {
  explicit EntityCounts(const igsFile& file);

  KindCounts all;
  KindCounts kept;  ///< those of them that have no class
};

struct LevelUse {
  int level;
  std::optional<std::string> name = {};  ///< nothing where the file gives it none
  long long entities = 0;                ///< on this level, among others perhaps
};

/// The numbers of a definition of levels (type 406 form 1), rising, each once; none of any other entity.
std::vector<int> levels_of_definition(const igsObject& definition);
/// The levels that have a name or hold entities, in rising order; 0, which is no level, only with a name.
std::vector<LevelUse> levels_of(const igsFile& file);

/// A unit that the units flag stands for (1, 2 and 4 to 11): "millimetre"; empty for any other flag.
std::string unit_name(igsUnitType flag);
/// The flag of the units that the Global section gives; nothing where the flag is missing or unknown, or the name
/// stands for other units.
std::optional<igsUnitType> sound_units(const igsGlobalSection& global);
