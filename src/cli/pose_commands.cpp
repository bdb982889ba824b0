// The posing subcommands of kovra-cli: pose samples an animation at a play position, ik drags a pin of a
// key frame with the inverse kinematics solver. Both print one JSON object on stdout.

#include <memory>
#include <set>

#include "anim/forward.h"
#include "anim/ik_solver.h"
#include "anim/interpolate.h"
#include "cli/doc_commands.h"
#include "cli/stderr_prompt.h"
#include "cli/subcommand.h"

namespace kovra::cli {

namespace {

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

// Every pin of `pose` with its world position, and its angle and length when `polar`.
Json Pins(const Pose& pose, bool polar) {
    std::vector<WorldPoint> world;
    WorldPositions(pose, world);
    Json pins = Json::array();
    for (std::size_t i = 0; i < pose.size(); ++i) {
        Json pin = {{"id", pose[i].id}, {"x", world[i].x}, {"y", world[i].y}};
        if (polar) {
            pin["angle"] = pose[i].angle;
            pin["length"] = pose[i].length;
        }
        pins.push_back(std::move(pin));
    }
    return pins;
}

struct PoseArguments {
    std::string file;
    std::string anim;
    std::string framePos;
};

int RunPose(const PoseArguments& args) {
    WirrelDoc doc;
    int anim = -1;
    if (!LoadAnimation(args.file, args.anim, doc, anim)) {
        return 1;
    }
    const WirrelAnim& animation = doc.Wirrel().anims[anim];
    float framePos = 0.0f;
    ParseCoordinate(args.framePos, framePos);
    if (framePos < 0.0f || framePos >= static_cast<float>(animation.keys.size())) {
        return Fail("frame position " + args.framePos + " is not within the " + Frames(animation));
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
    PrintJson({{"pins", Pins(pose, false)}});
    return 0;
}

// Kept as text until the run: the parser checks the form, the run reads the values.
struct IkArguments {
    std::string file;
    std::string anim;
    std::string frame;
    std::string pin;
    std::string x;
    std::string y;
    std::vector<std::string> locks;
    bool rotateChildren = false;
};

int RunIk(const IkArguments& args) {
    int frame = -1;
    int pin = -1;
    Vec2 goal;
    ParseIndex(args.frame, frame);
    ParseIndex(args.pin, pin);
    ParseCoordinate(args.x, goal.x);
    ParseCoordinate(args.y, goal.y);
    std::set<int> locks;
    for (const std::string& text : args.locks) {
        int lock = -1;
        ParseIndex(text, lock);
        locks.insert(lock);
    }

    WirrelDoc doc;
    int anim = -1;
    if (!LoadAnimation(args.file, args.anim, doc, anim)) {
        return 1;
    }
    const WirrelAnim& animation = doc.Wirrel().anims[anim];
    if (frame >= static_cast<int>(animation.keys.size())) {
        return Fail("key frame " + args.frame + " is not one of the " + Frames(animation));
    }
    Pose pose = animation.keys[frame].pins;
    if (!IsTree(pose)) {
        return Fail("the pins of key frame " + args.frame + " don't form a tree");
    }
    const int count = static_cast<int>(pose.size());
    for (int index : locks) {
        if (index >= count) {
            return Fail("locked pin " + std::to_string(index) + " is not one of the " +
                        std::to_string(count) + " pins of key frame " + args.frame);
        }
    }
    if (pin >= count) {
        return Fail("pin " + args.pin + " is not one of the " + std::to_string(count) +
                    " pins of key frame " + args.frame);
    }
    const bool result = SolveIk(pose, locks, pin, goal, 100, args.rotateChildren);
    PrintJson({{"result", result}, {"pins", Pins(pose, true)}});
    return 0;
}

}  // namespace

Subcommand AddPose(CLI::App& tool) {
    CLI::App* app = tool.add_subcommand(
        "pose",
        "print the world positions of the pins of ANIM at FRAMEPOS (2.25: a quarter of the way "
        "from key frame 2 to 3)");
    auto args = std::make_shared<PoseArguments>();
    app->add_option("FILE", args->file, "the document to read")->required();
    app->add_option("ANIM", args->anim, "the name of the animation")->required();
    app->add_option("FRAMEPOS", args->framePos, "the play position")->required()->check(CoordinateText());
    return {app, [args] { return RunPose(*args); }};
}

Subcommand AddIk(CLI::App& tool) {
    CLI::App* app = tool.add_subcommand(
        "ik",
        "drag pin PIN of key frame FRAME to (X, Y) with inverse kinematics, the locked pins held, and "
        "print the result and the pins");
    auto args = std::make_shared<IkArguments>();
    app->add_option("FILE", args->file, "the document to read")->required();
    app->add_option("ANIM", args->anim, "the name of the animation")->required();
    app->add_option("FRAME", args->frame, "the index of the key frame")->required()->check(IndexText());
    app->add_option("PIN", args->pin, "the index of the pin dragged")->required()->check(IndexText());
    app->add_option("X", args->x, "the goal's x")->required()->check(CoordinateText());
    app->add_option("Y", args->y, "the goal's y")->required()->check(CoordinateText());
    app->add_option("--lock", args->locks, "a pin held in place, by index; repeatable")
        ->check(IndexText())
        ->allow_extra_args(false);
    app->add_flag("--rotate-children", args->rotateChildren, "turn the children with the bones they hang on");
    return {app, [args] { return RunIk(*args); }};
}

}  // namespace kovra::cli
