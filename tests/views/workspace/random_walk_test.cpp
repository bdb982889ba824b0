// Thousands of random events in every edit mode on a random skinned rig: nothing may crash or read
// outside a buffer (the sanitized build runs this too), and undoing everything gives back the saved
// document of the start.

#include <gtest/gtest.h>

#include <random>

#include "views/workspace/workbench.h"

namespace kovra {
namespace {

using test::Workbench;

constexpr std::uint8_t kKeys[] = {0x10, 0x11, 0x12, 0x1B, 0x09, 0x2E, 0x41};

// The saved document without its collision rectangles: undoing the creation of one leaves it in the
// table and in its pin's chain, by design.
std::vector<std::uint8_t> SavedWithoutRectangles(const Workbench& w) {
    Wirrel tables = w.doc.Wirrel();
    tables.aabbs.clear();
    for (WirrelAnim& anim : tables.anims) {
        for (WirrelKey& key : anim.keys) {
            for (WirrelPin& pin : key.pins) {
                pin.aabb = -1;
            }
        }
    }
    return WriteWirrel(tables, {}, {});
}

void BuildRandomRig(Workbench& w, std::mt19937& rng) {
    std::uniform_real_distribution<float> place(-4.0f, 4.0f);
    const int count = 4 + static_cast<int>(rng() % 8);
    for (int i = 0; i < count; ++i) {
        const int parent = i == 0 || rng() % 5 == 0 ? -1 : static_cast<int>(rng() % i);
        const int pin = w.Pin(parent, place(rng), place(rng) * 0.7f, rng() % 4 == 0 ? Attachment : Bone);
        if (rng() % 2 == 0) {
            w.Skin(pin, static_cast<int>(rng() % 2), WirrelSkin{.scaleX = 2.0f, .angle = place(rng)});
        }
    }
    w.state.hasPaletteSkin = true;
    w.state.paletteSkin = WirrelSkin{.texture = 1};
    w.Paint();
}

void RandomEvent(Workbench& w, std::mt19937& rng) {
    const auto pick = [&rng](int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); };
    const int x = pick(360) - 20;
    const int y = pick(280) - 20;
    switch (pick(10)) {
        case 0:
        case 1:
        case 2:
            w.Move(x, y);
            break;
        case 3:
            w.Press(pick(3), x, y, pick(6) == 0);
            break;
        case 4:
            w.Release(pick(3), x, y);
            break;
        case 5:
            w.Wheel(pick(2) == 0 ? 120 : -120);
            break;
        case 6: {
            const std::uint8_t key = kKeys[pick(sizeof kKeys)];
            w.Key(key, w.event.keys[key] == 0);
            break;
        }
        case 7:
            w.event.type = kestrel2::win::kInputMouseLeft;
            w.input.OnInput(w.event);
            break;
        case 8:
            if (pick(20) == 0) {
                w.input.SetEditMode(std::array{kModeAnimate, kModeBuild, kModeBackground}[pick(3)]);
                w.state.skinTool = pick(3);
            }
            break;
        default:
            w.input.OnTimer();
            break;
    }
}

TEST(WorkspaceRandomWalk, EveryModeSurvivesAndUndoesToTheStart) {
    for (std::uint32_t seed = 1; seed <= 2; ++seed) {
        std::mt19937 rng(seed);
        Workbench w;
        BuildRandomRig(w, rng);
        const auto start = SavedWithoutRectangles(w);
        for (int mode : {kModeAnimate, kModeBuild, kModeBackground}) {
            w.input.SetEditMode(mode);
            for (int step = 0; step < 1500; ++step) {
                RandomEvent(w, rng);
            }
        }
        // Let go of everything: buttons, keys, a link in progress.
        for (int button = 0; button < 3; ++button) {
            w.Release(button, 10, 10);
        }
        for (std::uint8_t key : kKeys) {
            if (w.event.keys[key] != 0) {
                w.Key(key, false);
            }
        }
        w.Key(0x1B, true);
        w.Key(0x1B, false);
        w.UndoAll();
        EXPECT_EQ(SavedWithoutRectangles(w), start) << "seed " << seed;
    }
}

}  // namespace
}  // namespace kovra
