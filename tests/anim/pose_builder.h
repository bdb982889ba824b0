#pragma once
// Poses for the animation tests, written as world positions: each pin names its parent and where it
// stands, and gets the angle and length that put it there.

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <vector>

#include "anim/forward.h"

namespace kovra::test {

struct PinAt {
    int parent;
    float x, y;
    PinType type = Bone;
};

inline Pose PoseAt(const std::vector<PinAt>& pins) {
    Pose pose(pins.size());
    for (std::size_t i = 0; i < pins.size(); ++i) {
        const PinAt& p = pins[i];
        const float dx = p.x - (p.parent >= 0 ? pins[p.parent].x : 0.0f);
        const float dy = p.y - (p.parent >= 0 ? pins[p.parent].y : 0.0f);
        pose[i] = WirrelPin{.angle = NormalizeAngle(std::atan2(dy, dx)), .length = std::hypot(dx, dy)};
        pose[i].parent = p.parent;
        pose[i].id = static_cast<int>(i);
        pose[i].SetType(p.parent < 0 ? Root : p.type);
    }
    return pose;
}

inline std::vector<WorldPoint> World(const Pose& pose) {
    std::vector<WorldPoint> world;
    WorldPositions(pose, world);
    return world;
}

inline float DistanceTo(const WorldPoint& p, float x, float y) {
    return std::hypot(p.x - x, p.y - y);
}

// A random tree of `count` pins with random angles and lengths, its records in random order, so that
// parents may come after their children.
inline Pose RandomSkeleton(std::mt19937& rng, int count) {
    std::vector<int> order(count);
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(), rng);
    Pose pose(count);
    for (int i = 0; i < count; ++i) {
        WirrelPin& pin = pose[order[i]];
        pin.angle = std::uniform_real_distribution<float>(0.0f, 6.28f)(rng);
        pin.length = std::uniform_real_distribution<float>(0.2f, 2.0f)(rng);
        pin.parent = i == 0 ? -1 : order[std::uniform_int_distribution<int>(0, i - 1)(rng)];
        pin.id = order[i];
        pin.SetType(i == 0 ? Root : Bone);
    }
    return pose;
}

}  // namespace kovra::test
