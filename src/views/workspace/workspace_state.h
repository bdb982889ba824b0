#pragma once
// Everything the workspace view knows between events: the edit mode and tool, the gesture flags, the
// mouse, the camera, the two selections, and the frame data rebuilt before each paint (the evaluated
// pose, the pins' pixels and the skin grips). Painting and input both read it; nothing in it is a
// window.

#include <cstdint>
#include <memory>
#include <vector>

#include "anim/forward.h"
#include "anim/skin_grips.h"
#include "commands/command.h"
#include "doc/editor_hub.h"
#include "doc/selection_tracker.h"
#include "doc/view_transform.h"
#include "doc/wirrel.h"
#include "views/workspace/workspace_camera.h"

namespace kovra {

struct WorkspaceState {
    int editMode = kModeAnimate;
    int skinTool = kToolSkin;
    bool playing = false;
    bool linking = false;           // a bone is being drawn: the rubber band is on
    bool marquee = false;           // a rectangle selection is being drawn
    bool dragging = false;          // the left button holds a pin, skin or grip
    bool panning = false;           // the view follows the mouse (the picture, in Background)
    bool pendingSelect = false;     // a press that may still become a plain click
    bool linkTemporaryPin = false;  // the rubber band starts at a preview pin
    int linkPreviousSel = -1;
    // Modifier keys as sampled at the last input event.
    bool shiftDown = false;
    bool ctrlDown = false;
    bool altDown = false;
    bool hasPaletteSkin = false;
    WirrelSkin paletteSkin;      // the skin on offer in the navigation panel
    bool previewActive = false;  // a test pose is on; its command is pendingCommand, never on the stack
    std::shared_ptr<ICommand> pendingCommand;
    int mouseX = 0;
    int mouseY = 0;
    int pressX = 0;
    int pressY = 0;
    int scrollX = 0;  // auto-scroll speed accumulators
    int scrollY = 0;
    bool scrollTimer = false;     // the 18 ms auto-scroll pulse runs, from a press to its release
    bool offsetSeparate = false;  // a skin offset drag pulls its bones away from the skeleton
    float dragPinX = 0.0f;        // the grabbed point in pose pixels, without the camera
    float dragPinY = 0.0f;
    float dragParentX = 0.0f;
    float dragParentY = 0.0f;
    int tileColumns = 100000;  // the last tile cell under the mouse; 100000 forces a rebuild
    int tileRows = 100000;

    ViewTransform view;  // camera, sizes, and pinPixels of the evaluated pose
    CameraLimits limits;
    SelectionTracker pinSelection;
    SelectionTracker texSelection;
    SelectionTracker::Saved marqueeStart;  // the selection when a marquee or link began

    // Rebuilt by the pose step before each paint and after gestures.
    Pose pose;
    std::vector<WorldPoint> world;      // where each pin of the pose stands, in world units
    std::vector<WirrelSkin> skins;      // the skin of each pin of the pose, texture -1 for none
    std::vector<SkinGrip> skinHandles;  // 13 a pin; part 0 means the pin, 3 the bone line, 4 the body
    std::vector<int> gripPins;          // the pins that show grips in Build
    bool gripHot = false;               // one of them is hot
};

}  // namespace kovra
