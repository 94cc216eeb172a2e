#pragma once

#include <optional>
#include <vector>

#include "igs/shape/export.h"
#include "igs/shape/igsVec.h"

class igsFile;

/// What one face measures, in model units.
struct igsFaceFigures {
  int de = 0;       ///< DE number of the face
  double area = 0;  ///< in square model units
  igsBox box;       ///< of the face as its loops bound it
};

/// What a file measures, in model units: its lengths as they stand, the model space scale is not applied.
struct igsShapeFigures {
  int faces = 0;       ///< and untrimmed surfaces that stand for themselves
  int edges = 0;       ///< of shells once each, the boundary curves of every loose face, and curves that stand alone
  int free_edges = 0;  ///< of a shell: used once; of loose faces: without a partner
  double area = 0;     ///< of all faces, in square model units
  /// Of the closed shells together, in cubic model units, voids taken off; none where there is no closed shell.
  std::optional<double> volume;
  double edge_length = 0;     ///< of all edges together
  igsBox box;                 ///< of faces and curves
  std::vector<int> unmeshed;  ///< DE numbers of the faces that could not be triangulated, ascending
  std::vector<int> left_out;  ///< DE numbers of what was not placed because it is too much for the file, ascending
  std::vector<igsFaceFigures> by_face;  ///< one a face, in the order of igsShapeModel::faces()
};

/// Measures what the file shows, faces by `threads` threads (0: as many as the machine has).
IGS_SHAPE_API igsShapeFigures igs_measure(const igsFile& file, int threads = 1);
