#pragma once

#include <vector>

#include "igs/objects/igsObjectPtr.h"
#include "igs/support/export.h"

class utOstream;

/// A face (igs510) as a shell uses it: with the direction of its surface (orientation 1) or against it (0).
class IGS_API igsOrientedFace {
 public:
  igsOrientedFace() = default;
  igsOrientedFace(const igsObjectPtr& face, int orientation) : m_face(face), m_orientation(orientation) {}

  const igsObjectPtr& face() const { return m_face; }
  void set_face(const igsObjectPtr& face) { m_face = face; }
  int orientation() const { return m_orientation; }
  void set_orientation(int orientation) { m_orientation = orientation; }

  /// There is a face, and the orientation is 0 or 1.
  bool valid() const;
  void become(const igsOrientedFace& other) { *this = other; }
  void print_pd_data(utOstream& os) const;

  template <class E, class V>
  static void fields(E& face, V& visit) {
    visit("Face", face.m_face);
    visit("Orientation", face.m_orientation);
  }

 private:
  [[no_unique_address]] igsObjectPtr m_face;
  int m_orientation = 0;
};

using igsOrientedFacecoDynArr = std::vector<igsOrientedFace>;
