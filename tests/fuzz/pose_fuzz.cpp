// Poses and solves the pins of a fuzzed document: the animations sampled at fuzzed play positions (with
// and without a blend from another animation), world positions of the result, and the inverse
// kinematics solver dragging a fuzzed pin to a fuzzed goal with fuzzed locks. Key frames whose pins
// don't form a tree are skipped, as the tool and the editor refuse them. Whatever the document, posing
// must end without touching memory it doesn't own.
//
// The input's last bytes steer the run; the rest is the document.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <set>
#include <vector>

#include "anim/forward.h"
#include "anim/ik_solver.h"
#include "anim/interpolate.h"
#include "doc/wirrel_reader.h"

namespace {

using kovra::Pose;

bool FramesAreTrees(const kovra::WirrelAnim& anim, std::uint32_t frame) {
    return kovra::IsTree(anim.keys[frame].pins) &&
           kovra::IsTree(anim.keys[(frame + 1) % anim.keys.size()].pins);
}

void Sample(const kovra::Wirrel& wirrel, FuzzedDataProvider& steer) {
    const int anim = steer.ConsumeIntegralInRange<int>(0, static_cast<int>(wirrel.anims.size()) - 1);
    const kovra::WirrelAnim& animation = wirrel.anims[anim];
    if (animation.keys.empty()) {
        return;
    }
    const float framePos =
        steer.ConsumeFloatingPointInRange<float>(0.0f, static_cast<float>(animation.keys.size()));
    const auto frame =
        std::min(static_cast<std::uint32_t>(framePos), static_cast<std::uint32_t>(animation.keys.size() - 1));
    if (!FramesAreTrees(animation, frame)) {
        return;
    }
    kovra::PlayCursor cursor{
        .animIndex = anim, .animName = animation.name, .frameIndex = frame, .framePos = framePos};
    const int other = steer.ConsumeIntegralInRange<int>(0, static_cast<int>(wirrel.anims.size()) - 1);
    const kovra::WirrelAnim& left = wirrel.anims[other];
    if (steer.ConsumeBool() && !left.keys.empty()) {
        const auto otherFrame =
            steer.ConsumeIntegralInRange<std::uint32_t>(0, static_cast<std::uint32_t>(left.keys.size() - 1));
        if (FramesAreTrees(left, otherFrame)) {
            cursor.blending = true;
            cursor.otherAnimName = left.name;
            cursor.otherFrameIndex = otherFrame;
            cursor.otherFramePos = static_cast<float>(otherFrame) + steer.ConsumeProbability<float>();
            cursor.blendPos = steer.ConsumeProbability<float>();
        }
    }
    Pose pose;
    std::vector<kovra::WirrelSkin> skins;
    std::vector<kovra::WorldPoint> world;
    kovra::EvaluatePose(wirrel, cursor, pose);
    kovra::EvaluateSkins(wirrel, cursor, skins);
    kovra::WorldPositions(pose, world);
}

void Solve(const kovra::Wirrel& wirrel, FuzzedDataProvider& steer) {
    const kovra::WirrelAnim& animation =
        wirrel.anims[steer.ConsumeIntegralInRange<std::size_t>(0, wirrel.anims.size() - 1)];
    if (animation.keys.empty()) {
        return;
    }
    Pose pose = animation.keys[steer.ConsumeIntegralInRange<std::size_t>(0, animation.keys.size() - 1)].pins;
    if (pose.empty() || !kovra::IsTree(pose)) {
        return;
    }
    const int last = static_cast<int>(pose.size()) - 1;
    const int hot = steer.ConsumeIntegralInRange<int>(0, last);
    std::set<int> locks;
    for (int n = steer.ConsumeIntegralInRange<int>(0, 4); n > 0; --n) {
        locks.insert(steer.ConsumeIntegralInRange<int>(0, last));
    }
    const kovra::Vec2 goal{steer.ConsumeFloatingPointInRange<float>(-1e4f, 1e4f),
                           steer.ConsumeFloatingPointInRange<float>(-1e4f, 1e4f)};
    kovra::SolveIk(pose, locks, hot, goal, steer.ConsumeIntegralInRange<int>(1, 100), steer.ConsumeBool());
    std::vector<kovra::WorldPoint> world;
    kovra::WorldPositions(pose, world);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kSteering = 48;
    if (size < kSteering) {
        return 0;
    }
    FuzzedDataProvider steer(data + size - kSteering, kSteering);
    const std::vector<std::uint8_t> document(data, data + size - kSteering);
    kovra::Wirrel wirrel;
    std::vector<kovra::WirrelImageRecord> images;
    if (!kovra::ReadWirrel(wirrel, images, document) || wirrel.anims.empty()) {
        return 0;
    }
    Sample(wirrel, steer);
    Solve(wirrel, steer);
    return 0;
}
