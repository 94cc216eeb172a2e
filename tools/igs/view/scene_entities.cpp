#include "view/scene_entities.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

#include "igs/objects/igsCast.h"
#include "text/text.h"

namespace {

constexpr std::size_t most_text = 200;               // bytes
constexpr std::size_t most_fields = 40'000;          // of all entities, as far as each has its fewest
constexpr std::size_t fewest_fields_of_entity = 20;  // that are shown of those that it has
constexpr std::size_t most_fields_of_entity = 200;
constexpr std::size_t most_levels = 64;

struct NumberedColour {
  Rgb colour;
  const char* name;
};

/// Of a colour number (IGES 5.3, section 2.2.4.4.13); null for any other and for 0, which is none.
const NumberedColour* numbered_colour(int number) {
  static constexpr std::array<NumberedColour, 8> colours{{{{0, 0, 0}, "black"},
                                                          {{255, 0, 0}, "red"},
                                                          {{0, 255, 0}, "green"},
                                                          {{0, 0, 255}, "blue"},
                                                          {{255, 255, 0}, "yellow"},
                                                          {{255, 0, 255}, "magenta"},
                                                          {{0, 255, 255}, "cyan"},
                                                          {{255, 255, 255}, "white"}}};
  return number >= 1 && number <= std::ssize(colours) ? &colours[static_cast<std::size_t>(number) - 1] : nullptr;
}

std::optional<std::uint8_t> byte_of(double percent) {
  if (!std::isfinite(percent) || igs_is_undefined_real(percent)) return std::nullopt;
  return static_cast<std::uint8_t>(std::lround(std::clamp(percent, 0.0, 100.0) * 2.55));
}

std::string colour_name_of(const igsObject& entity) {
  const igsColour& colour = entity.directory_entry().colour();
  const auto* const definition = igs_cast<igs314>(colour.definition().object());
  if (definition != nullptr && !definition->colour_name().empty()) return shown_text(definition->colour_name());
  const igsColour& numbered = definition != nullptr ? definition->directory_entry().colour() : colour;
  if (definition != nullptr && colour_of(&entity)) return "DE " + std::to_string(definition->de_number());
  const NumberedColour* const found = numbered_colour(numbered.colour_value());
  return found != nullptr ? found->name : "";
}

struct ShownValue {
  std::string operator()(int number) const { return number == igs_unset_int ? "unset" : std::to_string(number); }
  std::string operator()(double number) const { return igs_is_undefined_real(number) ? "unset" : format_real(number); }
  std::string operator()(const std::string& text) const { return shown_text(text); }
  std::string operator()(const igsObject* target) const {
    return target != nullptr ? "DE " + std::to_string(target->de_number()) : "0";
  }
};

/// An attribute that says more than nothing, and is not shown already.
bool is_worth_seeing(const Field& attribute) {
  if (attribute.path == "form_number" || attribute.path == "level") return false;
  if (const int* const number = std::get_if<int>(&attribute.value)) return *number != 0;
  if (const auto* const text = std::get_if<std::string>(&attribute.value)) return !text->empty();
  const auto* const target = std::get_if<const igsObject*>(&attribute.value);
  return target == nullptr || *target != nullptr;
}

bool is_name(const igsObject* property) {
  constexpr int name_form = 15;
  const auto* const unknown = igs_cast<igsUnknown>(property);
  return unknown != nullptr && property->directory_entry().entity_type() == igsEntity406 &&
         unknown->form_in_file() == name_form;
}

/// What a Name property says, behind the number of its values.
std::string name_in(const igsObject& property) {
  const FieldList list(property, false);
  const std::size_t position = list.num_attributes() + 1;
  const auto* const name =
      position < list.fields().size() ? std::get_if<std::string>(&list.fields()[position].value) : nullptr;
  return name != nullptr ? shown_text(*name) : "";
}

}  // namespace

std::string shown_text(std::string_view text) {
  if (text.size() <= most_text) return printable(to_utf8(text));
  std::size_t length = most_text;  // no character is cut in two
  while (length > most_text - 4 && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) --length;
  return printable(to_utf8(text.substr(0, length))) + "...";
}

std::string shown_value(const FieldValue& value) { return std::visit(ShownValue(), value); }

