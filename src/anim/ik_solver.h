#pragma once
// The inverse kinematics solver: drags one pin toward a goal while the locked pins keep their places, by
// forward and backward reaching over point positions in double precision. Paths run up the tree to a
// common ancestor and down again, so a lock on a foot and a target on a hand form one chain through the
// hips. Bone lengths never change; the result is written back as world-direction angles.

#include <cstdint>
#include <set>
#include <vector>

#include "anim/forward.h"

namespace kovra {

// One step of a path. `up`: the bone between this link and the next is this pin's (links on the way
// from the target up to the common ancestor). `down`: the bone between this link and the one before is
// this pin's (links on the way down to the fixed side).
struct IkLink {
    int pin = -1;
    std::uint8_t up = 0;
    std::uint8_t down = 0;
};

// The path from `to` (target side, first link) to `from` (fixed side, last link) through their common
// ancestor, and the sum of its bone lengths. False when the two are the same pin or share no ancestor.
bool BuildPath(const Pose& pose, int from, int to, std::vector<IkLink>& path, double& length);

// Moves `hotPin` toward `goal` (world units) while every pin of `locks` keeps its position, with at most
// `maxIterations` passes; with `rotateSideTrees` the subtrees hanging off the solved paths turn with
// their bones instead of keeping their direction. Without a connected lock the skeleton is held at the
// root of the hot pin. False (pose unchanged) when no solution exists for this set-up; true when the
// pose was written, or kept because the solve stalled away from a locked pin. The pose must be a tree.
bool SolveIk(Pose& pose, const std::set<int>& locks, int hotPin, Vec2 goal, int maxIterations,
             bool rotateSideTrees);

}  // namespace kovra
