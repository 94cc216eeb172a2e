#pragma once

#include "igs/errors/igsErrorClass.h"

/// The edge list is empty, or its count is negative or out of proportion to the record.
class IGS_API igs504NoEdges : public igsErrorClass<igs504NoEdges, "igs504NoEdges", igsObjectError> {};
