#include "commands/editor_commands.h"

#include <algorithm>

namespace kovra {
namespace {

const char* ModeLabel(int mode) {
    switch (mode) {
        case kModeAnimate:
            return "Bones Edit Mode";
        case kModeBuild:
            return "Skin Edit Mode";
        case kModeTextures:
            return "Texture Edit Mode";
        case kModeBackground:
            return "Background Edit Mode";
        default:
            return "Change Edit Mode";
    }
}

const char* ToolLabel(int tool) {
    switch (tool) {
        case kToolSkin:
            return "Skinning Mode";
        case kToolRectangle:
            return "AABB Mode";
        default:
            return "Change Skin Edit Mode";
    }
}

}  // namespace

CommandEditorMode::CommandEditorMode(EditorHub& hub, int mode)
    : WirrelCommand(ModeLabel(mode)), hub_(hub), oldMode_(hub.EditMode()), newMode_(mode) {
    Redo();
}

CommandEditorModeSkin::CommandEditorModeSkin(EditorHub& hub, int tool)
    : WirrelCommand(ToolLabel(tool)), hub_(hub), oldTool_(hub.SkinTool()), newTool_(tool) {
    Redo();
}

CommandEditorPlay::CommandEditorPlay(WirrelDoc& doc, SelectionTracker& selection, int oldHot, int newHot,
                                     std::uint32_t oldFrame, std::uint32_t newFrame)
    : WirrelCommand("Playback Change"),
      doc_(doc),
      selection_(selection),
      oldHot_(oldHot),
      newHot_(newHot),
      oldFrame_(oldFrame),
      newFrame_(newFrame) {
    Redo();
}

void CommandEditorPlay::Show(int hot, std::uint32_t frame) {
    selection_.SetHot(hot, 0);
    const auto left = static_cast<int>(doc_.cursor.frameIndex);
    doc_.SetFrame(frame);
    doc_.onFrameChanged.Call(left, static_cast<int>(frame));
    doc_.onChanged.Call();
}

CommandEditorNotes::CommandEditorNotes(WirrelDoc& doc, aurel::DualString text, aurel::ImageSurface image,
                                       std::vector<std::uint8_t> imageData)
    : WirrelCommand("Edit Notes"),
      doc_(doc),
      text_(std::move(text)),
      image_(std::move(image)),
      imageData_(std::move(imageData)) {
    Redo();
}

void CommandEditorNotes::Redo() {
    std::swap(doc_.notes, text_);
    std::swap(doc_.notesImage, image_);
    std::swap(doc_.notesImageData, imageData_);
    doc_.onChanged.Call();
}

CommandEditorPpu::CommandEditorPpu(WirrelDoc& doc, std::int32_t pixelsPerUnit)
    : WirrelCommand("Change PPU"), doc_(doc), other_(pixelsPerUnit) {
    Redo();
}

void CommandEditorPpu::Redo() {
    std::swap(doc_.Wirrel().pixelsPerUnit, other_);
    doc_.onChanged.Call();
}

EventDefinitions EventDefinitions::Of(const Wirrel& wirrel) {
    EventDefinitions definitions{wirrel.eventNames, wirrel.events, {}};
    for (const WirrelAnim& anim : wirrel.anims) {
        for (const WirrelKey& key : anim.keys) {
            definitions.spans.emplace_back(key.eventFirst, key.eventCount);
        }
    }
    return definitions;
}

void EventDefinitions::ApplyTo(Wirrel& wirrel) const {
    wirrel.eventNames.resize(names.size());
    std::copy(names.begin(), names.end(), wirrel.eventNames.begin());
    wirrel.events = events;
    auto span = spans.begin();
    for (WirrelAnim& anim : wirrel.anims) {
        for (WirrelKey& key : anim.keys) {
            if (span == spans.end()) {
                return;
            }
            key.eventFirst = span->first;
            key.eventCount = span->second;
            ++span;
        }
    }
}

CommandEditorEvents::CommandEditorEvents(WirrelDoc& doc, EventDefinitions after)
    : WirrelCommand("Edit Events"),
      doc_(doc),
      before_(EventDefinitions::Of(doc.Wirrel())),
      after_(std::move(after)) {
    Redo();
}

void CommandEditorEvents::Redo() {
    after_.ApplyTo(doc_.Wirrel());
    doc_.onChanged.Call();
}

void CommandEditorEvents::Undo() {
    before_.ApplyTo(doc_.Wirrel());
    doc_.onChanged.Call();
}

CommandSel::CommandSel(WirrelDoc& doc, SelectionTracker& selection, std::string_view text, int kind, int item,
                       int part, bool keep)
    : WirrelCommand(text),
      doc_(doc),
      selection_(selection),
      kind_(kind),
      item_(item),
      part_(part),
      keep_(keep),
      before_(selection) {
    Redo();
}

void CommandSel::Redo() {
    // Holding on to the selection with nothing under the mouse changes nothing.
    if (keep_ && item_ < 0) {
        return;
    }
    if (!keep_ || item_ < 0) {
        selection_.Clear();
    }
    if (item_ >= 0) {
        selection_.Add(item_, false);
        selection_.SetCurrent(item_, part_);
        selection_.SetHot(item_, part_);
    }
    doc_.onChanged.Call();
}

void CommandSel::Undo() {
    before_.Restore(selection_);
    doc_.onChanged.Call();
}

}  // namespace kovra
