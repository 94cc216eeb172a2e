#include "igs/solids/igs514.h"

#include "igs/curves/private/igsGeometryChecks.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/solids/igs510.h"
#include "igs/solids/igs514_errors.h"

namespace {
using FaceTest =
    igsReferenceTest<igs514OrientatedFaceNullFace, igs514OrientatedFaceWrongFaceType, igs514OrientatedFaceInvalidFace>;

bool is_sound_face(const igsOrientedFace& oriented_face) {
  const igsObject* const face = oriented_face.face().object();
  return face != nullptr && face->isa(igs510::type()) && face->num_logged_errors() == 0;
}
}  // namespace

bool igsOrientedFace::valid() const { return m_face && igs_is_flag(m_orientation); }

void igsOrientedFace::print_pd_data(utOstream& os) const {
  igsFieldPrinter printer(os);
  fields(*this, printer);
}

igs514::igs514() { set_directory_entry_type(igsEntity514, 1); }

int igs514::set_size(int size) { return igs_resize(faces(), size); }

const igsOrientedFace& igs514::face(int i) const { return igs_element(faces(), i); }

int igs514::set_face(int i, const igsOrientedFace& face) { return igs_set_element(faces(), i, face); }

void igs514::remove_faulty_faces(int original) { m_faces.purge(original, is_sound_face); }

int igs514::set_orientation_of_original(int original, int orientation) {
  return m_faces.change_original(original, [=](igsOrientedFace& face) { face.set_orientation(orientation); });
}

void igs514::check_pd() const {
  m_faces.restart_index();
  if (faces().empty()) tag<igs514NoFaces>();
  for (int i = 0; const igsOrientedFace& face : faces()) {
    FaceTest::check(*this, face.face(), igsExactly<igs510>(), i);
    if (!igs_is_flag(face.orientation())) tag<igs514OrientatedFaceInvalidOrientation>(i);
    ++i;
  }
}
