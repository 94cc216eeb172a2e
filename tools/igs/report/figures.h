#pragma once

#include <iosfwd>

#include "files/contents.h"
#include "igs/shape/igsShapeFigures.h"

class JsonWriter;

/// The figures in lines of a name and a value, two columns in.
void write_text_figures(std::ostream& out, const igsShapeFigures& figures, const igsFile& file);
/// The figures as one object. What is no finite number is null, as is the box of nothing.
void write_json_figures(JsonWriter& json, const igsShapeFigures& figures);
