#include "commands/repeat.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/english.h"

namespace kovra {
namespace {

TEST(RepeatModesTest, EveryMenuIdGivesItsEntrysMask) {
    unsigned all = 0;
    for (const RepeatMode& mode : kRepeatModes) {
        EXPECT_EQ(RepeatMaskOfMenuId(mode.menuId), mode.mask) << mode.text;
        all |= mode.mask;
    }
    EXPECT_EQ(all, kRepeatAll);
}

// Which frames the walk reaches, as "anim:frame" in order, for a document of three animations of 4, 2
// and 6 frames whose current position is animation 0, frame 2 (or as the row says).
TEST(RepeatWalkTest, TheMaskChoosesTheFramesAndTheCurrentFrameIsNeverReached) {
    struct Case {
        unsigned mask;
        int anim;
        std::uint32_t frame;
        std::string reached;
    };
    const std::vector<Case> cases = {
        {0x001, 0, 2, "0:3 "},
        {0x010, 0, 3, ""},  // post from the last frame: nothing
        {0x002, 0, 2, "0:0 0:1 "},
        {0x200, 0, 0, ""},
        {0x004, 0, 2, "0:0 0:1 0:3 "},
        {0x040, 1, 1, "1:0 "},
        {0x008, 0, 2, "0:0 0:1 0:3 1:0 1:1 2:0 2:1 2:2 2:3 2:4 2:5 "},
        {0x800, 2, 5, "0:0 0:1 0:2 0:3 1:0 1:1 2:0 2:1 2:2 2:3 2:4 "},
    };
    test::LoadEnglish();
    WirrelDoc doc;
    Wirrel& w = doc.Wirrel();
    w.anims.resize(3);
    w.anims[0].keys.resize(4);
    w.anims[1].keys.resize(2);
    w.anims[2].keys.resize(6);
    for (const Case& c : cases) {
        doc.cursor.animIndex = c.anim;
        doc.SetFrame(c.frame);
        std::string reached;
        ForEachRepeatFrame(doc, c.mask, [&](WirrelKey& key) {
            for (std::size_t a = 0; a < w.anims.size(); ++a) {
                for (std::size_t k = 0; k < w.anims[a].keys.size(); ++k) {
                    if (&w.anims[a].keys[k] == &key) {
                        reached += std::to_string(a) + ":" + std::to_string(k) + " ";
                    }
                }
            }
        });
        EXPECT_EQ(reached, c.reached) << "mask " << std::hex << c.mask;
    }
}

}  // namespace
}  // namespace kovra
