#include "doc/skins.h"

#include <gtest/gtest.h>

namespace kovra {
namespace {

TEST(Skins, AutoSkinAngleKeepsTheSpriteUpright) {
    Wirrel w;
    w.textures = {{0, 0, 0, 20, 10}, {0, 0, 0, 10, 20}, {0, 0, 0, 10, 10}};
    struct Case {
        int texture;
        float pinAngle;
        float expected;
    };
    const float up = 1.5707964f;
    const float down = 6.2831855f - 1.5707964f;
    const std::vector<Case> cases = {
        {0, 2.0f, 3.1415927f}, {0, 0.0f, 0.0f}, {0, 5.0f, 0.0f}, {0, -4.0f, 3.1415927f},  // wide
        {1, 4.0f, up},         {1, 1.0f, down}, {1, -1.0f, up},                           // tall
        {2, 4.0f, up},         {2, 3.0f, down},                                           // square: as tall
        {-1, 4.0f, up},                                                                   // no texture
    };
    for (const Case& c : cases) {
        EXPECT_EQ(AutoSkinAngle(w, c.texture, c.pinAngle), c.expected) << c.texture << " " << c.pinAngle;
    }
}

TEST(Skins, SetPinSkinKeepsSharedEntries) {
    // Pin 0 shares skin 0 between two key frames; pins 1 and 2 have skins of their own; pin 3 has none.
    const auto pin = [](int skin) { return WirrelPin{.skin = skin}; };
    Wirrel start;
    start.skins = {{0}, {1}, {2}};
    start.anims = {
        {MakeName("a"), {{{pin(0), pin(1), pin(2), pin(-1)}}, {{pin(0), pin(-1), pin(2), pin(-1)}}}}};
    const WirrelSkin fresh{7, 1, 2, 3, 4, 5, 6};
    const WirrelSkin cleared{-1};
    struct Case {
        const char* what;
        int pin;
        WirrelSkin values;
        std::vector<WirrelSkin> skins;
        std::vector<int> firstKey, secondKey;  // the skin of each pin afterwards
    };
    const std::vector<Case> cases = {
        {"shared: a new entry", 0, fresh, {{0}, {1}, {2}, fresh}, {3, 1, 2, -1}, {0, -1, 2, -1}},
        {"own: overwritten", 1, fresh, {{0}, fresh, {2}}, {0, 1, 2, -1}, {0, -1, 2, -1}},
        {"own, no texture: erased", 1, cleared, {{0}, {2}}, {0, -1, 1, -1}, {0, -1, 1, -1}},
        {"none: a new entry", 3, cleared, {{0}, {1}, {2}, cleared}, {0, 1, 2, 3}, {0, -1, 2, -1}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Wirrel w = start;
        SetPinSkin(w, w.anims[0].keys[0], c.pin, c.values);
        EXPECT_EQ(w.skins, c.skins);
        for (const auto& [key, expected] : {std::pair{0, c.firstKey}, std::pair{1, c.secondKey}}) {
            for (std::size_t i = 0; i < expected.size(); ++i) {
                EXPECT_EQ(w.anims[0].keys[key].pins[i].skin, expected[i]) << key << ":" << i;
            }
        }
    }
}

TEST(Skins, QuadAlongTheBone) {
    // A bone pointing up from (1, 1) to (1, 3): the offsets go along it, then across to its left.
    const WirrelPin pin{.angle = 1.5707964f, .length = 2, .scale = 2};
    const WirrelSkin skin{0, 1.0f, 0.5f, 1.0f, 2.0f, 1.5707964f, -1};
    const SkinQuad quad = MakeSkinQuad(pin, {1, 3}, {1, 1}, skin, WirrelTexture{0, 0, 0, 30, 10}, 10);
    EXPECT_EQ(quad.halfWidth, 3.0f);
    EXPECT_EQ(quad.halfHeight, 2.0f);
    EXPECT_EQ(quad.centre, (PinPoint{0.5f, 3.0f}));
    EXPECT_NEAR(quad.axis.x, -1.0f, 1e-6f);
    EXPECT_NEAR(quad.axis.y, 0.0f, 1e-6f);
    EXPECT_NEAR(quad.normal.y, -1.0f, 1e-6f);

    // A bone of no length still lies along its angle.
    const SkinQuad flat = MakeSkinQuad({.angle = 1.5707964f}, {0, 0}, {0, 0}, {.offsetX = 1}, {}, 10);
    EXPECT_NEAR(flat.centre.y, 1.0f, 1e-6f);
}

TEST(Skins, CollisionChainsGrowAtTheirEnd) {
    Wirrel w;
    w.aabbs = {{0, 0, 1, 1, 0, -1}};  // someone else's
    WirrelKey key{{WirrelPin{}}};
    EXPECT_EQ(AddAabb(w, key, 0, {2, 3, -2, -3, 1, 9}), 1);
    EXPECT_EQ(AddAabb(w, key, 0, {0, 0, 1, 1, 2, 9}), 2);
    EXPECT_EQ(AddAabb(w, key, 0, {0, 0, 1, 1, 3, 9}), 3);
    EXPECT_EQ(key.pins[0].aabb, 1);
    EXPECT_EQ(w.aabbs,
              (std::vector<WirrelAabb>{
                  {0, 0, 1, 1, 0, -1}, {-2, -3, 2, 3, 1, 2}, {0, 0, 1, 1, 2, 3}, {0, 0, 1, 1, 3, -1}}));
}

}  // namespace
}  // namespace kovra
