#pragma once

#include "entity.h"

/// The parameters of the Global section, and the lines of the Start section.
void define_header(pybind11::module_& module, HostClass& host);
