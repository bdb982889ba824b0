// Scripted gestures on the texture view: drawing, dragging every grip and the body past every image
// edge, deleting with and without skins, selection by keys and clicks, auto-scroll, and undo and redo
// compared byte for byte on the saved document.

#include <gtest/gtest.h>

#include "gui/virtual_keys.h"
#include "views/texture/texture_bench.h"

namespace kovra {
namespace {

namespace win = kestrel2::win;
using test::TextureBench;

struct Rect {
    int x, y, w, h;
    bool operator==(const Rect&) const = default;
};

Rect Of(const WirrelTexture& t) {
    return {t.x, t.y, t.width, t.height};
}

std::ostream& operator<<(std::ostream& out, const Rect& r) {
    return out << "(" << r.x << ", " << r.y << ", " << r.w << ", " << r.h << ")";
}

TEST(TextureGesture, RubberBandMakesAClampedTextureWithEitherButton) {
    TextureBench bench;  // 64 x 48 at zoom 2: image pixel x lies at client 2x + 16, y at 2y + 12
    bench.Drag(win::kButtonRight, bench.X(10.5f), bench.Y(8.5f), bench.X(20.5f), bench.Y(30.5f));
    ASSERT_EQ(bench.doc.Wirrel().textures.size(), 1u);
    EXPECT_EQ(Of(bench.Texture(0)), (Rect{10, 8, 11, 23}));
    EXPECT_EQ(bench.selection.currentItem, 0);

    // Shift with the left button draws too; a band dragged beyond the image stops at its edges.
    bench.Key(win::kVkShift, true);
    bench.Drag(win::kButtonLeft, bench.X(40.5f), bench.Y(20.5f), 159, 119);
    bench.Key(win::kVkShift, false);
    ASSERT_EQ(bench.doc.Wirrel().textures.size(), 2u);
    EXPECT_EQ(Of(bench.Texture(1)), (Rect{40, 20, 24, 28}));

    // A band wholly outside the image still makes one pixel on its corner.
    bench.Drag(win::kButtonRight, 0, 0, 2, 3);
    ASSERT_EQ(bench.doc.Wirrel().textures.size(), 3u);
    EXPECT_EQ(Of(bench.Texture(2)), (Rect{0, 0, 1, 1}));
    EXPECT_EQ(bench.stack.Size(), 3u);
}

TEST(TextureGesture, EveryGripAndTheBodyStopAndFlipAtEveryImageEdge) {
    enum Dir { kRight, kLeft, kUp, kDown };
    // The texture (20, 16, 16, 12) on the 64 x 48 image, each grip dragged 100 pixels each way.
    // Horizontal results (x, w) and vertical results (y, h) by which edge moves and where to.
    const auto horizontal = [](int grip, Dir dir) -> std::pair<int, int> {
        const bool right = grip == kGripRight || grip == kGripTopRight || grip == kGripBottomRight;
        const bool left = grip == kGripLeft || grip == kGripTopLeft || grip == kGripBottomLeft;
        if (grip == kGripMove) {
            return dir == kRight ? std::pair{48, 16} : dir == kLeft ? std::pair{0, 16} : std::pair{20, 16};
        }
        if (right && dir == kRight)
            return {20, 44};
        if (right && dir == kLeft)
            return {0, 20};  // past the left edge: turned over
        if (left && dir == kRight)
            return {36, 28};  // past the right edge: turned over
        if (left && dir == kLeft)
            return {0, 36};
        return {20, 16};
    };
    const auto vertical = [](int grip, Dir dir) -> std::pair<int, int> {
        const bool top = grip == kGripTop || grip == kGripTopLeft || grip == kGripTopRight;
        const bool bottom = grip == kGripBottom || grip == kGripBottomLeft || grip == kGripBottomRight;
        if (grip == kGripMove) {
            return dir == kDown ? std::pair{36, 12} : dir == kUp ? std::pair{0, 12} : std::pair{16, 12};
        }
        if (top && dir == kUp)
            return {0, 28};
        if (top && dir == kDown)
            return {28, 20};
        if (bottom && dir == kDown)
            return {16, 32};
        if (bottom && dir == kUp)
            return {0, 16};
        return {16, 12};
    };
    for (int grip = 0; grip <= kGripMove; ++grip) {
        for (Dir dir : {kRight, kLeft, kUp, kDown}) {
            TextureBench bench;
            bench.AddTexture(20, 16, 16, 12);
            bench.selection.SetCurrent(0, 0);
            bench.Paint();
            const int x = bench.HitX(grip);
            const int y = bench.HitY(grip);
            const int dx = dir == kRight ? 200 : dir == kLeft ? -200 : 0;
            const int dy = dir == kDown ? 200 : dir == kUp ? -200 : 0;
            const std::vector<std::uint8_t> before = bench.Saved();
            bench.Drag(win::kButtonLeft, x, y, x + dx, y + dy);

            const auto [ex, ew] = horizontal(grip, dir);
            const auto [ey, eh] = vertical(grip, dir);
            EXPECT_EQ(Of(bench.Texture(0)), (Rect{ex, ey, ew, eh})) << "grip " << grip << " dir " << dir;
            // The whole drag is one step of the history, and it undoes to the very bytes of before.
            EXPECT_EQ(bench.stack.Size(), 1u) << "grip " << grip << " dir " << dir;
            const std::vector<std::uint8_t> after = bench.Saved();
            bench.UndoAll();
            EXPECT_EQ(bench.Saved(), before);
            bench.RedoAll();
            EXPECT_EQ(bench.Saved(), after);
        }
    }
}

TEST(TextureGesture, PressOnAnotherTextureSelectsItAndDragsItsBody) {
    TextureBench bench;
    bench.AddTexture(2, 6, 8, 8);
    bench.AddTexture(30, 20, 10, 10);
    bench.selection.SetCurrent(0, 0);
    bench.Paint();
    bench.Drag(win::kButtonLeft, bench.X(35.0f), bench.Y(25.0f), bench.X(38.0f), bench.Y(21.0f));
    EXPECT_EQ(bench.selection.currentItem, 1);
    EXPECT_EQ(Of(bench.Texture(1)), (Rect{33, 16, 10, 10}));
    EXPECT_EQ(Of(bench.Texture(0)), (Rect{2, 6, 8, 8}));
    // The selection and the move are two steps.
    ASSERT_EQ(bench.stack.Size(), 2u);
    EXPECT_EQ(bench.stack.UndoLabel().Utf8(), "Modify Texture");
}

TEST(TextureGesture, EscapeAndTheOtherButtonCancelADragOrABand) {
    TextureBench bench;
    bench.AddTexture(20, 16, 16, 12);
    bench.selection.SetCurrent(0, 0);
    bench.Paint();
    const int x = bench.HitX(kGripBottomRight);
    const int y = bench.HitY(kGripBottomRight);
    bench.Press(win::kButtonLeft, x, y);
    bench.Move(x + 20, y + 10);
    bench.Tick(3);
    EXPECT_EQ(Of(bench.Texture(0)), (Rect{20, 16, 26, 17}));
    bench.Tap(win::kVkEscape);
    EXPECT_EQ(Of(bench.Texture(0)), (Rect{20, 16, 16, 12}));
    EXPECT_FALSE(bench.state.dragging);
    bench.Tick();
    bench.Release(win::kButtonLeft, x + 20, y + 10);
    EXPECT_EQ(Of(bench.Texture(0)), (Rect{20, 16, 16, 12}));
    EXPECT_EQ(bench.stack.Size(), 0u);

    // A band cancelled by the left button makes nothing.
    bench.Press(win::kButtonRight, 10, 10);
    bench.Move(60, 60);
    bench.Press(win::kButtonLeft, 60, 60);
    bench.Release(win::kButtonLeft, 60, 60);
    bench.Release(win::kButtonRight, 60, 60);
    EXPECT_EQ(bench.doc.Wirrel().textures.size(), 1u);
    EXPECT_FALSE(bench.state.rubberBand);
}

TEST(TextureGesture, DeleteWarnsOnlyWhenSkinsUseTheTexturesAndCancelKeepsThem) {
    TextureBench bench;
    bench.AddTexture(0, 4, 8, 8);
    bench.AddTexture(10, 4, 8, 8);
    bench.AddTexture(20, 4, 8, 8);
    bench.doc.Wirrel().skins.push_back(WirrelSkin{.texture = 2});

    // Texture 0 has no skin: no question, and the texture after it takes its place in the selection.
    bench.selection.SetCurrent(0, 0);
    bench.Tap(win::kVkDelete);
    EXPECT_TRUE(bench.prompt.asked.empty());
    ASSERT_EQ(bench.doc.Wirrel().textures.size(), 2u);
    EXPECT_EQ(bench.selection.currentItem, 0);

    // Texture 2, now 1, has a skin: Cancel keeps everything.
    bench.selection.SetCurrent(1, 0);
    bench.prompt.Answer(aurel::kAnswerCancel);
    const std::vector<std::uint8_t> kept = bench.Saved();
    bench.Tap(win::kVkDelete);
    ASSERT_EQ(bench.prompt.asked.size(), 1u);
    EXPECT_EQ(bench.prompt.asked[0].title.Utf8(), "Warning");
    EXPECT_EQ(bench.prompt.asked[0].text.Utf8(), "WARNING! The skin(s) using this texture will be reset.");
    EXPECT_EQ(bench.prompt.asked[0].buttons, aurel::PromptButtons::OkCancel);
    EXPECT_EQ(bench.prompt.asked[0].icon, aurel::PromptIcon::Warning);
    EXPECT_EQ(bench.Saved(), kept);

    // Both selected: the warning speaks of several, and OK deletes them and resets the skin.
    bench.selection.Add(0, false);
    bench.prompt.Answer(aurel::kAnswerOk);
    bench.Tap(win::kVkDelete);
    ASSERT_EQ(bench.prompt.asked.size(), 2u);
    EXPECT_EQ(bench.prompt.asked[1].text.Utf8(), "WARNING! The skin(s) using these textures will be reset.");
    EXPECT_TRUE(bench.doc.Wirrel().textures.empty());
    EXPECT_TRUE(bench.doc.Wirrel().skins.empty());
    EXPECT_EQ(bench.selection.currentItem, -1);

    bench.UndoAll();
    EXPECT_EQ(bench.doc.Wirrel().textures.size(), 3u);
    EXPECT_EQ(bench.doc.Wirrel().skins.size(), 1u);
}

TEST(TextureGesture, TabWrapsBothWaysAndEscapeOrAStillClickDeselects) {
    TextureBench bench;
    bench.AddTexture(0, 4, 8, 8);
    bench.AddTexture(10, 4, 8, 8);
    bench.AddTexture(20, 4, 8, 8);
    const std::vector<int> forward = {0, 1, 2, 0};
    for (int expected : forward) {
        bench.Tap(win::kVkTab);
        EXPECT_EQ(bench.selection.currentItem, expected);
    }
    bench.Key(win::kVkShift, true);
    for (int expected : {2, 1, 0, 2}) {
        bench.Tap(win::kVkTab);
        EXPECT_EQ(bench.selection.currentItem, expected);
    }
    bench.Key(win::kVkShift, false);
    EXPECT_EQ(bench.stack.UndoLabel().Utf8(), "Texture Selection");

    bench.Tap(win::kVkEscape);
    EXPECT_EQ(bench.selection.currentItem, -1);

    // A click on empty space that moved pans and keeps the selection; a still one deselects.
    bench.Tap(win::kVkTab);
    bench.Drag(win::kButtonLeft, 150, 110, 140, 100);
    EXPECT_EQ(bench.selection.currentItem, 0);
    bench.Press(win::kButtonLeft, 150, 110);
    bench.Release(win::kButtonLeft, 150, 110);
    EXPECT_EQ(bench.selection.currentItem, -1);
}

TEST(TextureGesture, ADragHeldAtTheEdgeScrollsTheViewAndKeepsMovingTheTexture) {
    TextureBench bench(400, 300, 160, 120, 1.0f);
    bench.AddTexture(10, 10, 20, 20);
    bench.selection.SetCurrent(0, 0);
    bench.Paint();
    const int x = bench.HitX(kHitBody);
    const int y = bench.HitY(kHitBody);
    bench.Press(win::kButtonLeft, x, y);
    bench.Move(159, y);
    int lastX = -1;
    float lastCamera = bench.state.view.cameraX;
    for (int i = 0; i < 5; ++i) {
        bench.Tick();
        EXPECT_GT(bench.state.view.cameraX, lastCamera);
        EXPECT_GT(bench.Texture(0).x, lastX);
        lastCamera = bench.state.view.cameraX;
        lastX = bench.Texture(0).x;
    }
    bench.Release(win::kButtonLeft, 159, y);
    EXPECT_EQ(bench.stack.Size(), 1u);

    // A band's first corner stays on its image pixel while the view scrolls under it.
    bench.Press(win::kButtonRight, 80, 60);
    const float cornerX = bench.state.pressWorldX;
    bench.Move(-10, 60);
    bench.Tick(4);
    EXPECT_NEAR(WorldX(bench.state.view, static_cast<float>(bench.state.pressX)), cornerX, 0.5f);
    bench.Release(win::kButtonRight, -10, 60);
    const WirrelTexture& band = bench.Texture(1);
    EXPECT_EQ(band.x, 0);
    EXPECT_EQ(band.x + band.width, static_cast<int>(cornerX));
}

TEST(TextureGesture, WithoutImagesEveryEventGoesToTheListeners) {
    TextureBench bench;
    bench.doc.RemoveImage(0);
    bench.Paint();
    bench.Drag(win::kButtonRight, 10, 10, 100, 100);
    bench.Tap(win::kVkTab);
    EXPECT_TRUE(bench.doc.Wirrel().textures.empty());
    EXPECT_EQ(bench.stack.Size(), 0u);
    EXPECT_EQ(bench.passedOn, 2 + 6 + 2 + 2);  // press, moves, release, then the key
}

}  // namespace
}  // namespace kovra
