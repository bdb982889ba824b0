// The skin and tile tools of Build mode: grips of the current pin's skin rotate, scale and offset it,
// the pin grips re-hang it (Alt inserts a joint), Ctrl on a pin grip tries a test pose that springs
// back at release, a double click resets, and the tile tool lays copies of the skin cell by cell.

#include <cmath>

#include "commands/command_macro.h"
#include "commands/editor_commands.h"
#include "commands/pin_commands.h"
#include "commands/skin_commands.h"
#include "views/workspace/workspace_hit.h"
#include "views/workspace/workspace_input.h"

namespace kovra {

using namespace kestrel2::win;

namespace {

SkinDrag DragOf(const WorkspaceState& state, const InputEvent& event) {
    const ScreenMapping map = ScreenMapping::Of(state.view);
    return SkinDrag{Vec2{state.dragPinX + map.originX, state.dragPinY + map.originY},
                    Vec2{static_cast<float>(state.pressX), static_cast<float>(state.pressY)},
                    Vec2{static_cast<float>(event.x), static_cast<float>(event.y)}};
}

}  // namespace

int WorkspaceInput::SkinDragKind() const {
    const int part = state_.pinSelection.currentPart;
    if (part >= 0 && part <= 2) {
        return state_.skinTool == kToolTile ? kKindSkinOffset : kKindSkinPin;
    }
    if (part == 4) {
        return kKindSkinOffset;
    }
    if (part >= 9 && part <= 12) {
        return kKindSkinRotate;
    }
    // Scale and the bone line end without a kind: their command stays open.
    return kKindNone;
}

void WorkspaceInput::OnInputSkin(const InputEvent& event) {
    SelectionTracker& sel = state_.pinSelection;
    switch (event.type) {
        case kInputKeyDown:
        case kInputWheel:
            eventListeners.Call(event);
            break;
        case kInputMouseMove:
            if (state_.dragging) {
                SkinDragMove(event);
            } else {
                SkinHover(event);
            }
            break;
        case kInputButtonDown:
            if (event.button == kButtonLeft) {
                SkinPress();
            } else if (event.button == kButtonRight && state_.dragging) {
                const int kind = SkinDragKind();
                if (kind != kKindNone) {
                    EndDrag(kind, false);
                }
                state_.dragging = false;
                state_.pendingSelect = false;
            }
            break;
        case kInputButtonUp:
            if (event.button == kButtonLeft && state_.dragging) {
                if (state_.previewActive) {
                    state_.previewActive = false;
                    state_.pendingCommand->Undo();
                    state_.pendingCommand.reset();
                } else if (const int kind = SkinDragKind(); kind != kKindNone) {
                    EndDrag(kind, true);
                }
            }
            break;
        case kInputDoubleClick:
            if (event.button == kButtonLeft && sel.hotItem >= 0 && sel.hotItem == sel.currentItem) {
                if (auto reset =
                        MakeSkinReset(doc_, sel.hotItem, sel.hotPart, state_.ctrlDown, state_.altDown)) {
                    Send(reset);
                }
            }
            break;
        default:
            break;
    }
}

void WorkspaceInput::SkinHover(const InputEvent& event) {
    SelectionTracker& sel = state_.pinSelection;
    if (state_.skinTool == kToolTile && event.buttons[kButtonLeft] != 0 && ValidPin(sel.currentItem)) {
        TileUpdate();
        return;
    }
    if (state_.skinHandles.empty()) {
        return;
    }
    const Hit hit = GripTest(state_, static_cast<float>(event.x), static_cast<float>(event.y));
    if (hit.item >= 0 && !(sel.hotItem >= 0 && hit.part == 4)) {
        sel.SetHot(hit.item, hit.part);
    }
}

void WorkspaceInput::SkinPress() {
    SelectionTracker& sel = state_.pinSelection;
    const int hot = ValidPin(sel.hotItem) ? sel.hotItem : -1;
    const bool grabs = state_.skinTool == kToolSkin
                           ? hot >= 0
                           : hot >= 0 && (hot == sel.currentItem || !ValidPin(sel.currentItem));
    if (grabs) {
        state_.dragging = true;
        sel.SetCurrent(hot, sel.hotPart);
    } else if (state_.skinTool == kToolTile && ValidPin(sel.currentItem)) {
        state_.tileColumns = 100000;
        state_.tileRows = 100000;
        TileUpdate();
        state_.panning = false;
    }
}

void WorkspaceInput::SkinDragMove(const InputEvent& event) {
    const SelectionTracker& sel = state_.pinSelection;
    const int part = sel.currentPart;
    const bool tile = state_.skinTool == kToolTile;
    if (part >= 1 && part <= 4 && !tile && (state_.ctrlDown || state_.previewActive)) {
        TestPose(event);
    } else if (part >= 0 && part <= 2 && !tile) {
        Send(std::make_shared<CommandSkinPin>(DragOf(state_, event), state_.pinSelection, doc_, state_.view,
                                              pinRadius_, state_.altDown));
    } else if (part >= 0 && part <= 4) {
        state_.offsetSeparate = state_.offsetSeparate || state_.altDown;
        auto command = std::make_shared<CommandSkinOffset>(
            static_cast<float>(event.dx), static_cast<float>(event.dy), sel, doc_, state_.skinHandles,
            state_.view, state_.offsetSeparate);
        if (command->valid) {
            Send(command);
        }
    } else if (part >= 5 && part <= 8) {
        Send(std::make_shared<CommandSkinScale>(DragOf(state_, event), state_.skinHandles, doc_, sel,
                                                state_.ctrlDown));
    } else if (part >= 9 && part <= 12) {
        Send(std::make_shared<CommandSkinRotate>(DragOf(state_, event), state_.skinHandles, doc_, sel));
    }
}

void WorkspaceInput::TestPose(const InputEvent& event) {
    auto command =
        std::make_shared<CommandPinIk>(doc_, state_.pinSelection, event.x, event.y, state_.view, true);
    if (state_.pendingCommand) {
        state_.pendingCommand->Merge(*command);
    } else {
        state_.pendingCommand = command;
    }
    state_.previewActive = true;
}

void WorkspaceInput::TileUpdate() {
    SelectionTracker& sel = state_.pinSelection;
    const int current = sel.currentItem;
    if (!ValidPin(current) || !state_.hasPaletteSkin || state_.skins[current].texture < 0) {
        return;
    }
    const SkinGrip* g = &state_.skinHandles[static_cast<std::size_t>(current) * kGripsPerPin];
    const float ux = g[10].x - g[9].x;
    const float uy = g[10].y - g[9].y;
    const float u = std::hypot(ux, uy);
    const float v = std::hypot(g[12].x - g[10].x, g[12].y - g[10].y);
    if (u == 0.0f || v == 0.0f) {
        return;
    }
    const float mx = static_cast<float>(state_.mouseX) - g[9].x;
    const float my = static_cast<float>(state_.mouseY) - g[9].y;
    const int cx = static_cast<int>(std::floor((mx * ux + my * uy) / u / u));
    const int cy = static_cast<int>(std::floor((ux * my - uy * mx) / u / v));
    if (cx == state_.tileColumns && cy == state_.tileRows) {
        return;
    }
    state_.tileColumns = cx;
    state_.tileRows = cy;
    const WirrelPin& pin = doc_.CurrentKey().pins[current];
    WirrelSkin skin = state_.skins[current];
    const Wirrel& w = doc_.Wirrel();
    const WirrelTexture& texture = w.textures[skin.texture];
    const float ppu = static_cast<float>(w.pixelsPerUnit);
    const float along = static_cast<float>(cx * texture.width) * skin.scaleX * pin.scale / ppu;
    const float across = static_cast<float>(cy * texture.height) * skin.scaleY * pin.scale / ppu;
    skin.offsetX += along * std::cos(skin.angle) - across * std::sin(skin.angle);
    skin.offsetY += along * std::sin(skin.angle) + across * std::cos(skin.angle);
    auto macro = std::make_shared<CommandMacro>("Set Tile", kKindSetTile);
    macro->Add(std::make_shared<CommandPinNew>(
        doc_, sel, PinDescription{pin.angle, pin.length, pin.parent, NewPinName("Tile")}));
    const int tile = static_cast<int>(doc_.CurrentKey().pins.size()) - 1;
    macro->Add(std::make_shared<CommandPinType>(doc_, tile, pin.Type()));
    macro->Add(std::make_shared<CommandSkinSet>(doc_, sel, tile, state_.paletteSkin.texture));
    macro->Add(std::make_shared<CommandSkinProperty>(doc_, "Set Tile", kKindSetTile, tile, skin));
    macro->Add(
        std::make_shared<CommandSel>(doc_, sel, "Pin Selection", kKindPinSelection, current, 0, false));
    Send(macro);
    state_.pendingSelect = false;
}

}  // namespace kovra