std::optional<Rgb> colour_of(const igsObject* entity) {
  if (entity == nullptr) return std::nullopt;
  const igsColour* colour = &entity->directory_entry().colour();
  if (const auto* const definition = igs_cast<igs314>(colour->definition().object())) {
    const auto red = byte_of(definition->red()), green = byte_of(definition->green()),
               blue = byte_of(definition->blue());
    if (red && green && blue) return Rgb{*red, *green, *blue};
    colour = &definition->directory_entry().colour();  // the nearest one that has a number
  }
  const NumberedColour* const numbered = numbered_colour(colour->colour_value());
  return numbered != nullptr ? std::optional(numbered->colour) : std::nullopt;
}

int SceneEntities::position_of(const igsObject& entity) {
  const auto slot = static_cast<std::size_t>(entity.de_number() / 2);
  if (slot >= m_positions.size()) m_positions.resize(2 * slot + 1, -1);
  int& position = m_positions[slot];
  if (position >= 0) return position;
  position = static_cast<int>(m_objects.size());
  m_objects.push_back(&entity);
  SceneEntity& shown = m_scene.entities.emplace_back();
  shown.de = entity.de_number();
  shown.type = entity.directory_entry().entity_type();
  const auto* const unknown = igs_cast<igsUnknown>(&entity);
  shown.form = unknown != nullptr ? unknown->form_in_file() : entity.directory_entry().form_number();
  shown.line = m_file.lines(shown.de).directory_entry;
  shown.type_name = igsInfoDB::entity_name(shown.type);
  shown.name = name_of(entity);
  shown.colour_name = colour_name_of(entity);
  shown.levels = levels_of_entity(entity);
  return position;
}

/// As igsFile::entity_name, but many entities may share a property, which is read once.
std::string SceneEntities::name_of(const igsObject& entity) {
  const igsKeptParts* const parts = m_file.kept_parts(entity);
  if (parts != nullptr) {
    for (const igsObjectPtr& pointer : parts->properties) {
      if (!is_name(pointer.object())) continue;
      const auto [place, is_new] = m_names.try_emplace(pointer.object());
      if (is_new) place->second = name_in(*pointer.object());
      return place->second;
    }
  }
  return shown_text(m_file.entity_name(entity));
}

std::vector<int> SceneEntities::levels_of_entity(const igsObject& entity) {
  const igsLevel& level = entity.directory_entry().level();
  const igsObject* const definition = level.definition().object();
  if (definition == nullptr) return {level.level()};
  const auto [place, is_new] = m_levels.try_emplace(definition);
  if (is_new) {
    place->second = levels_of_definition(*definition);
    if (place->second.size() > most_levels) place->second.resize(most_levels);
    if (place->second.empty()) place->second.push_back(0);
  }
  return place->second;
}

std::string SceneEntities::label_of(const igsObject& entity) {
  const SceneEntity& shown = m_scene.entities[static_cast<std::size_t>(position_of(entity))];
  std::string label = shown.name;
  if (const auto* const instance = igs_cast<igs408>(&entity); instance != nullptr && label.empty()) {
    const auto* const definition = igs_cast<igs308>(instance->subfigure().object());
    if (definition != nullptr) label = shown_text(definition->subfigure_name());
  }
  if (label.empty()) label = shown.type_name.empty() ? "Type " + std::to_string(shown.type) : shown.type_name;
  return label + " (DE " + std::to_string(shown.de) + ')';
}

void SceneEntities::add_fields() {
  m_most_fields = std::clamp(most_fields / std::max<std::size_t>(m_objects.size(), 1), fewest_fields_of_entity,
                             most_fields_of_entity);
  std::vector<bool> has_fields(m_objects.size());
  const auto add_once = [&](int position) {
    if (position < 0 || has_fields[static_cast<std::size_t>(position)]) return;
    has_fields[static_cast<std::size_t>(position)] = true;
    add_fields(position);
  };
  for (const SceneFinding& finding : m_scene.findings) add_once(finding.entity);
  for (int position = 0; position < std::ssize(m_objects); ++position) add_once(position);
}

void SceneEntities::add_fields(int position) {
  SceneEntity& entity = m_scene.entities[static_cast<std::size_t>(position)];
  FieldList list(*m_objects[static_cast<std::size_t>(position)], m_bytes_left > 0);
  std::size_t number = 0;
  for (const Field& field : list.fields()) {
    if (number++ < list.num_attributes() && !is_worth_seeing(field)) continue;
    if (entity.fields.size() >= m_most_fields || m_bytes_left == 0) {
      ++entity.num_fields_left_out;
      continue;
    }
    entity.fields.push_back({shown_text(field.path), shown_value(field.value)});
    const std::size_t bytes = entity.fields.back().label.size() + entity.fields.back().value.size() + 2;
    m_bytes_left -= std::min(bytes, m_bytes_left);
  }
}
