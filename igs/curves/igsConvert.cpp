#include "igs/curves/igsConvert.h"

#include "igs/curves/igs110.h"
#include "igs/curves/igsPointset.h"
#include "igs/curves/igsPolyline.h"
#include "igs/curves/igsSimpleClosedPlanarCurve.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsCast.h"

namespace {
/// A polyline with the attributes of another entity. Type and form become those of a polyline again when its points are
/// set.
igsPolyline* new_polyline_like(const igsObject& object) {
  auto* const polyline = new igsPolyline;
  polyline->directory_entry().become(object.directory_entry());
  return polyline;
}

igsPolyline* new_polyline_like(const igsObject& object, const igsCopiousData& data) {
  igsPolyline* const polyline = new_polyline_like(object);
  polyline->set_data(data);
  return polyline;
}
}  // namespace

igsObject* igsConvert::to_curve(const igsObject* object) { return to_polyline(object); }

igsObject* igsConvert::to_polyline(const igsObject* object) {
  if (object == nullptr) return nullptr;
  if (object->isa(igs110::type())) return line_to_polyline(object);
  if (object->isa(igsPointset::type())) return pointset_to_polyline(object);
  return nullptr;
}

igsObject* igsConvert::line_to_polyline(const igsObject* object) {
  const igs110* const line = igs_cast<igs110>(object);
  if (line == nullptr || !line->is_bounded()) return nullptr;
  igsPolyline* const polyline = new_polyline_like(*line);
  polyline->set_size(igsCopiousData::spatial, 2);
  polyline->set_point(0, line->start_point());
  polyline->set_point(1, line->end_point());
  return polyline;
}

igsObject* igsConvert::pointset_to_polyline(const igsObject* object) {
  const igsPointset* const pointset = igs_cast<igsPointset>(object);
  if (pointset == nullptr || pointset->layout() == igsCopiousData::with_vectors) return nullptr;
  return new_polyline_like(*pointset, *pointset);
}

igsObject* igsConvert::closed_curve_to_polyline(const igsObject* object) {
  const auto* const curve = igs_cast<igsSimpleClosedPlanarCurve>(object);
  return curve != nullptr ? new_polyline_like(*curve, *curve) : nullptr;
}
