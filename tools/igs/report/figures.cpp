#include "report/figures.h"

#include <ostream>
#include <string>

#include "findings/place.h"
#include "text/json_writer.h"
#include "text/text.h"

namespace {

std::string point_text(const igsVec3& point) {
  return '(' + format_figure(point.x) + ", " + format_figure(point.y) + ", " + format_figure(point.z) + ')';
}

std::string box_text(const igsBox& box) {
  return box.is_empty() ? "empty" : point_text(box.low) + " to " + point_text(box.high);
}

std::string units_text(const igsFile& file) {
  const std::optional<igsUnitType> units = sound_units(file.global_section());
  return units ? unit_name(*units) : "in doubt";
}

void write_json_point(JsonWriter& json, const igsVec3& point) {
  json.begin_array();
  for (const double value : {point.x, point.y, point.z}) json.value(value);
  json.end_array();
}

void write_json_box(JsonWriter& json, const igsBox& box) {
  json.key("box");
  if (box.is_empty()) return json.null();
  json.begin_array();
  write_json_point(json, box.low);
  write_json_point(json, box.high);
  json.end_array();
}

}  // namespace

void write_text_figures(std::ostream& out, const igsShapeFigures& figures, const igsFile& file) {
  const auto line = [&out](const char* name, const std::string& text) { out << "  " << name << ": " << text << '\n'; };
  line("length units", units_text(file));
  line("bounding box", box_text(figures.box));
  line("faces", std::to_string(figures.faces));
  if (!figures.unmeshed.empty()) line("faces that could not be triangulated", places_of_entities(figures.unmeshed));
  if (!figures.left_out.empty()) line("left out, too much for the file", places_of_entities(figures.left_out));
  line("area", format_figure(figures.area));
  line("volume of closed shells", figures.volume ? format_figure(*figures.volume) : "none is closed");
  line("edges", std::to_string(figures.edges));
  line("free edges", std::to_string(figures.free_edges));
  line("edge length", format_figure(figures.edge_length));
}

void write_json_figures(JsonWriter& json, const igsShapeFigures& figures) {
  json.begin_object();
  json.member("faces", figures.faces);
  json.member("edges", figures.edges);
  json.member("free_edges", figures.free_edges);
  json.member("area", figures.area);
  json.key("volume");
  figures.volume ? json.value(*figures.volume) : json.null();
  json.member("edge_length", figures.edge_length);
  write_json_box(json, figures.box);
  const auto write_numbers = [&](const char* name, const std::vector<int>& numbers) {
    json.key(name);
    json.begin_array();
    for (const int de : numbers) json.value(de);
    json.end_array();
  };
  write_numbers("unmeshed", figures.unmeshed);
  if (!figures.left_out.empty()) write_numbers("left_out", figures.left_out);
  json.end_object();
}
