#pragma once

#include <optional>
#include <vector>

#include "igs/shape/igsShapes.h"
#include "igs/shape/private/igsMarkPen.h"

class igs202;
class igs212;
class igs214;
class igs230;

/// `dimension`: the angular one to which the leader belongs, around whose vertex it goes; null for other leaders.
void igs_draw_leader(const igs214& leader, const igs202* dimension, const igsMarkPen& pen);
void igs_draw_note(const igs212& note, const igsMarkPen& pen);
/// The lines that fill the area, whose boundary and islands, each once, are `outlines`.
void igs_draw_hatching(const igs230& area, const std::vector<const igsObject*>& outlines, igsShapes& shapes,
                       const igsMarkPen& pen);
