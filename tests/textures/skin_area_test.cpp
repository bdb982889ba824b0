#include "textures/skin_area.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "commands/pin_commands.h"
#include "sheet.h"
#include "support/scripted_prompt.h"
#include "textures/detection.h"

namespace kovra {
namespace {

// A bone two units long from the origin along x, at 32 pixels a unit, with a skin of a 30 by 30 texture
// (a unit at 30 pixels a unit): the quad spans x 16 to 48 and y -16 to 16. The texture is opaque only in
// its top right 10 by 10 corner, which lies at x 37.3 to 48, y -16 to -5.3; its one mark is at
// (38.07, -6.07).
struct SkinScene {
    SkinScene() {
        std::vector<std::string> rows(30, std::string(30, '.'));
        for (int y = 0; y < 10; ++y) {
            rows[y].replace(20, 10, 10, '#');
        }
        auto image = test::Sheet(rows);
        doc.SetImage(0, image);
        doc.Wirrel().textures = {{0, 0, 0, 30, 30}, {5, 0, 0, 30, 30}};
        doc.Wirrel().skins = {{0}, {1}};
        doc.AddPin(0.0f, 0.0f, -1, "root");
        doc.AddPin(0.0f, 2.0f, 0, "bone");
        doc.CurrentKey().pins[1].skin = 0;
        int keyChoice = 0;
        SelectionTracker textures;
        SelectionTracker images;
        ApplyDetection(true, *image, 0, doc, prompt, textures, keyChoice, images);
        view = ViewTransform::OfClient(640, 480);
        view.pinPixels = {{0, 0, 0}, {64, 0, 1}};
    }

    WirrelDoc doc;
    test::ScriptedPrompt prompt;
    ViewTransform view;
};

TEST(SkinArea, MarksThenOutline) {
    struct Case {
        const char* name;
        int skin;
        PixelBox box;
        bool hit;
    };
    const Case cases[] = {
        {"a box round the mark", 0, {36, -8, 40, -4}, true},
        {"a box on transparent pixels", 0, {18, 4, 24, 10}, false},
        {"an outline across opaque pixels", 0, {40, -14, 44, -10}, true},
        {"a box away from the quad", 0, {100, 100, 110, 110}, false},
        {"the box covering the whole quad", 0, {0, -20, 60, 20}, true},
        {"a missing image shows its picture", 1, {18, 4, 24, 10}, true},
        {"no skin", -1, {0, -20, 60, 20}, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        SkinScene scene;
        scene.doc.CurrentKey().pins[1].skin = c.skin;
        EXPECT_EQ(SkinInBox(scene.doc, scene.doc.CurrentKey().pins, scene.view, 1, c.box), c.hit);
    }
}

TEST(SkinArea, AreaSelectionPicksSkinsWhenTheSkinViewIsOn) {
    for (bool skinView : {true, false}) {
        SkinScene scene;
        scene.doc.viewFlags[3] = skinView;
        SelectionTracker selection;
        // The origin is at pixel (320, 240): the box round the mark, far from both pins.
        CommandPinSelArea command(356, 232, 360, 236, scene.doc, selection, scene.view, false, {});
        EXPECT_EQ(selection.selected, skinView ? std::set<int>{1} : std::set<int>{});
    }
}

}  // namespace
}  // namespace kovra
