#pragma once
// Commands on the picture behind the workspace and on the editor's grid and background colour. The
// picture belongs to the document; the grid and the colour are the editor's, reached through the hub.
// Most of these hold the other version of what they change and swap it with the current one, so that
// undo and redo are the same operation.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/prompt.h"
#include "commands/command.h"
#include "doc/editor_hub.h"
#include "doc/wirrel_doc.h"

namespace kovra {

// Where the picture lies and how strongly it shows: the part of the background that a drag, the wheel
// or the panel changes.
struct BgPlacement {
    float scale = 1.0f;
    float offsetX = 0.0f;
    float offsetY = 0.0f;
    std::uint8_t alpha = 128;

    static BgPlacement Of(const WirrelBackground& background);
    void ApplyTo(WirrelBackground& background) const;
    bool operator==(const BgPlacement&) const = default;
};

// Moves, scales or fades the picture. A drag sends one per mouse move; the first keeps the placement
// from before the drag and the document the latest, so the swap serves both ways and a newcomer of the
// same kind is absorbed as it is.
class CommandBgChange : public WirrelCommand {
public:
    CommandBgChange(WirrelDoc& doc, std::string_view text, int kind, const BgPlacement& placement);
    int GetType() const override { return kind_; }
    void Undo() override { Redo(); }
    void Redo() override;
    bool Merge(ICommand& next) override;

private:
    WirrelDoc& doc_;
    int kind_;
    BgPlacement other_;
};

// Takes the picture away, with its path and placement.
class CommandBgClear : public WirrelCommand {
public:
    CommandBgClear(WirrelDoc& doc, EditorHub& hub);
    int GetType() const override { return kKindBgClear; }
    void Undo() override;
    void Redo() override;

private:
    WirrelDoc& doc_;
    EditorHub& hub_;
    WirrelBackground before_;
};

// A new picture from a file, or pasted as the bytes of an encoded image. A picture that can't be read is
// told through the prompt; the command is then not `valid` and the document is as it was.
class CommandBgLoad : public WirrelCommand {
public:
    CommandBgLoad(WirrelDoc& doc, EditorHub& hub, aurel::Prompt& window, const aurel::DualString& file);
    CommandBgLoad(WirrelDoc& doc, EditorHub& hub, aurel::Prompt& window, const void* data, std::size_t size);
    int GetType() const override { return kKindBgLoad; }
    void Undo() override { Redo(); }
    void Redo() override;

    bool valid = false;

private:
    WirrelDoc& doc_;
    EditorHub& hub_;
    WirrelBackground other_;
};

// Shows or hides the picture; the label says which, as it was when the command ran.
class CommandBgToggle : public WirrelCommand {
public:
    explicit CommandBgToggle(WirrelDoc& doc);
    int GetType() const override { return kKindBgToggle; }
    void Undo() override { Redo(); }
    void Redo() override;

private:
    WirrelDoc& doc_;
};

class CommandBgGrid : public WirrelCommand {
public:
    CommandBgGrid(EditorHub& hub, const WorkGrid& grid);
    int GetType() const override { return kKindBgGrid; }
    void Undo() override { hub_.SetGrid(old_); }
    void Redo() override { hub_.SetGrid(new_); }

private:
    EditorHub& hub_;
    WorkGrid old_;
    WorkGrid new_;
};

class CommandBgColor : public WirrelCommand {
public:
    CommandBgColor(EditorHub& hub, aurel::Color32 colour);
    int GetType() const override { return kKindBgColor; }
    void Undo() override { hub_.SetBackgroundColor(old_); }
    void Redo() override { hub_.SetBackgroundColor(new_); }

private:
    EditorHub& hub_;
    aurel::Color32 old_;
    aurel::Color32 new_;
};

}  // namespace kovra
