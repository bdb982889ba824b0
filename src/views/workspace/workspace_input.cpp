#include "views/workspace/workspace_input.h"

#include <cstdlib>
#include <set>

#include "commands/editor_commands.h"
#include "commands/pin_commands.h"
#include "views/workspace/workspace_frame.h"
#include "views/workspace/workspace_hit.h"

namespace kovra {
namespace {

constexpr std::uint8_t kKeyTab = 0x09;
constexpr std::uint8_t kKeyShift = 0x10;
constexpr std::uint8_t kKeyCtrl = 0x11;
constexpr std::uint8_t kKeyAlt = 0x12;
constexpr std::uint8_t kKeyEscape = 0x1B;
constexpr std::uint8_t kKeyDelete = 0x2E;

using namespace kestrel2::win;

int Sign(int v) {
    return (v > 0) - (v < 0);
}

}  // namespace

WorkspaceInput::WorkspaceInput(WirrelDoc& doc, EditorHub& hub, aurel::Prompt& window, WorkspaceState& state,
                               const WorkspaceBuffers& buffers)
    : doc_(doc), hub_(hub), window_(window), state_(state), buffers_(buffers) {}

void WorkspaceInput::Send(std::shared_ptr<ICommand> command) {
    commandListeners.Call(std::move(command));
}

bool WorkspaceInput::PoseStep() {
    return kovra::PoseStep(doc_, state_, pinRadius_);
}

bool WorkspaceInput::ValidPin(int pin) const {
    return pin >= 0 && pin < static_cast<int>(state_.pose.size()) &&
           pin < static_cast<int>(state_.view.pinPixels.size());
}

void WorkspaceInput::OnInput(const InputEvent& event) {
    state_.shiftDown = event.keys[kKeyShift] != 0;
    state_.ctrlDown = event.keys[kKeyCtrl] != 0;
    state_.altDown = event.keys[kKeyAlt] != 0;
    bool handler = true;
    switch (event.type) {
        case kInputKeyDown:
            handler = KeyDown(event);
            break;
        case kInputKeyUp:
            if (event.key == kKeyCtrl && state_.marquee) {
                SelectArea(false);
            }
            break;
        case kInputMouseLeft:
            state_.pinSelection.SetHot(-1, 0);
            break;
        case kInputMouseMove:
            MouseMove(event);
            break;
        case kInputButtonDown:
        case kInputDoubleClick:
            ButtonDown(event);
            break;
        case kInputButtonUp:
            ButtonUp(event);
            break;
        default:
            break;
    }
    if (handler) {
        switch (state_.editMode) {
            case kModeAnimate:
                OnInputAnimate(event);
                break;
            case kModeBuild:
                if (state_.skinTool == kToolRectangle) {
                    OnInputRect(event);
                } else {
                    OnInputSkin(event);
                }
                break;
            case kModeBackground:
                OnInputBackground(event);
                break;
            default:
                // The texture view stands in the workspace's place then; a key that still arrives here
                // belongs to the editor.
                if (event.type == kInputKeyDown || event.type == kInputWheel) {
                    eventListeners.Call(event);
                }
                break;
        }
    }
    if (event.type == kInputButtonUp) {
        state_.dragging = false;
        state_.panning = false;
        state_.pendingSelect = false;
    }
}

bool WorkspaceInput::KeyDown(const InputEvent& event) {
    SelectionTracker& sel = state_.pinSelection;
    const int count = static_cast<int>(doc_.HasCurrentAnim() ? doc_.CurrentKey().pins.size() : 0);
    switch (event.key) {
        case kKeyTab: {
            if (count > 0) {
                const int highest = sel.selected.empty() ? -1 : *sel.selected.rbegin();
                const int next = !state_.shiftDown ? (highest + 1) % count
                                 : highest <= 0    ? count - 1
                                                   : highest - 1;
                SelectPin(next, 0, false);
            }
            return false;
        }
        case kKeyCtrl:
            if (state_.marquee) {
                SelectArea(true);
            }
            return true;
        case kKeyEscape:
            Escape(event);
            return false;
        case kKeyDelete:
            // In Background the key clears the picture instead.
            if (state_.editMode == kModeBackground) {
                return true;
            }
            if (!sel.selected.empty() && count > 0) {
                Send(std::make_shared<CommandPinDelete>(doc_, sel));
                PoseStep();
            }
            return false;
        default:
            return true;
    }
}

void WorkspaceInput::Escape(const InputEvent& event) {
    const auto click = [this, &event](int button) {
        InputEvent synthetic = event;
        synthetic.key = 0;
        synthetic.button = button;
        synthetic.x = state_.mouseX;
        synthetic.y = state_.mouseY;
        synthetic.dx = 0;
        synthetic.dy = 0;
        synthetic.type = kInputButtonDown;
        synthetic.buttons[button] = 1;
        OnInput(synthetic);
        synthetic.type = kInputButtonUp;
        synthetic.buttons[button] = 0;
        OnInput(synthetic);
    };
    if (event.buttons[kButtonLeft] != 0) {
        click(kButtonRight);
    } else if (event.buttons[kButtonRight] != 0) {
        click(kButtonLeft);
    } else {
        state_.skinHandles.assign(state_.skinHandles.size(), SkinGrip{});
        if (state_.linking) {
            CancelGesture();
        } else {
            SelectPin(-1, 0, false);
        }
    }
}

void WorkspaceInput::MouseMove(const InputEvent& event) {
    state_.mouseX = event.x;
    state_.mouseY = event.y;
    if (state_.editMode == kModeBackground) {
        return;
    }
    if (!state_.marquee && !state_.dragging) {
        Hover();
    }
    if (state_.marquee) {
        state_.scrollX += std::abs(event.dx);
        state_.scrollY += std::abs(event.dy);
        if (!(state_.editMode == kModeBuild && state_.skinTool == kToolRectangle)) {
            SelectArea(state_.ctrlDown);
        }
    }
    if (state_.panning) {
        Pan(state_.view, state_.limits, static_cast<float>(event.dx), static_cast<float>(event.dy));
    }
}

void WorkspaceInput::Hover() {
    const Hit hit = HoverTest(doc_, state_, buffers_.pick, pinRadius_, state_.mouseX, state_.mouseY);
    state_.pinSelection.SetHot(hit.item, hit.part);
}

void WorkspaceInput::ButtonDown(const InputEvent& event) {
    state_.scrollTimer = true;
    state_.pressX = event.x;
    state_.pressY = event.y;
    state_.offsetSeparate = false;
    SelectionTracker& sel = state_.pinSelection;
    if (event.button == kButtonMiddle) {
        state_.panning = true;
    }
    if (event.button == kButtonLeft) {
        if (state_.marquee) {
            sel.Restore(state_.marqueeStart);
            state_.marquee = false;
            EndDrag(kKindPinSelArea, false);
            return;
        }
        const bool linkMode = state_.editMode == kModeAnimate ||
                              (state_.editMode == kModeBuild && state_.skinTool == kToolSkin);
        if (linkMode && (state_.linking || state_.shiftDown)) {
            Link();
            return;
        }
        if (!ValidPin(sel.hotItem)) {
            state_.pendingSelect = true;
            if (event.type == kInputDoubleClick) {
                SetCamera(state_.view, state_.limits, 0.0f, 0.0f);
            } else {
                state_.panning = true;
            }
            return;
        }
        Grab(event);
    }
    if (event.button == kButtonRight && !CancelGesture() && !state_.marquee && !state_.dragging) {
        state_.marqueeStart = sel.Snapshot();
        state_.marquee = true;
    }
}

void WorkspaceInput::ButtonUp(const InputEvent& event) {
    state_.scrollX = 0;
    state_.scrollY = 0;
    state_.scrollTimer = false;
    SelectionTracker& sel = state_.pinSelection;
    if (event.button == kButtonLeft && state_.pendingSelect && event.x == state_.pressX &&
        event.y == state_.pressY) {
        SelectPin(ValidPin(sel.hotItem) ? sel.hotItem : -1, 0, state_.ctrlDown);
    }
    if (event.button == kButtonRight && state_.marquee &&
        !(state_.editMode == kModeBuild && state_.skinTool == kToolRectangle)) {
        state_.marquee = false;
        EndDrag(kKindPinSelArea, true);
    }
    if (event.button == kButtonMiddle) {
        state_.panning = false;
    }
}

bool WorkspaceInput::CancelGesture() {
    const bool temporary = state_.linkTemporaryPin;
    state_.linkTemporaryPin = false;
    if (state_.linking) {
        state_.linking = false;
        if (temporary) {
            RemovePreviewPin();
        }
        state_.pinSelection.SetHot(-1, 0);
        state_.pinSelection.Restore(state_.marqueeStart);
        PoseStep();
        return true;
    }
    if (state_.dragging && state_.editMode == kModeAnimate) {
        state_.dragging = false;
        EndDrag(doc_.viewFlags[kViewIk] ? kKindPinIk : kKindPinFk, false);
        return true;
    }
    return false;
}

void WorkspaceInput::Grab(const InputEvent& event) {
    SelectionTracker& sel = state_.pinSelection;
    int hot = sel.hotItem;
    int part = sel.hotPart;
    const bool build = state_.editMode == kModeBuild;
    const auto hasSkin = [this](int pin) {
        return pin >= 0 && static_cast<std::size_t>(pin) < state_.skins.size() &&
               state_.skins[pin].texture >= 0;
    };
    if (build && part == 0) {
        if (hasSkin(hot)) {
            part = 1;
        }
        const Pose& pose = state_.pose;
        int children = 0;
        int firstSkinned = -1;
        for (int i = 0; i < static_cast<int>(pose.size()); ++i) {
            if (pose[i].parent == hot) {
                ++children;
                firstSkinned = firstSkinned < 0 && hasSkin(i) ? i : firstSkinned;
            }
        }
        if (pose[hot].parent < 0 && children == 1 && firstSkinned >= 0) {
            hot = firstSkinned;
            part = 2;
            sel.SetHot(hot, part);
            sel.Add(hot, false);
            sel.SetCurrent(hot, part);
            PoseStep();
        }
    }
    const bool selected = sel.IsSelected(hot);
    const ScreenMapping map = ScreenMapping::Of(state_.view);
    const SkinGrip& grip = state_.skinHandles[static_cast<std::size_t>(hot) * kGripsPerPin + part];
    if (build && selected) {
        state_.dragPinX = grip.x - map.originX;
        state_.dragPinY = grip.y - map.originY;
    } else {
        state_.dragPinX = state_.view.pinPixels[hot].x;
        state_.dragPinY = state_.view.pinPixels[hot].y;
    }
    const int parent = state_.pose[hot].parent;
    const bool parentAnchor = !build || !selected || !hasSkin(hot) || state_.ctrlDown;
    if (parentAnchor && ValidPin(parent)) {
        state_.dragParentX = state_.view.pinPixels[parent].x;
        state_.dragParentY = state_.view.pinPixels[parent].y;
    }
    state_.dragging = true;
    if (!selected) {
        SelectPin(hot, part, state_.ctrlDown);
        if (state_.ctrlDown && !sel.selected.empty()) {
            state_.dragging = false;
        }
    } else {
        if (sel.currentItem != hot) {
            SelectPin(hot, part, state_.ctrlDown);
        }
        if (state_.ctrlDown) {
            state_.pendingSelect = true;
        }
    }
    if (state_.editMode == kModeAnimate && event.type == kInputDoubleClick) {
        Send(std::make_shared<CommandPinIkLock>(hot, doc_));
    }
    PoseStep();
}

void WorkspaceInput::SelectPin(int pin, int part, bool add) {
    Send(std::make_shared<CommandSel>(doc_, state_.pinSelection, "Pin Selection", kKindPinSelection, pin,
                                      part, add));
}

void WorkspaceInput::SelectArea(bool add) {
    Send(std::make_shared<CommandPinSelArea>(
        static_cast<float>(state_.pressX), static_cast<float>(state_.pressY),
        static_cast<float>(state_.mouseX), static_cast<float>(state_.mouseY), doc_, state_.pinSelection,
        state_.view, add, state_.marqueeStart));
}

void WorkspaceInput::OnTimer() {
    if (!state_.marquee) {
        return;
    }
    const int width = state_.view.clientWidth;
    const int height = state_.view.clientHeight;
    const int mx = state_.mouseX;
    const int my = state_.mouseY;
    const int overX = mx < 0 ? mx : mx >= width - 1 ? mx - width + 3 : 0;
    const int overY = my < 0 ? my : my >= height ? my - height : 0;
    int sx = overX / 2;
    int sy = overY / 2;
    if (sx == 0 && sy != 0) {
        sy += state_.scrollX * Sign(sy);
    } else if (sy == 0 && sx != 0) {
        sx += state_.scrollY * Sign(sx);
    }
    state_.scrollX = std::max(0, state_.scrollX - std::max(7, state_.scrollX / 2));
    state_.scrollY = std::max(0, state_.scrollY - std::max(7, state_.scrollX / 2));
    Pan(state_.view, state_.limits, static_cast<float>(-sx), static_cast<float>(-sy));
    state_.pressX -= sx;
    state_.pressY -= sy;
}

void WorkspaceInput::SetEditMode(int mode) {
    SelectionTracker& sel = state_.pinSelection;
    const int current = sel.currentItem;
    const int old = state_.editMode;
    if (ValidPin(current)) {
        const Pose& pose = state_.pose;
        if (old == kModeBuild && mode == kModeAnimate && sel.currentPart == 2 &&
            ValidPin(pose[current].parent)) {
            const int parent = pose[current].parent;
            sel.Add(parent, false);
            sel.SetCurrent(parent, 0);
            sel.Remove(current);
        } else if (old == kModeAnimate && mode == kModeBuild && pose[current].parent < 0) {
            std::vector<int> children;
            for (int i = 0; i < static_cast<int>(pose.size()); ++i) {
                if (pose[i].parent == current) {
                    children.push_back(i);
                }
            }
            if (children.size() == 1) {
                sel.Add(children.front(), false);
                sel.Remove(current);
            }
        }
    }
    state_.editMode = mode;
    sel.SetHot(-1, 0);
}

bool WorkspaceInput::HasSelection() const {
    switch (state_.editMode) {
        case kModeAnimate:
        case kModeBuild:
            return !state_.pinSelection.selected.empty();
        case kModeBackground:
            return !doc_.background.bitmap.IsEmpty();
        default:
            return false;
    }
}

void WorkspaceInput::ClearSelections() {
    for (SelectionTracker* tracker : {&state_.pinSelection, &state_.texSelection}) {
        tracker->Clear();
        tracker->SetHot(-1, 0);
    }
    ResetView(state_.view, state_.limits);
}

void WorkspaceInput::RemapSelection(const std::vector<int>& map) {
    SelectionTracker& sel = state_.pinSelection;
    const auto to = [&map](int pin) {
        return pin >= 0 && static_cast<std::size_t>(pin) < map.size() ? map[pin] : -1;
    };
    const bool notify = sel.notify;
    sel.notify = false;
    SelectionTracker::Saved saved{{}, to(sel.currentItem), sel.currentPart};
    for (int pin : sel.selected) {
        if (to(pin) >= 0) {
            saved.selected.insert(to(pin));
        }
    }
    sel.Restore(saved);
    sel.SetHot(to(sel.hotItem), sel.hotPart);
    sel.notify = notify;
    if (notify) {
        sel.onSelectionChanged.Call();
        sel.onHotChanged.Call(sel.hotItem);
        sel.onCurrentChanged.Call(sel.currentItem);
    }
}

bool WorkspaceInput::WantsHandCursor() const {
    return !state_.playing && state_.pinSelection.hotItem >= 0;
}

}  // namespace kovra
