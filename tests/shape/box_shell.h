#pragma once

#include <array>
#include <sstream>
#include <string>
#include <utility>

#include "igs/shape/igsVec.h"

namespace igs_test {

/// How many DE numbers box_shell() takes.
constexpr int box_shell_size = 66;

/// A shell around a box, its normals outward: an igs514 with the DE number `de`, then six faces, igs510, and what they
/// are made of, in the text that ShapedFile reads. Faces beyond `num_faces` are not in the shell.
inline std::string box_shell(int de, const igsVec3& low, const igsVec3& high, int num_faces = 6) {
  // Corner i: 0 to 3 around the bottom, 4 to 7 above them. Steps are edges, from 1, against their direction below 0.
  constexpr std::array<std::pair<int, int>, 12> edges = {
      {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {4, 5}, {5, 6}, {6, 7}, {7, 4}, {0, 4}, {1, 5}, {2, 6}, {3, 7}}};
  constexpr std::array<std::array<int, 4>, 6> steps = {
      {{-4, -3, -2, -1}, {5, 6, 7, 8}, {1, 10, -5, -9}, {2, 11, -6, -10}, {3, 12, -7, -11}, {4, 9, -8, -12}}};
  const std::array<std::string, 6> planes = {"0.,0.,-1.", "0.,0.,1.", "0.,-1.,0.", "1.,0.,0.", "0.,1.,0.", "-1.,0.,0."};
  const std::array<double, 6> offsets = {-low.z, high.z, -low.y, high.x, high.y, -low.x};
  const int face = de + 2, plane = face + 12, loop = plane + 12, edge_list = loop + 12, vertices = edge_list + 2;
  const auto corner = [&](int i) {
    std::ostringstream text;
    text << (i % 4 == 1 || i % 4 == 2 ? high.x : low.x) << ',' << (i % 4 >= 2 ? high.y : low.y) << ','
         << (i >= 4 ? high.z : low.z);
    return text.str();
  };
  std::ostringstream text;
  text << "514:1 " << num_faces;
  for (int i = 0; i < num_faces; ++i) text << ',' << face + 2 * i << ",1";
  for (int i = 0; i < 6; ++i) text << " 510:1 " << plane + 2 * i << ",1,1," << loop + 2 * i;
  for (std::size_t i = 0; i < 6; ++i) text << " 108:0 " << planes[i] << ',' << offsets[i] << ",0,0.,0.,0.,0.";
  for (const auto& around : steps) {
    text << " 508:1 4";
    for (const int step : around) text << ",0," << edge_list << ',' << std::abs(step) << ',' << (step > 0) << ",0";
  }
  text << " 504:1 12";
  for (int i = 0; const auto& [first, second] : edges) {
    text << ',' << vertices + 2 + 2 * i++ << ',' << vertices << ',' << first + 1 << ',' << vertices << ','
         << second + 1;
  }
  text << " 502:1 8";
  for (int i = 0; i < 8; ++i) text << ',' << corner(i);
  for (const auto& [first, second] : edges) text << " 110:0 " << corner(first) << ',' << corner(second);
  return text.str() + ' ';
}

}  // namespace igs_test
