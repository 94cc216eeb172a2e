#include "command_line/view_options.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <system_error>

#include "command_line/choice.h"

namespace {

const std::vector<std::pair<std::string, igsVec3>> directions{
    {"iso", {-1, 1, -1}},  {"front", {0, 1, 0}}, {"back", {0, -1, 0}},  {"left", {1, 0, 0}},
    {"right", {-1, 0, 0}}, {"top", {0, 0, -1}},  {"bottom", {0, 0, 1}},
};

/// One of the words, or "X,Y,Z".
std::optional<igsVec3> direction_of(const std::string& text) {
  const auto named =
      std::find_if(directions.begin(), directions.end(), [&](const auto& each) { return each.first == text; });
  if (named != directions.end()) return named->second;
  std::array<double, 3> values{};
  const std::vector<std::string> parts = CLI::detail::split(text, ',');
  if (parts.size() != values.size()) return std::nullopt;
  for (std::size_t i = 0; i < values.size(); ++i) values.at(i) = real_of(parts[i]).value_or(HUGE_VAL);
  const igsVec3 direction{values[0], values[1], values[2]};
  return direction.unit() == igsVec3{} ? std::nullopt : std::optional(direction);
}

CLI::Validator between(double most, const char* noun) {
  const auto fault = [most, noun](const std::string& text) {
    const double value = real_of(text).value_or(0);
    return value > 0 && value <= most ? "" : '"' + printable(text) + "\" is no " + noun;
  };
  return {fault, ""};
}

std::optional<Picture> picture_by_ending(const std::string& name) {
  std::string ending = std::filesystem::path(name).extension().string();
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  if (ending == ".html" || ending == ".htm") return Picture::page;
  if (ending == ".glb") return Picture::glb;
  return ending == ".svg" ? std::optional(Picture::svg) : std::nullopt;
}

[[noreturn]] void refuse_picture(const std::string& reason) {
  throw CLI::ParseError(reason, CLI::ExitCodes::ArgumentMismatch);
}

}  // namespace

void add_view_options(CLI::App& command, ViewOptions& options) {
  constexpr double half_turn = 180, largest_chord = 1e100;
  command.add_option("-o,--output", options.target, "the picture: OUT.html, OUT.glb or OUT.svg; - is standard output")
      ->required()
      ->configurable(false)
      ->option_text("OUT");
  using Choice = std::pair<std::string, std::optional<Picture>>;
  add_choice(command, "--format", "what to write, where the name of OUT does not say it",
             std::vector<Choice>{{"html", Picture::page}, {"glb", Picture::glb}, {"svg", Picture::svg}},
             options.format_asked);
  command.add_option("--compare", options.old_name, "show what changed from OLD to FILE, instead of faults")
      ->configurable(false)
      ->option_text("OLD");
  command
      .add_option("--chord", options.chord,
                  "how far triangles and lines may be off the shapes, in model units; without it a thousandth of the "
                  "model's size")
      ->check(between(largest_chord, "length above 0"))
      ->option_text("C");
  command
      .add_option("--angle", options.angle,
                  "how far they may turn from one piece to the next; without it 20; free curves 5 at most")
      ->check(between(half_turn, "angle above 0, up to 180"))
      ->option_text("DEGREES");
  const auto is_direction = [](const std::string& text) {
    return direction_of(text)
               ? ""
               : '"' + printable(text) + "\" is neither X,Y,Z nor one of iso, front, back, left, right, top, bottom";
  };
  command
      .add_option_function<std::string>(
          "--direction", [&options](const std::string& text) { options.direction = direction_of(text); },
          "where one looks from, or X,Y,Z: along which way; iso without it, at flat drawings from in front")
      ->check(CLI::Validator(is_direction, ""))
      ->option_text("iso|front|back|left|right|top|bottom");
}

void expect_picture(ViewOptions& options) {
  const std::optional<Picture> picture =
      options.format_asked ? options.format_asked : picture_by_ending(options.target);
  if (!picture)
    refuse_picture("--format is missing: " + printable(options.target) + " does not end in .html, .glb or .svg");
  options.picture = *picture;
  if (options.picture == Picture::glb && !options.old_name.empty()) {
    refuse_picture("--compare makes pages and SVG pictures: GLB has no way to show what changed");
  }
  if (options.names.front() == "-" && options.old_name == "-") {
    refuse_picture("only one of the files can be standard input");
  }
  for (const std::string& name : {options.names.front(), options.old_name}) {
    std::error_code error;
    if (!name.empty() && std::filesystem::equivalent(name, options.target, error)) {
      refuse_picture("the picture would take the place of " + printable(name));
    }
  }
}
