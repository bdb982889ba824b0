#pragma once
// Commands on the pin tree and on the pose of the current key frame. Each does its work in its
// constructor and keeps only what its undo needs: a frame's pin vector, one record, one selection.
// Pins are referred to by index in the current frame, or by id across frames.

#include <cstdint>
#include <string_view>
#include <vector>

#include "commands/command.h"
#include "commands/selection_snapshot.h"
#include "doc/view_transform.h"
#include "doc/wirrel_doc.h"

namespace kovra {

// A copy of the current frame's pin vector; restoring it is assigning it back.
using PoseSnapshot = std::vector<WirrelPin>;

// Flips the inverse kinematics lock of a pin in the current frame; undo is the same flip.
class CommandPinIkLock : public WirrelCommand {
public:
    CommandPinIkLock(int pin, WirrelDoc& doc);
    int GetType() const override { return kKindPinIkLock; }
    void Undo() override { Redo(); }
    void Redo() override;

private:
    int pin_;
    WirrelDoc& doc_;
};

// Renames a pin; typing into the name merges into one step for as long as the same pin is named.
class CommandPinName : public WirrelCommand {
public:
    CommandPinName(WirrelDoc& doc, int pin, std::string_view name);
    int GetType() const override { return kKindPinName; }
    void Undo() override { Write(oldName_); }
    void Redo() override { Write(newName_); }
    bool Merge(ICommand& next) override;

private:
    void Write(const Name32& name);

    WirrelDoc& doc_;
    int pin_;
    Name32 oldName_;
    Name32 newName_;
};

// Moves a pin within the current frame's vector, which is its draw order, by adjacent swaps that keep
// the tree and the selection pointing at the same pins. A drag that carries on moving the same record
// merges into one step.
class CommandPinOrder : public WirrelCommand {
public:
    CommandPinOrder(WirrelDoc& doc, SelectionTracker& selection, std::string_view text, int oldIndex,
                    int newIndex);
    int GetType() const override { return kKindPinOrder; }
    void Undo() override { Move(newIndex_, oldIndex_); }
    void Redo() override { Move(oldIndex_, newIndex_); }
    bool Merge(ICommand& next) override;

private:
    void Move(int from, int to);

    WirrelDoc& doc_;
    SelectionTracker& selection_;
    int oldIndex_;
    int newIndex_;
};

// Writes one whole pin record, as the property panel does for one property; `kind` names the property,
// and edits of the same property of the same pin merge.
class CommandPinProperty : public WirrelCommand {
public:
    CommandPinProperty(WirrelDoc& doc, std::string_view text, int kind, int pin, const WirrelPin& record);
    int GetType() const override { return kind_; }
    void Undo() override;
    void Redo() override;
    bool Merge(ICommand& next) override;

private:
    WirrelDoc& doc_;
    int kind_;
    int pin_;
    PoseSnapshot before_;
    WirrelPin record_;
};

// The rectangle selection: pins whose pixel lies within 4 pixels of the box are toggled in the
// selection. Each mouse move starts again from the selection at the press (with `add`) or from none.
class CommandPinSelArea : public WirrelCommand {
public:
    CommandPinSelArea(float x0, float y0, float x1, float y1, WirrelDoc& doc, SelectionTracker& selection,
                      const ViewTransform& view, bool add, const SelectionTracker::Saved& atPress);
    int GetType() const override { return kKindPinSelArea; }
    void Undo() override;
    void Redo() override;
    bool Merge(ICommand& next) override;

private:
    WirrelDoc& doc_;
    SelectionTracker& selection_;
    SelectionSnapshot before_;
    SelectionSnapshot after_;
};

// Adds a collision rectangle at the end of a pin's chain. Its undo leaves the rectangle in the table
// and only notifies.
class CommandAabbCreate : public WirrelCommand {
public:
    CommandAabbCreate(WirrelDoc& doc, float x0, float y0, float x1, float y1, int pin);
    int GetType() const override { return kKindAabbCreate; }
    void Undo() override { doc_.onChanged.Call(); }
    void Redo() override;

private:
    WirrelDoc& doc_;
    WirrelAabb box_;
    int pin_;
};

}  // namespace kovra
