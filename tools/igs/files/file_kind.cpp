#include "files/file_kind.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

using namespace std::string_view_literals;

struct Signature {
  std::string_view bytes;
  std::string_view kind;
};

constexpr std::string_view utf16 = "it is UTF-16 text; convert it to ASCII";

constexpr std::array binary_signatures{
    Signature{"\x1f\x8b"sv, "it is a gzip file within a gzip file"},
    Signature{"PK\x03\x04"sv, "it is a zip archive"},
    Signature{"\xff\xfe"sv, utf16},
    Signature{"\xfe\xff"sv, utf16},
};

/// Behind blanks and line ends, in lower case.
constexpr std::array text_signatures{
    Signature{"iso-10303-21;"sv, "it is a STEP file"},
    Signature{"<!doctype html"sv, "it is an HTML page"},
    Signature{"<html"sv, "it is an HTML page"},
    Signature{"<?xml"sv, "it is an XML file"},
    Signature{"version https://git-lfs.github.com/spec/"sv,
              "it is a Git LFS pointer; \"git lfs pull\" fetches the file"},
    Signature{"%pdf-"sv, "it is a PDF file"},
    Signature{"autocad binary dxf"sv, "it is a DXF file"},
    Signature{"0\nsection"sv, "it is a DXF file"},
    Signature{"0\r\nsection"sv, "it is a DXF file"},
    Signature{"ac10"sv, "it is a DWG file"},
};

bool starts_with_any_case(std::string_view text, std::string_view lower_case) {
  const auto is_same = [](char c, char wanted) {
    return (c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c) == wanted;
  };
  return text.size() >= lower_case.size() && std::equal(lower_case.begin(), lower_case.end(), text.begin(),
                                                        [&](char wanted, char c) { return is_same(c, wanted); });
}

/// Latin letters in two bytes each, in either order.
bool is_utf16(std::string_view beginning) {
  constexpr std::size_t looked_at = 16;
  if (beginning.size() < looked_at) return false;
  std::array<std::size_t, 2> nulls{};
  for (std::size_t i = 0; i < looked_at; ++i) nulls.at(i % 2) += beginning[i] == '\0' ? 1U : 0U;
  return std::min(nulls[0], nulls[1]) == 0 && std::max(nulls[0], nulls[1]) == looked_at / 2;
}

/// Start sections may begin with any text.
bool begins_as_iges(std::string_view beginning) {
  constexpr std::size_t letter_column = 72;
  const std::string_view line = beginning.substr(0, beginning.find_first_of("\r\n"));
  return line.size() > letter_column && "SGBC"sv.find(line[letter_column]) != std::string_view::npos;
}

}  // namespace

std::string_view foreign_kind(std::string_view beginning) {
  if (beginning.empty()) return "it is empty";
  for (const Signature& each : binary_signatures) {
    if (beginning.starts_with(each.bytes)) return each.kind;
  }
  if (is_utf16(beginning)) return utf16;
  if (begins_as_iges(beginning)) return "";
  if (beginning.starts_with("\xef\xbb\xbf"sv)) beginning.remove_prefix(3);
  beginning.remove_prefix(std::min(beginning.find_first_not_of(" \t\r\n"), beginning.size()));
  for (const Signature& each : text_signatures) {
    if (starts_with_any_case(beginning, each.bytes)) return each.kind;
  }
  const bool is_stl = beginning.starts_with("solid") && beginning.find("facet normal") != std::string_view::npos;
  return is_stl ? "it is an STL file" : "";
}

bool begins_as_gzip(std::string_view beginning) { return beginning.starts_with("\x1f\x8b"sv); }
