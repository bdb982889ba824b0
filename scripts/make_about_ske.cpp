// Writes About.ske, the small waving figure that the About box plays: a hip, a spine with a head, two
// arms and two legs, and one animation in which the right arm waves.
//
// Build and run: cmake --build --preset debug --target make-about-ske && build/make-about-ske data/About.ske

#include <cmath>
#include <cstdio>

#include "base/prompt.h"
#include "doc/wirrel_doc.h"

namespace {

using kovra::WirrelPin;

constexpr float kTurn = 6.2831855f;

// A direction given in turns counted anticlockwise from the right, as on paper; the workspace's y axis
// points down, so the document's angle turns the other way, kept in [0, 1) of a turn.
float Turns(float turns) {
    return kTurn * (-turns - std::floor(-turns));
}

WirrelPin Pin(int id, int parent, float turns, float length) {
    WirrelPin pin;
    pin.id = id;
    pin.parent = parent;
    pin.angle = Turns(turns);
    pin.length = length;
    pin.flags = parent < 0 ? kovra::Root : kovra::Bone;
    return pin;
}

// The pose with the right arm's upper and lower bone at the given directions, the body bobbing by
// `bob` units and the head tilted by `tilt` turns.
std::vector<WirrelPin> Pose(float upper, float lower, float bob, float tilt) {
    return {Pin(0, -1, 0.25f, 0.5f + bob), Pin(1, 0, 0.25f, 2.2f), Pin(2, 1, 0.25f + tilt, 1.1f),
            Pin(3, 1, 0.62f, 1.3f),        Pin(4, 3, 0.70f, 1.2f), Pin(5, 1, upper, 1.3f),
            Pin(6, 5, lower, 1.2f),        Pin(7, 0, 0.72f, 1.7f), Pin(8, 7, 0.75f, 1.7f),
            Pin(9, 0, 0.78f, 1.7f),        Pin(10, 9, 0.75f, 1.7f)};
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make-about-ske OUT.ske\n");
        return 2;
    }
    kovra::WirrelDoc doc;
    doc.Reset(true);
    kovra::Wirrel& w = doc.Wirrel();
    for (const char* name : {"hip", "spine", "head", "arm left", "hand left", "arm right", "hand right",
                             "leg left", "foot left", "leg right", "foot right"}) {
        w.pinNames.push_back(kovra::MakeName(name));
    }
    kovra::WirrelAnim& wave = w.anims[0];
    kovra::SetName(wave.name, "Wave");
    doc.cursor.animName = wave.name;
    wave.keys.clear();
    const float frames[][4] = {
        {0.08f, 0.20f, 0.0f, 0.0f},
        {0.10f, 0.30f, 0.08f, 0.02f},
        {0.08f, 0.20f, 0.0f, 0.0f},
        {0.10f, 0.12f, 0.08f, -0.02f},
    };
    for (const auto& f : frames) {
        kovra::WirrelKey key;
        key.pins = Pose(f[0], f[1], f[2], f[3]);
        key.ticks = 360;
        wave.keys.push_back(key);
    }
    aurel::SilentPrompt prompt;
    return doc.Save(aurel::DualString(argv[1]), true, prompt) ? 0 : 1;
}
