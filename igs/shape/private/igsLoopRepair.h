#pragma once

class igs504;
class igs508;
class igsObject;

// Repairs of loops (igs142, igs141, igs508) and edges. Members are known by their position among the members of the
// loop and their DE number; where these do not belong together, as in nested composite curves, nothing is done. All
// return 1 when the repair is made, 0 when all is as it was.

/// Turns a member round: the flag of an igs141 or igs508, or the curve itself where that belongs to an igs102 alone.
int igs_turn_member(igsObject& loop, int position, int de);
/// Makes a member and the next one, by its DE number, meet halfway, when they are at most `tolerance` apart. The last
/// one is followed by the first. Leaves loops alone that are given in parameter space, too: their forms would differ.
int igs_join_members(igsObject& loop, int position, int de, int next_de, double tolerance);
/// Lets a loop run the other way round.
int igs_turn_loop(igs508& loop);
/// Moves the start or the end of the curve, by its DE number, of an edge to the edge's vertex there, when they are at
/// most `tolerance` apart.
int igs_move_to_vertex(const igs504& edges, int position, int de, bool is_start, double tolerance);
