#pragma once

#include <pybind11/pybind11.h>

void define_findings(pybind11::module_& module);
