#pragma once
// Commands on the list of animations: new, delete, rename and the choice of the current one. The
// animation list of the panels follows through the EditorHub, the pins through their SelectionTracker.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "commands/command.h"
#include "commands/selection_snapshot.h"
#include "doc/editor_hub.h"
#include "doc/wirrel_doc.h"

namespace kovra {

// Appends an animation whose one key frame is the current frame's pose, and makes it current.
class CommandAnimNew : public WirrelCommand {
public:
    CommandAnimNew(WirrelDoc& doc, SelectionTracker& selection, EditorHub& hub, std::string_view name,
                   std::uint32_t frameTicks);
    int GetType() const override { return kKindAnimNew; }
    void Undo() override;
    void Redo() override;

private:
    WirrelDoc& doc_;
    SelectionTracker& selection_;
    EditorHub& hub_;
    WirrelAnim anim_;
    SelectionSnapshot selectionBefore_;
    PlayCursor cursorBefore_;
    int listBefore_;
};

// Renames the current animation.
class CommandAnimName : public WirrelCommand {
public:
    CommandAnimName(WirrelDoc& doc, std::string_view name);
    int GetType() const override { return kKindAnimName; }
    void Undo() override { Write(oldName_); }
    void Redo() override { Write(newName_); }

private:
    void Write(const std::string& name);

    WirrelDoc& doc_;
    std::string oldName_;
    std::string newName_;
};

// Deletes the current animation; the one that takes its place in the list becomes current.
class CommandAnimDelete : public WirrelCommand {
public:
    CommandAnimDelete(WirrelDoc& doc, SelectionTracker& selection, EditorHub& hub);
    int GetType() const override { return kKindAnimDelete; }
    void Undo() override;
    void Redo() override;

private:
    WirrelDoc& doc_;
    SelectionTracker& selection_;
    EditorHub& hub_;
    std::vector<WirrelAnim> animsBefore_;
    int index_;
    PlayCursor cursorBefore_;
    int listBefore_;
    SelectionSnapshot selectionBefore_;
};

// Makes another animation current. The pin selection stays if the hot pin is shown in the new
// animation's first frame, else it is cleared.
class CommandAnimSel : public WirrelCommand {
public:
    CommandAnimSel(WirrelDoc& doc, SelectionTracker& selection, EditorHub& hub, int index);
    int GetType() const override { return kKindAnimSel; }
    void Undo() override;
    void Redo() override;

private:
    WirrelDoc& doc_;
    SelectionTracker& selection_;
    EditorHub& hub_;
    int index_;
    PlayCursor cursorBefore_;
    int listBefore_;
    SelectionSnapshot selectionBefore_;
    bool keepsPins_ = false;  // the hot pin is shown in the new animation's first frame
};

}  // namespace kovra
