#include "files/contents.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

EntityCounts::EntityCounts(const igsFile& file) {
  igsFileIT entities(&file);
  while (++entities != 0) {
    const igsObject& entity = *entities();
    const int type = entity.directory_entry().entity_type();
    if (entity.isa(igsUnknown::type())) {
      const std::pair kind(type, static_cast<const igsUnknown&>(entity).form_in_file());
      ++all[kind];
      ++kept[kind];
    } else {
      ++all[{type, entity.directory_entry().form_number()}];
    }
  }
}

std::vector<int> levels_of_definition(const igsObject& definition) {
  constexpr int property = 406;
  if (definition.directory_entry().entity_type() != property || !definition.isa(igsUnknown::type())) return {};
  const auto& unknown = static_cast<const igsUnknown&>(definition);
  if (unknown.form_in_file() != 1) return {};
  std::vector<int> levels;
  const std::vector<std::string_view> fields = unknown.fields().fields();
  for (std::size_t i = 1; i < fields.size(); ++i) levels.push_back(igsFieldTexts::integer(fields[i], 0));
  std::sort(levels.begin(), levels.end());
  levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
  return levels;
}

std::vector<LevelUse> levels_of(const igsFile& file) {
  std::map<int, long long> uses;
  std::map<const igsObject*, long long> definitions;
  igsFileIT entities(&file);
  while (++entities != 0) {
    const igsLevel& level = entities()->directory_entry().level();
    const igsObject* const definition = level.definition().object();
    definition != nullptr ? ++definitions[definition] : ++uses[level.level()];
  }
  for (const auto& [definition, count] : definitions) {
    for (const int level : levels_of_definition(*definition)) uses[level] += count;
  }
  const std::map<int, utString> names = file.level_names();
  for (const auto& [level, name] : names) uses.try_emplace(level, 0);
  std::vector<LevelUse> levels;
  for (const auto& [level, count] : uses) {
    const auto name = names.find(level);
    if (level == 0 && name == names.end()) continue;
    levels.push_back({level, name != names.end() ? std::optional<std::string>(name->second) : std::nullopt, count});
  }
  return levels;
}

std::string unit_name(igsUnitType flag) {
  constexpr std::array<const char*, 12> names{
      "",      "inch",      "millimetre",       "",       "foot",       "mile",
      "metre", "kilometre", "mil (0.001 inch)", "micron", "centimetre", "microinch"};
  return flag > 0 && static_cast<std::size_t>(flag) < names.size() ? names.at(static_cast<std::size_t>(flag)) : "";
}

std::optional<igsUnitType> sound_units(const igsGlobalSection& global) {
  constexpr int flag_parameter = 14;
  const igsUnits& units = global.units();
  if (!global.given(flag_parameter) || igsUnits::check_units(units.type(), units.name()) == 0) return std::nullopt;
  return igsUnits::type(units.name());
}
