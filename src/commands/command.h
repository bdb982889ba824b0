#pragma once
// Every change that the user can undo is an ICommand. A command does its work in its constructor and is
// then handed, finished, to CommandStack::AddCommand; the stack only ever calls Undo and Redo on it.
// Consecutive commands of one kind coalesce through Merge until the top command is frozen.

#include <string_view>

#include "base/dual_string.h"

namespace kovra {

// The kinds that GetType answers. Classes that serve several properties hold their kind per instance.
enum CommandKind : int {
    kKindTestFreeze = -3,
    kKindNone = -1,
    kKindSkinSet = 1,
    kKindSkinRotate = 2,
    kKindSkinOffset = 3,
    kKindSkinScale = 4,
    kKindSkinPin = 5,
    kKindPinSelArea = 14,
    kKindPinNew = 15,
    kKindPinNew2 = 16,
    kKindPinParent = 17,
    kKindPinIk = 18,
    kKindPinIkLock = 19,
    kKindPinFk = 20,
    kKindPinDelete = 21,
    kKindPinType = 22,
    kKindPinOrder = 23,
    kKindPinName = 24,
    kKindImgLoad = 28,
    kKindImgDelete = 29,
    kKindTexMove = 32,
    kKindTexCreate = 33,
    kKindTexDelete = 34,
    kKindTexAutoDetect = 35,
    kKindTexPack = 37,
    kKindBgClear = 42,
    kKindBgLoad = 43,
    kKindBgToggle = 44,
    kKindBgGrid = 45,
    kKindBgColor = 46,
    kKindEditorMode = 47,
    kKindEditorModeSkin = 48,
    kKindEditorPlay = 49,
    kKindEditorNotes = 50,
    kKindEditorPpu = 51,
    kKindEditorEvents = 52,
    kKindRepeat = 53,
    kKindFrameNew = 54,
    kKindFrameDelete = 55,
    kKindFrameReplace = 56,
    kKindFrameSel = 57,
    kKindFrameSnap = 60,
    kKindFrameSpeed = 61,
    kKindFrameReflect = 64,
    kKindAnimNew = 68,
    kKindAnimName = 69,
    kKindAnimDelete = 70,
    kKindAnimSel = 71,
    kKindAabbCreate = 73,
};

class ICommand {
public:
    explicit ICommand(std::string_view text) : label(text) {}
    virtual ~ICommand() = default;

    virtual int GetType() const { return kKindNone; }
    // Both notify the views through the document's listeners.
    virtual void Undo() = 0;
    virtual void Redo() = 0;
    // Tries to absorb `next`, which is of the same kind; true means `next` is to be dropped. The default
    // refuses and freezes this command, which is how a command that never merges is frozen on arrival.
    virtual bool Merge(ICommand& next);
    virtual bool IsFrozen() const { return frozen; }
    // Runs when the command is frozen.
    virtual void OnFreeze() {}

    aurel::DualString label;  // the operation in English, shown in the Edit menu and the history
    bool frozen = false;
};

inline bool ICommand::Merge(ICommand&) {
    frozen = true;
    OnFreeze();
    return false;
}

// The base of all document commands: those that can carry their change over other key frames or
// animations say so through RepeatModes, a mask of the twelve repeat modes (see repeat.h).
class WirrelCommand : public ICommand {
public:
    using ICommand::ICommand;
    virtual unsigned RepeatModes() const { return 0; }
    virtual bool Repeat(unsigned /*mask*/) { return false; }
};

}  // namespace kovra
