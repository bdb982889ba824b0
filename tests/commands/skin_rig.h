#pragma once
// A skinned document for the skin and editor command tests, with the view as the workspace has it in the
// build mode: 32 pixels to the unit, pixels per unit 32, so that a texture pixel is a screen pixel.
//
// Two frames of two skeletons. Root 0 at the origin, bone 1 along x to (4, 0) wearing the wide texture
// 0 (64 x 32), bone 2 from there down to (4, 2) wearing the tall texture 1 (32 x 64); root 3 at (-6, 0)
// with bone 4 down to (-6, 3) wearing texture 0. Skins 0 and 1 are shared by both frames. Frame 0 is
// current; pin 1 is selected, current and hot.

#include <gtest/gtest.h>

#include <vector>

#include "anim/skin_grips.h"
#include "commands/pin_commands.h"
#include "doc_state.h"
#include "support/english.h"

namespace kovra::test {

constexpr float kHalfPi = 1.5707964f;
constexpr float kPinRadius = 4.0f;

class SkinRig : public testing::Test {
protected:
    static void SetUpTestSuite() { LoadEnglish(); }

    void SetUp() override {
        doc.Reset(true);
        Wirrel& w = doc.Wirrel();
        w.pixelsPerUnit = 32;
        w.pinNames = {MakeName("hip"), MakeName("arm"), MakeName("hand"), MakeName("base"), MakeName("pole")};
        w.textures = {{.imageIndex = 0, .width = 64, .height = 32},
                      {.imageIndex = 0, .width = 32, .height = 64}};
        w.skins = {{.texture = 0}, {.texture = 1}, {.texture = 0}};
        const std::vector<WirrelPin> pose = {
            {.flags = Root, .id = 0},
            {.angle = 0, .length = 4, .flags = Bone, .skin = 0, .parent = 0, .id = 1},
            {.angle = kHalfPi, .length = 2, .flags = Bone, .skin = 1, .parent = 1, .id = 2},
            {.angle = 2 * kHalfPi, .length = 6, .flags = Root, .id = 3},
            {.angle = kHalfPi, .length = 3, .flags = Bone, .skin = 2, .parent = 3, .id = 4}};
        Keys() = {{.pins = pose}, {.pins = pose}};
        Keys()[1].pins[4].skin = -1;
        doc.SetFrame(0);
        selection = SelectionTracker{};
        Pick(1, kGripPin);
        hub = RecordingHub{};
        hub.editMode = kModeBuild;
        view = ViewTransform::OfClient(640, 480);
        Refresh();
    }

    std::vector<WirrelKey>& Keys() { return doc.CurrentAnim().keys; }
    std::vector<WirrelPin>& Pins() { return doc.CurrentKey().pins; }
    const WirrelSkin& SkinOf(int pin) { return doc.Wirrel().skins[Pins()[pin].skin]; }

    // Selects `pin` alone and makes it current and hot with `part`, as a press on its grip does.
    void Pick(int pin, int part) {
        selection.Clear();
        selection.Add(pin, false);
        selection.SetCurrent(pin, part);
        selection.SetHot(pin, part);
    }

    // The pose step of the workspace: pin pixels and grips of the current frame.
    void Refresh() {
        FillPinPixels(view, Pins());
        BuildSkinGrips(doc.Wirrel(), Pins(), view, hub.editMode, selection, kPinRadius, grips);
    }

    const SkinGrip& Grip(int pin, int part) const { return grips[pin * kGripsPerPin + part]; }
    Vec2 GripAt(int pin, int part) const { return {Grip(pin, part).x, Grip(pin, part).y}; }

    // The world position of each pin of the current frame.
    std::vector<WorldPoint> Positions() {
        std::vector<WorldPoint> out;
        WorldPositions(Pins(), out);
        return out;
    }

    // The centre of the skin of `pin` in world units.
    PinPoint SkinCentre(int pin) {
        SkinQuad quad;
        EXPECT_TRUE(PoseSkinQuad(doc.Wirrel(), Pins(), Positions(), pin, quad));
        return quad.centre;
    }

    WirrelDoc doc;
    SelectionTracker selection;
    RecordingHub hub;
    ViewTransform view;
    std::vector<SkinGrip> grips;
};

}  // namespace kovra::test
