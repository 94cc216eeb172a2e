#pragma once

#include <utility>

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsIndexedList.h"
#include "igs/fields/igsNamedError.h"
#include "igs/solids/igsOrientedFace.h"

/// The shell has no faces, or their number is negative or out of proportion to the record.
using igs514NoFaces = igsNamedError<"igs514NoFaces">;

/// Shell (IGES 5.3, type 514, form 1): a connected set of faces. Positions are 0-based. The errors of a check name
/// faces by their positions at that check; an index list remembers where these went when repairs took faces out.
class IGS_API igs514 : public igsEntity<igs514, "igs514", igsObject> {
 public:
  igs514();

  /// Null ones too.
  int number_of_faces() const { return static_cast<int>(faces().size()); }
  /// Cuts the list, or lengthens it by null faces, and returns 1; 0 for a negative size.
  int set_size(int size);
  /// The whole list, which may be changed in place; the index list knows nothing of it.
  const igsOrientedFacecoDynArr& faces() const { return std::as_const(m_faces).elements(); }
  igsOrientedFacecoDynArr& faces() { return m_faces.elements(); }
  /// Good until the list is changed; a null face outside it.
  const igsOrientedFace& face(int i) const;
  /// Stores face `i` and returns 1; 0 outside the list.
  int set_face(int i, const igsOrientedFace& face);

  /// Starts the index list anew: every face at its own position. Every check does so.
  void set_index_list() { m_faces.restart_index(); }
  /// Notes that original position `original` is now at `current` (-1: taken out).
  void set_index(int original, int current) { m_faces.set_index(original, current); }
  /// Where original position `original` is now; -1 when it was taken out or never existed.
  int get_current_index(int original) const { return m_faces.current_index(original); }
  /// The original position of what is now at `current`, or -1.
  int get_original_index(int current) const { return m_faces.original_index(current); }

  /// Takes out every entry that is not a face (igs510) or whose face has logged errors, keeping the index list. Called
  /// for a fault at original position `original`: at once done when that has been seen to already.
  void remove_faulty_faces(int original);
  /// Sets the orientation of the face whose original position is `original` and returns 1; 0 when there is none.
  int set_orientation_of_original(int original, int orientation);

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    auto& faces = entity.m_faces.elements();
    const int count = visit.count("NumberOfFaces", faces.size());
    visit.list("Faces", count, faces, igsBadCount<igs514NoFaces>());
  }

 private:
  mutable igsIndexedList<igsOrientedFace> m_faces;  // a check, which is const, starts the index list anew
};
