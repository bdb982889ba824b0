#include "cli/pose_commands.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <set>

#include "anim/forward.h"
#include "anim/ik_solver.h"
#include "anim/interpolate.h"
#include "cli/doc_commands.h"
#include "cli/json_writer.h"
#include "cli/stderr_prompt.h"

namespace kovra::cli {

namespace {

int Fail(const std::string& message) {
    std::fprintf(stderr, "kovra-cli: %s\n", message.c_str());
    return 1;
}

template <class T>
bool Parse(const std::string& text, T& value) {
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end;
}

bool ParseCoordinate(const std::string& text, float& value) {
    return Parse(text, value) && std::isfinite(value);
}

bool ParseIndex(const std::string& text, int& value) {
    return Parse(text, value) && value >= 0;
}

// The document and the index of its animation `name`, or false after a message.
bool LoadAnimation(const std::string& file, const std::string& name, WirrelDoc& doc, int& anim) {
    StderrPrompt prompt;
    std::vector<WirrelImageRecord> images;
    if (!LoadDocument(file, doc, images, prompt)) {
        return false;
    }
    anim = doc.FindAnim(name);
    if (anim < 0) {
        Fail("no animation named \"" + name + "\" in " + file);
        return false;
    }
    return true;
}

std::string Frames(const WirrelAnim& anim) {
    return std::to_string(anim.keys.size()) + " key frames of \"" + std::string(NameOf(anim.name)) + "\"";
}

void PrintPins(JsonWriter& json, const Pose& pose, bool polar) {
    std::vector<WorldPoint> world;
    WorldPositions(pose, world);
    json.Key("pins").BeginArray();
    for (std::size_t i = 0; i < pose.size(); ++i) {
        json.BeginObject().Key("id").Int(pose[i].id).Key("x").Float(world[i].x).Key("y").Float(world[i].y);
        if (polar) {
            json.Key("angle").Float(pose[i].angle).Key("length").Float(pose[i].length);
        }
        json.EndObject();
    }
    json.EndArray().EndObject();
    std::printf("%s\n", json.Text().c_str());
}

}  // namespace

int RunPose(const std::vector<std::string>& args) {
    WirrelDoc doc;
    int anim = -1;
    if (!LoadAnimation(args[0], args[1], doc, anim)) {
        return 1;
    }
    const WirrelAnim& animation = doc.Wirrel().anims[anim];
    float framePos = 0.0f;
    if (!ParseCoordinate(args[2], framePos) || framePos < 0.0f ||
        framePos >= static_cast<float>(animation.keys.size())) {
        return Fail("frame position " + args[2] + " is not within the " + Frames(animation));
    }
    const auto frame = static_cast<std::uint32_t>(framePos);
    for (std::uint32_t k : {frame, static_cast<std::uint32_t>((frame + 1) % animation.keys.size())}) {
        if (!IsTree(animation.keys[k].pins)) {
            return Fail("the pins of key frame " + std::to_string(k) + " don't form a tree");
        }
    }
    const PlayCursor cursor{
        .animIndex = anim, .animName = animation.name, .frameIndex = frame, .framePos = framePos};
    Pose pose;
    EvaluatePose(doc.Wirrel(), cursor, pose);
    JsonWriter json;
    json.BeginObject();
    PrintPins(json, pose, false);
    return 0;
}

int RunIk(const std::vector<std::string>& args) {
    std::set<int> locks;
    bool rotateChildren = false;
    for (std::size_t i = 6; i < args.size(); ++i) {
        int lock = -1;
        if (args[i] == "--rotate-children") {
            rotateChildren = true;
        } else if (args[i] == "--lock" && i + 1 < args.size() && ParseIndex(args[i + 1], lock)) {
            locks.insert(lock);
            ++i;
        } else if (args[i] == "--lock") {
            return Fail("--lock takes a pin index");
        } else {
            return Fail("unknown option " + args[i]);
        }
    }
    int frame = -1;
    int pin = -1;
    Vec2 goal;
    if (!ParseIndex(args[2], frame) || !ParseIndex(args[3], pin)) {
        return Fail("the key frame and the pin are indices, not " + args[2] + " and " + args[3]);
    }
    if (!ParseCoordinate(args[4], goal.x) || !ParseCoordinate(args[5], goal.y)) {
        return Fail("the goal " + args[4] + " " + args[5] + " is not a point");
    }

    WirrelDoc doc;
    int anim = -1;
    if (!LoadAnimation(args[0], args[1], doc, anim)) {
        return 1;
    }
    const WirrelAnim& animation = doc.Wirrel().anims[anim];
    if (frame >= static_cast<int>(animation.keys.size())) {
        return Fail("key frame " + args[2] + " is not one of the " + Frames(animation));
    }
    Pose pose = animation.keys[frame].pins;
    if (!IsTree(pose)) {
        return Fail("the pins of key frame " + args[2] + " don't form a tree");
    }
    const int count = static_cast<int>(pose.size());
    for (int index : locks) {
        if (index >= count) {
            return Fail("locked pin " + std::to_string(index) + " is not one of the " +
                        std::to_string(count) + " pins of key frame " + args[2]);
        }
    }
    if (pin >= count) {
        return Fail("pin " + args[3] + " is not one of the " + std::to_string(count) + " pins of key frame " +
                    args[2]);
    }
    const bool result = SolveIk(pose, locks, pin, goal, 100, rotateChildren);
    JsonWriter json;
    json.BeginObject().Key("result").Bool(result);
    PrintPins(json, pose, true);
    return 0;
}

}  // namespace kovra::cli
