#pragma once
// The editor's own clipboard for pins: records of one key frame put aside, to be pasted into the current
// key frame of this or another animation. Parents are held by id, since a pin's position in the vector
// differs from key frame to key frame.

#include <memory>
#include <vector>

#include "commands/command.h"
#include "doc/wirrel.h"
#include "doc/wirrel_doc.h"

namespace kovra {

// The kind of the paste command on the undo stack.
constexpr int kKindPinPaste = 80;

struct PinClipboard {
    enum Kind : int { kEmpty = -1, kPins = 0 };

    // Puts aside the records at `positions` of `frame`.
    void Copy(const WirrelKey& frame, const std::vector<int>& positions);
    void Clear();
    bool HoldsPins() const { return kind == kPins && !pins.empty(); }

    int kind = kEmpty;
    std::vector<WirrelPin> pins;  // `parent` holds the parent's id, -1 for none
};

// The key frames of the current animation with the clipboard's pins pasted into the current one: a pin
// whose id the key frame holds is replaced, any other is added to every key frame of the animation,
// hidden in all but the current one. Parents are found again by id; one that can't be found makes -1.
std::vector<WirrelKey> PastedKeys(const WirrelDoc& doc, const PinClipboard& clipboard);

// The undoable paste of the clipboard's pins into the current key frame, already applied.
std::shared_ptr<ICommand> PastePins(WirrelDoc& doc, const PinClipboard& clipboard);

}  // namespace kovra
