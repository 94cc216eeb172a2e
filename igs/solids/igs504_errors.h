#pragma once

#include "igs/errors/igsErrorClass.h"
#include "igs/solids/igs504.h"
