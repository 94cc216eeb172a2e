#include "commands/commands.h"

#include <algorithm>
#include <iostream>
#include <numbers>

#include "files/complaints.h"
#include "files/jobs.h"
#include "files/output_file.h"
#include "view/projection.h"
#include "view/writers.h"

namespace {

constexpr const char* standard_output_name = "-";

/// Empty, or why there is no picture.
std::string write_picture(std::ostream& out, const Scene& scene, const ViewOptions& options) {
  PictureOptions still;
  still.direction = options.direction.value_or(usual_direction(scene.box));
  switch (options.picture) {
    case Picture::page:
      write_page(out, scene, still);
      break;
    case Picture::glb:
      if (!write_glb(out, scene)) return "a GLB file cannot be larger than 4 GiB";
      break;
    case Picture::svg:
      write_svg(out, scene, still);
      break;
  }
  return {};
}

SceneOptions scene_options(const ViewOptions& options) {
  SceneOptions asked;
  asked.chord = options.chord;
  if (options.angle) asked.angle = *options.angle * std::numbers::pi / 180;
  constexpr std::size_t most_in_glb = 2'000'000;
  if (options.picture == Picture::glb) asked.most_triangles = most_in_glb;
  asked.has_fields = options.picture == Picture::page;
  asked.threads = static_cast<int>(options.jobs);
  return asked;
}

/// Writes the picture. Empty, or why that was not possible.
std::string put_picture(const Scene& scene, const ViewOptions& options, std::ostream& standard_output) {
  if (options.target == standard_output_name) return write_picture(standard_output, scene, options);
  OutputFile output(options.target);
  std::string failure = output.error();
  if (failure.empty()) failure = write_picture(output.stream(), scene, options);
  if (failure.empty() && !output.commit()) failure = output.error();
  return failure;
}

void read_and_check(Model& model, const ViewOptions& options, const Streams& streams) {
  model.set_options(options_of_program());
  model.read(streams.err);
  if (!model.has_entities()) return;
  model.progress().stage("checking");
  check_faults(model.file());
  model.progress().stage("checking the geometry");
  check_geometry(model.file(), options.geometric_checks());
}

/// `old_model`: what the file is compared with; null without a comparison.
Tally view_file(Model* old_model, Model& model, const ViewOptions& options, const Streams& streams) {
  read_and_check(model, options, streams);
  model.progress().stage("drawing");
  const Findings findings = Findings::of_check(model.file(), options.rules);
  const Scene scene = old_model == nullptr ? make_scene(model, findings, scene_options(options))
                                           : make_comparison(*old_model, model, findings, scene_options(options));
  model.progress().stage("writing");
  const std::string failure = put_picture(scene, options, streams.out);
  model.progress().end();
  if (!failure.empty()) {
    complain(streams.err, options.target, failure);
    return {.status = exit_failed};
  }
  return tally_of(model, streams);
}

Tally compare_with_old(Model& old_model, const ViewOptions& options, const Streams& streams) {
  old_model.set_options(options_of_program());
  old_model.read(streams.err);
  old_model.progress().end();
  const int old_status = tally_of(old_model, streams).status;
  const auto view_new = [&](Model& model, const Streams&) { return view_file(&old_model, model, options, streams); };
  Tally tally = with_file(options.names.front(), {view_new, {}}, streams);
  tally.status = std::max(tally.status, old_status);
  return tally;
}

}  // namespace

int run_view(const ViewOptions& options) {
  if (options.picture == Picture::page && !has_pages()) {
    complain(std::cerr, options.target, "this build of the program has no viewer, which pages need");
    return exit_failed;
  }
  const bool is_comparison = !options.old_name.empty();
  const auto view = [&](Model& model, const Streams& streams) {
    return is_comparison ? compare_with_old(model, options, streams) : view_file(nullptr, model, options, streams);
  };
  const std::string& first = is_comparison ? options.old_name : options.names.front();
  return final_status({with_file(first, {view, {}}, standard_streams())});
}
