// Drawing bones: a press with Shift (or while linking) starts a rubber band at a pin or at a preview
// pin in empty space, and the next press ends it: a new bone, a new root with its first bone, or one
// tree hung under another.

#include <cmath>

#include "commands/pin_commands.h"
#include "views/workspace/workspace_frame.h"
#include "views/workspace/workspace_input.h"

namespace kovra {

std::string WorkspaceInput::NewPinName(const char* stem) const {
    return stem + std::to_string(doc_.Wirrel().pinNames.size());
}

void WorkspaceInput::PolarFromPixel(int x, int y, int parent, float& angle, float& length) const {
    const ScreenMapping map = ScreenMapping::Of(state_.view);
    float px = static_cast<float>(x) - map.originX;
    float py = static_cast<float>(y) - map.originY;
    if (ValidPin(parent)) {
        px -= state_.view.pinPixels[parent].x;
        py -= state_.view.pinPixels[parent].y;
    }
    px /= map.ppuX;
    py /= map.ppuY;
    length = std::sqrt(px * px + py * py);
    angle = NormalizeAngle(std::atan2(py, px));
}

void WorkspaceInput::RemovePreviewPin() {
    if (!doc_.HasCurrentAnim() || doc_.Wirrel().pinNames.empty()) {
        return;
    }
    const int id = static_cast<int>(doc_.Wirrel().pinNames.size()) - 1;
    for (WirrelKey& key : doc_.CurrentAnim().keys) {
        if (!key.pins.empty() && key.pins.back().id == id) {
            key.pins.pop_back();
        }
    }
    doc_.Wirrel().pinNames.pop_back();
    doc_.onChanged.Call();
}

void WorkspaceInput::Link() {
    SelectionTracker& sel = state_.pinSelection;
    const int hot = ValidPin(sel.hotItem) ? sel.hotItem : -1;
    const int part = sel.hotPart;
    if (hot < 0) {
        LinkFromEmpty();
    } else if (part != 0 && part != 1 && part != 2) {
        return;
    } else if (!state_.linking) {
        state_.linkPreviousSel = sel.currentItem;
        state_.marqueeStart = sel.Snapshot();
        sel.SetCurrent(hot, part);
        state_.linkTemporaryPin = false;
    } else {
        LinkOntoPin(hot, sel.currentItem);
    }
    state_.linking = !state_.linking;
    PoseStep();
}

void WorkspaceInput::LinkFromEmpty() {
    SelectionTracker& sel = state_.pinSelection;
    int parent = -1;
    if (state_.linking) {
        parent = sel.currentItem;
        if (sel.currentPart == 2 && ValidPin(parent)) {
            parent = state_.pose[parent].parent;
        }
    }
    PinDescription pin;
    PolarFromPixel(state_.pressX, state_.pressY, parent, pin.angle, pin.length);
    pin.parent = parent;
    pin.name = NewPinName("Pin");
    if (!state_.linking) {
        state_.linkPreviousSel = sel.currentItem;
        const int preview = doc_.AddPin(pin.angle, pin.length, -1, pin.name);
        state_.marqueeStart = sel.Snapshot();
        PoseStep();
        sel.SetCurrent(preview, 0);
        state_.linkTemporaryPin = preview >= 0;
        return;
    }
    if (!state_.linkTemporaryPin) {
        sel.SetCurrent(state_.linkPreviousSel, 0);
        Send(std::make_shared<CommandPinNew>(doc_, sel, pin));
        return;
    }
    // The preview root becomes real together with its first bone, if a change since hasn't taken it.
    const std::vector<WirrelPin>& pins = doc_.CurrentKey().pins;
    const auto previewId = static_cast<int>(doc_.Wirrel().pinNames.size()) - 1;
    if (pins.empty() || pins.back().id != previewId) {
        state_.linkTemporaryPin = false;
        return;
    }
    const WirrelPin& previewRecord = pins.back();
    PinDescription root{previewRecord.angle, previewRecord.length, -1,
                        std::string(NameOf(doc_.Wirrel().pinNames.back()))};
    RemovePreviewPin();
    sel.SetCurrent(state_.linkPreviousSel, 0);
    Send(std::make_shared<CommandPinNew2>(doc_, sel, root, pin));
    state_.linkTemporaryPin = false;
}

void WorkspaceInput::LinkOntoPin(int hot, int current) {
    SelectionTracker& sel = state_.pinSelection;
    const Pose& pose = state_.pose;
    const int last = static_cast<int>(pose.size()) - 1;
    const auto childless = [&pose](int pin) {
        for (const WirrelPin& p : pose) {
            if (p.parent == pin) {
                return false;
            }
        }
        return true;
    };
    if (state_.linkTemporaryPin && current == last && pose[current].Type() == Root && childless(current)) {
        if (hot != current) {
            // A bone from the hot pin to where the preview root stands.
            PinDescription pin;
            const PinPixel& at = state_.view.pinPixels[current];
            const ScreenMapping map = ScreenMapping::Of(state_.view);
            PolarFromPixel(static_cast<int>(std::floor(at.x + map.originX)),
                           static_cast<int>(std::floor(at.y + map.originY)), hot, pin.angle, pin.length);
            pin.parent = hot;
            sel.SetCurrent(state_.linkPreviousSel, 0);
            RemovePreviewPin();
            pin.name = NewPinName("Pin");
            Send(std::make_shared<CommandPinNew>(doc_, sel, pin));
        } else {
            RemovePreviewPin();
            sel.SetCurrent(state_.linkPreviousSel, 0);
            sel.SetHot(-1, 0);
        }
        state_.linkTemporaryPin = false;
        return;
    }
    state_.linkTemporaryPin = false;
    if (!ValidPin(current)) {
        return;
    }
    if (sel.currentPart == 2 && ValidPin(pose[current].parent)) {
        current = pose[current].parent;
    }
    const WirrelKey& key = doc_.CurrentKey();
    const int rootOfCurrent = RootOf(key, current);
    const int rootOfHot = RootOf(key, hot);
    if (rootOfCurrent == rootOfHot) {
        if (hot != current) {
            window_.Tell("Invalid action", "Invalid action. Creating this bone would form a loop.",
                         aurel::PromptIcon::Warning);
        }
        return;
    }
    sel.SetCurrent(state_.linkPreviousSel, 0);
    // The tree of the higher root goes under the other.
    const bool underCurrent = rootOfCurrent < rootOfHot;
    auto command = std::make_shared<CommandPinParent>(doc_, sel, window_, underCurrent ? hot : current,
                                                      underCurrent ? current : hot);
    if (command->valid) {
        Send(command);
    }
}

}  // namespace kovra
