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

}  // namespace kovra
