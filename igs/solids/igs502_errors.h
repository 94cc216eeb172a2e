#pragma once

#include "igs/errors/igsErrorClass.h"

/// The vertex list is empty, or its count is negative or out of proportion to the record.
class IGS_API igs502NoVertices : public igsErrorClass<igs502NoVertices, "igs502NoVertices", igsObjectError> {};

/// A vertex is undefined; carries its position, 0-based.
class IGS_API igs502InvalidVertex
    : public igsErrorClass<igs502InvalidVertex, "igs502InvalidVertex", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};
