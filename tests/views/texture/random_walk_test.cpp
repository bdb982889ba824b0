// Thousands of random events on the texture view, with the view zoomed and scrolled at random and the
// prompt answering at random: nothing may crash or read outside a buffer (the sanitized build runs this
// too), every texture stays a non-empty rectangle on its image, and undoing everything gives back the
// saved document of the start, redoing everything the one of the end.

#include <gtest/gtest.h>

#include <random>

#include "gui/virtual_keys.h"
#include "views/texture/texture_bench.h"

namespace kovra {
namespace {

namespace win = kestrel2::win;
using test::TextureBench;

constexpr std::uint8_t kKeys[] = {win::kVkShift, win::kVkControl, win::kVkMenu, win::kVkEscape,
                                  win::kVkTab,   win::kVkDelete,  0x41};

void RandomEvent(TextureBench& b, std::mt19937& rng) {
    const auto pick = [&rng](int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); };
    const int x = pick(220) - 30;
    const int y = pick(180) - 30;
    switch (pick(10)) {
        case 0:
        case 1:
        case 2:
            b.Move(x, y);
            break;
        case 3:
            b.Press(pick(3), x, y);
            break;
        case 4:
            b.Release(pick(3), x, y);
            break;
        case 5:
            b.Tick(1 + pick(4));
            break;
        case 6: {
            const std::uint8_t key = kKeys[pick(sizeof kKeys)];
            b.prompt.Answer(pick(2) == 0 ? aurel::kAnswerOk : aurel::kAnswerCancel);
            b.Key(key, b.event.keys[key] == 0);
            break;
        }
        case 7:
            AddZoom(b.state.view, b.state.limits, (pick(2) == 0 ? 0.1f : -0.1f) * b.state.view.zoom);
            b.Paint();
            break;
        case 8:
            b.event.type = win::kInputMouseLeft;
            b.input.OnInput(b.event);
            b.input.ClearHot();
            break;
        default:
            if (pick(8) == 0 && b.stack.CanUndo()) {
                b.stack.UndoRedo(pick(2) == 0, b.hub);
                b.Paint();
            }
            break;
    }
}

TEST(TextureRandomWalk, TexturesStayOnTheImageAndEverythingUndoes) {
    for (unsigned seed = 1; seed <= 8; ++seed) {
        std::mt19937 rng(seed);
        TextureBench bench(40 + static_cast<int>(rng() % 300), 30 + static_cast<int>(rng() % 200), 160, 120,
                           0.5f + static_cast<float>(rng() % 8));
        bench.AddTexture(2, 3, 10, 8);
        bench.doc.Wirrel().skins.push_back(WirrelSkin{.texture = 0});
        const std::vector<std::uint8_t> start = bench.Saved();
        const int width = bench.doc.Image(0)->surface.Width();
        const int height = bench.doc.Image(0)->surface.Height();
        for (int step = 0; step < 1200; ++step) {
            RandomEvent(bench, rng);
            for (const WirrelTexture& t : bench.doc.Wirrel().textures) {
                ASSERT_GE(t.x, 0) << "seed " << seed << " step " << step;
                ASSERT_GE(t.y, 0) << "seed " << seed << " step " << step;
                ASSERT_LE(t.x + t.width, width) << "seed " << seed << " step " << step;
                ASSERT_LE(t.y + t.height, height) << "seed " << seed << " step " << step;
            }
            const int count = static_cast<int>(bench.doc.Wirrel().textures.size());
            ASSERT_LT(bench.selection.currentItem, count) << "seed " << seed << " step " << step;
        }
        // Let go of everything, as a focus loss would, before the history is walked.
        for (int button : {win::kButtonLeft, win::kButtonRight, win::kButtonMiddle}) {
            if (bench.event.buttons[button] != 0) {
                bench.Release(button, 10, 10);
            }
        }
        // The walk may end with steps undone: redo goes back only as far as the walk had come.
        const std::vector<std::uint8_t> end = bench.Saved();
        int applied = 0;
        for (; bench.stack.CanUndo(); ++applied) {
            bench.stack.UndoRedo(false, bench.hub);
        }
        EXPECT_EQ(bench.Saved(), start) << "seed " << seed;
        for (int i = 0; i < applied; ++i) {
            bench.stack.UndoRedo(true, bench.hub);
        }
        EXPECT_EQ(bench.Saved(), end) << "seed " << seed;
    }
}

}  // namespace
}  // namespace kovra
