#pragma once

#include <iosfwd>
#include <string>

#include "view/scene.h"

// What pictures are written as. The same scene gives the same bytes.

/// Binary glTF 2.0, in metres, y upwards. False, with nothing written, where it would be larger than the format allows
/// (4 GiB).
bool write_glb(std::ostream& out, const Scene& scene);

struct PictureOptions {
  igsVec3 direction{-1, 1, -1};   ///< in which one looks; any length
  int width = 800, height = 600;  ///< in pixels
  std::size_t most_triangles = 20'000;
};
/// An SVG picture; what is hidden is painted over. Faults are red.
void write_svg(std::ostream& out, const Scene& scene, const PictureOptions& options);

/// True when this build has the viewer that pages need.
bool has_pages();
/// A page of its own: viewer, model and a still picture in one file. Only where has_pages().
void write_page(std::ostream& out, const Scene& scene, const PictureOptions& still);
/// What a page holds of a scene that is seen in this direction at first: see packed_scene.cpp.
std::string packed(const Scene& scene, const igsVec3& direction);
