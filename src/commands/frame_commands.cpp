#include "commands/frame_commands.h"

#include <utility>

#include "anim/forward.h"
#include "doc/skins.h"
#include "settings/lang.h"

namespace kovra {

CommandFrameNew::CommandFrameNew(WirrelDoc& doc, WirrelKey frame, int previous)
    : WirrelCommand("Create Keyframe"),
      doc_(doc),
      frame_(std::move(frame)),
      previous_(previous),
      frameIndex_(doc.cursor.frameIndex) {
    if (previous >= 0) {
        const WirrelKey& key = doc.CurrentAnim().keys[previous];
        previousTicks_ = key.ticks;
        previousEventFirst_ = key.eventFirst;
        previousEventCount_ = key.eventCount;
    }
    Redo();
}

void CommandFrameNew::Redo() {
    std::vector<WirrelKey>& keys = doc_.CurrentAnim().keys;
    const std::uint32_t left = doc_.cursor.frameIndex;
    const auto inserted = static_cast<std::uint32_t>(previous_ + 1);
    keys.insert(keys.begin() + inserted, frame_);
    if (previous_ >= 0) {
        keys[previous_].ticks -= frame_.ticks;
    }
    doc_.SetFrame(inserted);
    doc_.onFrameChanged.Call(static_cast<int>(left), static_cast<int>(inserted));
    doc_.onChanged.Call();
}

void CommandFrameNew::Undo() {
    std::vector<WirrelKey>& keys = doc_.CurrentAnim().keys;
    const std::uint32_t left = doc_.cursor.frameIndex;
    if (previous_ >= 0) {
        WirrelKey& key = keys[previous_];
        key.ticks = previousTicks_;
        key.eventFirst = previousEventFirst_;
        key.eventCount = previousEventCount_;
    }
    keys.erase(keys.begin() + (previous_ + 1));
    doc_.SetFrame(frameIndex_);
    doc_.onFrameChanged.Call(static_cast<int>(left), static_cast<int>(frameIndex_));
    doc_.onChanged.Call();
}

CommandFrameDelete::CommandFrameDelete(WirrelDoc& doc)
    : WirrelCommand(aurel::Lang("COMMANDS", "FrameDelete").Utf8()), doc_(doc), index_(doc.cursor.frameIndex) {
    const std::vector<WirrelKey>& keys = doc.CurrentAnim().keys;
    frame_ = keys[index_];
    previousTicks_ = keys[index_ - 1].ticks;
    Redo();
}

void CommandFrameDelete::Redo() {
    std::vector<WirrelKey>& keys = doc_.CurrentAnim().keys;
    keys[index_ - 1].ticks += keys[index_].ticks;
    keys.erase(keys.begin() + index_);
    if (index_ >= keys.size()) {
        doc_.SetFrame(static_cast<std::uint32_t>(keys.size() - 1));
    }
    doc_.onFrameChanged.Call(static_cast<int>(index_), static_cast<int>(doc_.cursor.frameIndex));
    doc_.onChanged.Call();
}

void CommandFrameDelete::Undo() {
    std::vector<WirrelKey>& keys = doc_.CurrentAnim().keys;
    const std::uint32_t left = doc_.cursor.frameIndex;
    keys.insert(keys.begin() + index_, frame_);
    keys[index_ - 1].ticks = previousTicks_;
    doc_.SetFrame(index_);
    doc_.onFrameChanged.Call(static_cast<int>(left), static_cast<int>(index_));
    doc_.onChanged.Call();
}

CommandFrameReplace::CommandFrameReplace(WirrelDoc& doc, std::uint32_t index, WirrelKey frame)
    : WirrelCommand("Replace Keyframe"),
      doc_(doc),
      newFrame_(std::move(frame)),
      oldFrame_(doc.CurrentAnim().keys[index]),
      index_(index) {
    Redo();
}

void CommandFrameReplace::Redo() {
    doc_.CurrentAnim().keys[index_] = newFrame_;
    doc_.onChanged.Call();
}

void CommandFrameReplace::Undo() {
    doc_.CurrentAnim().keys[index_] = oldFrame_;
    doc_.onChanged.Call();
}

CommandFrameSel::CommandFrameSel(WirrelDoc& doc, std::uint32_t index)
    : WirrelCommand("Keyframe Selection"), doc_(doc), oldIndex_(doc.cursor.frameIndex), newIndex_(index) {
    Redo();
}

void CommandFrameSel::Select(std::uint32_t index, std::uint32_t left) {
    doc_.SetFrame(index);
    doc_.onFrameChanged.Call(static_cast<int>(left), static_cast<int>(index));
    doc_.onChanged.Call();
}

CommandFrameState::CommandFrameState(WirrelDoc& doc, std::string_view text, int kind,
                                     std::vector<WirrelKey> after)
    : WirrelCommand(text),
      doc_(doc),
      kind_(kind),
      before_(doc.CurrentAnim().keys),
      after_(std::move(after)),
      frameIndex_(doc.cursor.frameIndex) {
    Redo();
}

void CommandFrameState::Assign(const std::vector<WirrelKey>& frames) {
    doc_.CurrentAnim().keys = frames;
    doc_.SetFrame(frameIndex_);
    doc_.onChanged.Call();
}

bool CommandFrameState::Merge(ICommand& next) {
    auto* other = dynamic_cast<CommandFrameState*>(&next);
    if (other == nullptr || other->kind_ != kind_) {
        return false;
    }
    after_ = other->after_;
    return true;
}

CommandFrameSpeed::CommandFrameSpeed(WirrelDoc& doc, float speed)
    : WirrelCommand("Set Speed Multiplier"), doc_(doc), oldSpeed_(doc.CurrentAnim().speed), newSpeed_(speed) {
    Redo();
}

void CommandFrameSpeed::Write(float speed) {
    doc_.CurrentAnim().speed = speed;
    doc_.onChanged.Call();
}

CommandFrameSnap::CommandFrameSnap(WirrelDoc& doc, std::uint32_t snapFrames)
    : WirrelCommand("Set Frame Snap"), doc_(doc), oldValue_(doc.snapFrames), newValue_(snapFrames) {
    Redo();
}

void CommandFrameSnap::Write(std::uint32_t value) {
    doc_.SetSnapFrames(value);
    doc_.onChanged.Call();
}

CommandFrameReflect::CommandFrameReflect(WirrelDoc& doc, int axis)
    : WirrelCommand(axis != 0 ? "Mirror Frame" : "Flip Frame"),
      doc_(doc),
      axis_(axis),
      poseBefore_(doc.CurrentKey().pins),
      skinsBefore_(doc.Wirrel().skins) {
    Redo();
}

void CommandFrameReflect::Redo() {
    const float base = axis_ != 0 ? 3.14159274f : 0.0f;
    Wirrel& wirrel = doc_.Wirrel();
    WirrelKey& key = doc_.CurrentKey();
    for (std::size_t i = 0; i < key.pins.size(); ++i) {
        WirrelPin& pin = key.pins[i];
        pin.angle = NormalizeAngle(base - pin.angle);
        // A record without a texture is left alone: writing it would delete it.
        if (pin.skin < 0 || wirrel.skins[pin.skin].texture < 0) {
            continue;
        }
        WirrelSkin skin = wirrel.skins[pin.skin];
        skin.angle = NormalizeAngle(base - skin.angle);
        if (axis_ == 1) {
            skin.scaleX = -skin.scaleX;
        } else {
            skin.scaleY = -skin.scaleY;
        }
        skin.offsetY = -skin.offsetY;
        SetPinSkin(wirrel, key, static_cast<int>(i), skin);
    }
    doc_.onChanged.Call();
}

void CommandFrameReflect::Undo() {
    doc_.CurrentKey().pins = poseBefore_;
    doc_.Wirrel().skins = skinsBefore_;
    doc_.onChanged.Call();
}

}  // namespace kovra
