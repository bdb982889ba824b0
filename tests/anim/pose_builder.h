#pragma once
// Poses for the animation tests, written as world positions: each pin names its parent and where it
// stands, and gets the angle and length that put it there.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "anim/forward.h"

namespace kovra::test {

struct PinAt {
    int parent;
    float x;
    float y;
    PinType type = Bone;
};

inline Pose PoseAt(const std::vector<PinAt>& pins) {
    Pose pose(pins.size());
    for (std::size_t i = 0; i < pins.size(); ++i) {
        const PinAt& p = pins[i];
        const float baseX = p.parent >= 0 ? pins[p.parent].x : 0.0f;
        const float baseY = p.parent >= 0 ? pins[p.parent].y : 0.0f;
        pose[i].angle = NormalizeAngle(std::atan2(p.y - baseY, p.x - baseX));
        pose[i].length = std::hypot(p.x - baseX, p.y - baseY);
        pose[i].parent = p.parent;
        pose[i].id = static_cast<std::int32_t>(i);
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

// A random tree of `count` pins: pin 0 is the root, every other pin hangs off an earlier one. Then the
// records are shuffled, so that parents may come after their children.
inline Pose RandomSkeleton(std::mt19937& rng, int count) {
    std::uniform_real_distribution<float> angle(0.0f, 6.28f);
    std::uniform_real_distribution<float> length(0.2f, 2.0f);
    Pose pose(count);
    for (int i = 0; i < count; ++i) {
        pose[i].id = i;
        pose[i].angle = angle(rng);
        pose[i].length = length(rng);
        pose[i].parent = i == 0 ? -1 : std::uniform_int_distribution<int>(0, i - 1)(rng);
        pose[i].SetType(i == 0 ? Root : Bone);
    }
    std::vector<int> order(count);
    for (int i = 0; i < count; ++i) {
        order[i] = i;
    }
    std::shuffle(order.begin(), order.end(), rng);
    std::vector<int> where(count);
    for (int i = 0; i < count; ++i) {
        where[order[i]] = i;
    }
    Pose shuffled(count);
    for (int i = 0; i < count; ++i) {
        shuffled[where[i]] = pose[i];
        if (pose[i].parent >= 0) {
            shuffled[where[i]].parent = where[pose[i].parent];
        }
    }
    return shuffled;
}

}  // namespace kovra::test
