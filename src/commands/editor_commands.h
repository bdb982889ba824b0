#pragma once
// Commands that make editor state undoable: the edit mode and the skin tool, the position where playback
// stopped, the document's notes, its pixels per unit and its event definitions, and a selection. They
// keep only the values they swap.

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "commands/command.h"
#include "commands/selection_snapshot.h"
#include "doc/editor_hub.h"
#include "doc/wirrel_doc.h"

namespace kovra {

// Changes the edit mode; the label names the new mode.
class CommandEditorMode : public WirrelCommand {
public:
    CommandEditorMode(EditorHub& hub, int mode);
    int GetType() const override { return kKindEditorMode; }
    void Undo() override { hub_.SetEditMode(oldMode_); }
    void Redo() override { hub_.SetEditMode(newMode_); }

private:
    EditorHub& hub_;
    int oldMode_;
    int newMode_;
};

// Changes the tool of the build mode; the label names the new tool.
class CommandEditorModeSkin : public WirrelCommand {
public:
    CommandEditorModeSkin(EditorHub& hub, int tool);
    int GetType() const override { return kKindEditorModeSkin; }
    void Undo() override { hub_.SetSkinTool(oldTool_); }
    void Redo() override { hub_.SetSkinTool(newTool_); }

private:
    EditorHub& hub_;
    int oldTool_;
    int newTool_;
};

// Where playback stopped, against where it began: the hot pin and the key frame. The editor has already
// stopped at the new position when it makes this command.
class CommandEditorPlay : public WirrelCommand {
public:
    CommandEditorPlay(WirrelDoc& doc, SelectionTracker& selection, int oldHot, int newHot,
                      std::uint32_t oldFrame, std::uint32_t newFrame);
    int GetType() const override { return kKindEditorPlay; }
    void Undo() override { Show(oldHot_, oldFrame_); }
    void Redo() override { Show(newHot_, newFrame_); }

private:
    void Show(int hot, std::uint32_t frame);

    WirrelDoc& doc_;
    SelectionTracker& selection_;
    int oldHot_;
    int newHot_;
    std::uint32_t oldFrame_;
    std::uint32_t newFrame_;
};

// The notes of the document: a text and a picture, kept both as a surface and as the bytes the file
// holds. The command holds the other version and swaps it with the document's.
class CommandEditorNotes : public WirrelCommand {
public:
    CommandEditorNotes(WirrelDoc& doc, aurel::DualString text, aurel::ImageSurface image,
                       std::vector<std::uint8_t> imageData);
    int GetType() const override { return kKindEditorNotes; }
    void Undo() override { Redo(); }
    void Redo() override;

private:
    WirrelDoc& doc_;
    aurel::DualString text_;
    aurel::ImageSurface image_;
    std::vector<std::uint8_t> imageData_;
};

// Pixels per unit: the command holds the other value and swaps it with the document's.
class CommandEditorPpu : public WirrelCommand {
public:
    CommandEditorPpu(WirrelDoc& doc, std::int32_t pixelsPerUnit);
    int GetType() const override { return kKindEditorPpu; }
    void Undo() override { Redo(); }
    void Redo() override;

private:
    WirrelDoc& doc_;
    std::int32_t other_;
};

// The event definitions as the events dialog edits them: the names offered, the event table, and the
// span of events of every key frame of every animation, animations first and then key frames.
struct EventDefinitions {
    std::vector<Name32> names;
    std::vector<WirrelEvent> events;
    std::vector<std::pair<std::int32_t, std::int32_t>> spans;  // eventFirst and eventCount

    static EventDefinitions Of(const Wirrel& wirrel);
    // Writes all three; `spans` must list as many key frames as the document has.
    void ApplyTo(Wirrel& wirrel) const;
};

class CommandEditorEvents : public WirrelCommand {
public:
    CommandEditorEvents(WirrelDoc& doc, EventDefinitions after);
    int GetType() const override { return kKindEditorEvents; }
    void Undo() override;
    void Redo() override;

private:
    WirrelDoc& doc_;
    EventDefinitions before_;
    EventDefinitions after_;
};

// A click on an item: without `keep` the selection becomes the item alone, or nothing for -1; with
// `keep` the item joins the selection (and stays if it was there), and -1 changes nothing. The item and
// its part become hot and current. The kind and the label are the caller's: pins, textures, images.
class CommandSel : public WirrelCommand {
public:
    CommandSel(WirrelDoc& doc, SelectionTracker& selection, std::string_view text, int kind, int item,
               int part, bool keep);
    int GetType() const override { return kind_; }
    void Undo() override;
    void Redo() override;

private:
    WirrelDoc& doc_;
    SelectionTracker& selection_;
    int kind_;
    int item_;
    int part_;
    bool keep_;
    SelectionSnapshot before_;
};

}  // namespace kovra
