#pragma once
// Repeat: a pose change made in one key frame carried over other key frames or animations, as an
// absolute value, an added difference or a ratio. A mode is a 12-bit mask with one bit set: the low
// bit of each group of four is the scope, the group says how the value is carried.

#include <array>
#include <functional>
#include <memory>

#include "commands/command.h"
#include "doc/wirrel_doc.h"

namespace kovra {

// Scopes: any mode of the group.
constexpr unsigned kRepeatPost = 0x111;       // frames after the current one
constexpr unsigned kRepeatPre = 0x222;        // frames before the current one
constexpr unsigned kRepeatAllFrames = 0x444;  // all frames of the current animation
constexpr unsigned kRepeatAllAnims = 0x888;   // all frames of all animations
// How the value is carried.
constexpr unsigned kRepeatAbsolute = 0x00F;
constexpr unsigned kRepeatRelative = 0x0F0;
constexpr unsigned kRepeatPercent = 0xF00;
constexpr unsigned kRepeatAll = 0xFFF;

// One entry of the history dialog's repeat menu.
struct RepeatMode {
    int menuId;
    unsigned mask;
    const char* text;
};

// The twelve entries in the order the menu shows them; an entry appears only when the top command's
// RepeatModes has its bit.
inline constexpr std::array<RepeatMode, 12> kRepeatModes = {{
    {10003, 0x008, "Repeat absolute all animations"},
    {10002, 0x004, "Repeat absolute all keyframes"},
    {10000, 0x001, "Repeat absolute post keyframes"},
    {10001, 0x002, "Repeat absolute pre keyframes"},
    {10007, 0x080, "Repeat relative value all animations"},
    {10006, 0x040, "Repeat relative value all keyframes"},
    {10004, 0x010, "Repeat relative value post keyframes"},
    {10005, 0x020, "Repeat relative value pre keyframes"},
    {10011, 0x800, "Repeat relative percent all animations"},
    {10010, 0x400, "Repeat relative percent all keyframes"},
    {10008, 0x100, "Repeat relative percent post keyframes"},
    {10009, 0x200, "Repeat relative percent pre keyframes"},
}};

// RepeatModes of a command, 0 for one that isn't a document command.
unsigned RepeatModesOf(const ICommand& command);

// Calls `change` for every key frame that the mask's scope reaches, the current frame excepted. The
// before and after tests compare a frame's index with the current frame's index, in any animation.
void ForEachRepeatFrame(WirrelDoc& doc, unsigned mask, const std::function<void(WirrelKey&)>& change);

// Wraps a repeatable command and carries its change in one mode. Its effect may touch every frame of
// every animation, so it alone keeps a copy of the whole document for its undo.
class CommandRepeat : public WirrelCommand {
public:
    CommandRepeat(WirrelDoc& doc, std::shared_ptr<ICommand> inner, unsigned mask);
    int GetType() const override { return kKindRepeat; }
    void Undo() override;
    void Redo() override;
    unsigned RepeatModes() const override;
    bool Repeat(unsigned mask) override;

private:
    WirrelDoc& doc_;
    std::shared_ptr<ICommand> inner_;
    unsigned mask_;
    Wirrel before_;
};

}  // namespace kovra
