#include <fstream>
#include <iterator>
#include <string>

#include "view/page_template.h"

namespace {

/// Where the host of the program puts the template; its pieces are parted by NUL characters.
constexpr const char* template_file = "/viewer/template";

std::array<std::vector<std::string_view>, 4> split(std::string_view text) {
  std::array<std::vector<std::string_view>, 4> pieces;
  for (std::vector<std::string_view>& piece : pieces) {
    if (text.empty()) return {};
    const std::size_t end = text.find('\0');
    piece.push_back(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return pieces;
}

}  // namespace

const std::array<std::vector<std::string_view>, 4>& page_template() {
  static const std::string text = [] {
    std::ifstream file(template_file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  }();
  static const std::array<std::vector<std::string_view>, 4> pieces = split(text);
  return pieces;
}
