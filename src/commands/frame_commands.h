#pragma once
// Commands on the key frames of the current animation. Each works on the animation that is current when
// it runs; the order of the stack guarantees that it is the one it was made in.

#include <cstdint>
#include <string_view>
#include <vector>

#include "commands/command.h"
#include "doc/wirrel_doc.h"

namespace kovra {

// Inserts a key frame behind `previous` (-1: at the front), taking its time from that frame.
class CommandFrameNew : public WirrelCommand {
public:
    CommandFrameNew(WirrelDoc& doc, WirrelKey frame, int previous);
    int GetType() const override { return kKindFrameNew; }
    void Undo() override;
    void Redo() override;

private:
    WirrelDoc& doc_;
    WirrelKey frame_;
    int previous_;
    // The previous frame's three words before the insertion.
    std::uint32_t previousTicks_ = 0;
    std::int32_t previousEventFirst_ = -1;
    std::int32_t previousEventCount_ = 0;
    std::uint32_t frameIndex_;
};

// Deletes the current key frame; the frame before it takes over its time. Never the first frame.
class CommandFrameDelete : public WirrelCommand {
public:
    explicit CommandFrameDelete(WirrelDoc& doc);
    int GetType() const override { return kKindFrameDelete; }
    void Undo() override;
    void Redo() override;

private:
    WirrelDoc& doc_;
    WirrelKey frame_;
    std::uint32_t index_;
    std::uint32_t previousTicks_;
};

class CommandFrameReplace : public WirrelCommand {
public:
    CommandFrameReplace(WirrelDoc& doc, std::uint32_t index, WirrelKey frame);
    int GetType() const override { return kKindFrameReplace; }
    void Undo() override;
    void Redo() override;

private:
    WirrelDoc& doc_;
    WirrelKey newFrame_;
    WirrelKey oldFrame_;
    std::uint32_t index_;
};

// Two selections in a row stay two undo steps.
class CommandFrameSel : public WirrelCommand {
public:
    CommandFrameSel(WirrelDoc& doc, std::uint32_t index);
    int GetType() const override { return kKindFrameSel; }
    void Undo() override { Select(oldIndex_, newIndex_); }
    void Redo() override { Select(newIndex_, oldIndex_); }

private:
    void Select(std::uint32_t index, std::uint32_t left);

    WirrelDoc& doc_;
    std::uint32_t oldIndex_;
    std::uint32_t newIndex_;
};

// Replaces all key frames of the current animation at once, as the extended timeline does; it merges a
// newcomer of its own kind.
class CommandFrameState : public WirrelCommand {
public:
    CommandFrameState(WirrelDoc& doc, std::string_view text, int kind, std::vector<WirrelKey> after);
    int GetType() const override { return kind_; }
    void Undo() override { Assign(before_); }
    void Redo() override { Assign(after_); }
    bool Merge(ICommand& next) override;

private:
    void Assign(const std::vector<WirrelKey>& frames);

    WirrelDoc& doc_;
    int kind_;
    std::vector<WirrelKey> before_;
    std::vector<WirrelKey> after_;
    std::uint32_t frameIndex_;
};

// The speed multiplier of the current animation.
class CommandFrameSpeed : public WirrelCommand {
public:
    CommandFrameSpeed(WirrelDoc& doc, float speed);
    int GetType() const override { return kKindFrameSpeed; }
    void Undo() override { Write(oldSpeed_); }
    void Redo() override { Write(newSpeed_); }

private:
    void Write(float speed);

    WirrelDoc& doc_;
    float oldSpeed_;
    float newSpeed_;
};

// The number of snap positions per key frame of the timeline.
class CommandFrameSnap : public WirrelCommand {
public:
    CommandFrameSnap(WirrelDoc& doc, std::uint32_t snapFrames);
    int GetType() const override { return kKindFrameSnap; }
    void Undo() override { Write(oldValue_); }
    void Redo() override { Write(newValue_); }

private:
    void Write(std::uint32_t value);

    WirrelDoc& doc_;
    std::uint32_t oldValue_;
    std::uint32_t newValue_;
};

// Mirrors the current frame about the vertical axis through the origin (`axis` 1) or flips it about the
// horizontal one (`axis` 0). Skin records are written through SetPinSkin, so that records shared with
// other frames stay as they are.
class CommandFrameReflect : public WirrelCommand {
public:
    CommandFrameReflect(WirrelDoc& doc, int axis);
    int GetType() const override { return kKindFrameReflect; }
    void Undo() override;
    void Redo() override;

private:
    WirrelDoc& doc_;
    int axis_;
    std::vector<WirrelPin> poseBefore_;
    std::vector<WirrelSkin> skinsBefore_;
};

}  // namespace kovra
