#include "text/xml_text.h"

#include <algorithm>
#include <array>
#include <utility>

#include "text/text.h"

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";  // U+FFFD
constexpr std::array<std::pair<char, std::string_view>, 5> entities{
    {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', "&#39;"}}};

std::string_view xml_character(std::string_view character) {
  const auto entity = std::find_if(entities.begin(), entities.end(), [&](const auto& each) {
    return character.size() == 1 && character[0] == each.first;
  });
  if (entity != entities.end()) return entity->second;
  const auto first = static_cast<unsigned char>(character[0]);
  const bool is_control = first < 0x20U && first != '\t' && first != '\n';
  const bool is_no_character = character == "\xEF\xBF\xBE" || character == "\xEF\xBF\xBF";  // U+FFFE, U+FFFF
  return is_control || is_no_character ? replacement : character;
}

}  // namespace

std::string xml_text(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const std::size_t length = utf8_length(text);
    result += length > 0 ? xml_character(text.substr(0, length)) : replacement;
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return result;
}
