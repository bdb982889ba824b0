#pragma once
// Commands on the pin tree and on the pose of the current key frame. Each does its work in its
// constructor and keeps only what its undo needs: a frame's pin vector, one record, one selection.
// Pins are referred to by index in the current frame, or by id across frames.

#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "anim/forward.h"
#include "base/prompt.h"
#include "commands/command.h"
#include "commands/selection_snapshot.h"
#include "doc/view_transform.h"
#include "doc/wirrel_doc.h"

namespace kovra {

// A copy of the current frame's pin vector; restoring it is assigning it back.
using PoseSnapshot = std::vector<WirrelPin>;

// Fills the view's pin pixels from a pose, as the workspace does before each paint: world positions in
// pixels relative to the world origin, plus 0.375.
void FillPinPixels(ViewTransform& view, const std::vector<WirrelPin>& pose);

// A change of the current frame's pose made by a drag: it keeps the pose before and after, and a newcomer
// of the same kind hands over its pose after, so a whole drag is one command.
class PoseDragCommand : public WirrelCommand {
public:
    void Undo() override;
    void Redo() override;
    bool Merge(ICommand& next) override;

protected:
    PoseDragCommand(std::string_view label, WirrelDoc& doc);

    WirrelDoc& doc_;
    PoseSnapshot before_;
    PoseSnapshot after_;
};

// A forward drag of the selection by its hot pin: a move, a turn or a length change (DragMode). `grabbed`
// is the pose-space pixel grabbed, `pressed` and `mouse` are client pixels; the pixel positions of the
// pins come from the view. A drag merges into one command that keeps the pose before and after.
class CommandPinFk : public PoseDragCommand {
public:
    CommandPinFk(Vec2 grabbed, Vec2 pressed, Vec2 mouse, WirrelDoc& doc, const SelectionTracker& selection,
                 int mode, const ViewTransform& view);
    int GetType() const override { return kKindPinFk; }
    unsigned RepeatModes() const override;
    // Carries the drag's change of the moved pins to other frames, found by id.
    bool Repeat(unsigned mask) override;

private:
    int hot_;
    int mode_;
    std::set<int> selected_;
};

// Drags the hot pin to the mouse with the inverse kinematics solver, holding the selected and locked
// pins, or with `single` only the pin's parent. The caller adds it only when `valid`.
class CommandPinIk : public PoseDragCommand {
public:
    CommandPinIk(WirrelDoc& doc, const SelectionTracker& selection, int mouseX, int mouseY,
                 const ViewTransform& view, bool single);
    int GetType() const override { return kKindPinIk; }

    bool valid = false;
};

// A new pin: its polar pair about its parent (or the origin), its parent in the current frame and its
// name.
struct PinDescription {
    float angle = 0.0f;
    float length = 0.0f;
    int parent = -1;
    std::string name;
};

// Adds one pin to every frame of the current animation, shown only in the current one, and selects it.
class CommandPinNew : public WirrelCommand {
public:
    CommandPinNew(WirrelDoc& doc, SelectionTracker& selection, PinDescription pin);
    int GetType() const override { return kKindPinNew; }
    void Undo() override;
    void Redo() override;

private:
    WirrelDoc& doc_;
    SelectionTracker& selection_;
    PinDescription pin_;
    SelectionSnapshot selectionBefore_;
};

// Adds a root and its first child at once; the child's parent is the index the root will take, the
// number of pins in the current frame.
class CommandPinNew2 : public WirrelCommand {
public:
    CommandPinNew2(WirrelDoc& doc, SelectionTracker& selection, PinDescription first, PinDescription second);
    int GetType() const override { return kKindPinNew2; }
    void Undo() override;
    void Redo() override;

private:
    WirrelDoc& doc_;
    SelectionTracker& selection_;
    PinDescription first_;
    PinDescription second_;
    SelectionSnapshot selectionBefore_;
};

// Hangs a pin under a pin of another tree, where it stands, inverting the chain above it, and makes it
// an attachment. Within one tree the change is refused with a message and `valid` is false.
class CommandPinParent : public WirrelCommand {
public:
    CommandPinParent(WirrelDoc& doc, SelectionTracker& selection, aurel::Prompt& window, int child,
                     int newParent);
    int GetType() const override { return kKindPinParent; }
    void Undo() override;
    void Redo() override;

    bool valid = false;

private:
    WirrelDoc& doc_;
    SelectionTracker& selection_;
    aurel::Prompt& window_;
    int child_;
    int newParent_;
    SelectionSnapshot selectionBefore_;
    PoseSnapshot before_;
};

// Deletes pin `index` of the current frame: its children are freed and it is hidden there. When no
// frame of the current animation uses it any more it leaves that animation's frames, and when no frame
// of any animation does, the document, with the ids above it renumbered.
void DeletePin(WirrelDoc& doc, int index);

// Deletes the pins selected when it is made, with a lone parent or a lone child that would be left
// behind, and clears the selection.
class CommandPinDelete : public WirrelCommand {
public:
    CommandPinDelete(WirrelDoc& doc, SelectionTracker& selection);
    int GetType() const override { return kKindPinDelete; }
    void Undo() override;
    void Redo() override;

private:
    WirrelDoc& doc_;
    SelectionTracker& selection_;
    SelectionSnapshot selectionBefore_;
    // A deletion reaches every frame of every animation and the names.
    std::vector<WirrelAnim> animsBefore_;
    std::vector<Name32> namesBefore_;
};

// Changes the type of a pin in the current frame. A root is detached where it stands; a tail is built
// from two segment pins, and ending a tail gives the end pin the whole length back. The change can be
// repeated in other frames, where the pin is found by id.
class CommandPinType : public WirrelCommand {
public:
    CommandPinType(WirrelDoc& doc, int pin, PinType type);
    int GetType() const override { return kKindPinType; }
    void Undo() override;
    void Redo() override;
    unsigned RepeatModes() const override;
    bool Repeat(unsigned mask) override;

private:
    // The change in one frame; the current frame makes a tail's segment pins, the others reuse them.
    void ChangeIn(WirrelKey& key, bool current);

    WirrelDoc& doc_;
    int pin_;
    int id_;
    PinType type_;
    bool tailChange_;  // the pin becomes or stops being a tail
    std::array<int, 2> segmentIds_{-1, -1};
    // Building or ending a tail adds or deletes pins in all frames of the animation, and a repeat
    // reaches others.
    std::vector<WirrelAnim> animsBefore_;
    std::vector<Name32> namesBefore_;
};

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

// Renames a pin. Renames follow each other into one step until the step is frozen.
class CommandPinName : public WirrelCommand {
public:
    CommandPinName(WirrelDoc& doc, int pin, std::string_view name);
    int GetType() const override { return kKindPinName; }
    void Undo() override;
    void Redo() override;
    bool Merge(ICommand& next) override;

private:
    struct Rename {
        int pin;
        Name32 oldName;
        Name32 newName;
    };

    WirrelDoc& doc_;
    std::vector<Rename> names_;
};

// Moves a pin within the current frame's vector, which is its draw order, by adjacent swaps that keep
// the tree and the selection pointing at the same pins. Moves from the same old position join one step.
class CommandPinOrder : public WirrelCommand {
public:
    CommandPinOrder(WirrelDoc& doc, SelectionTracker& selection, std::string_view text, int oldIndex,
                    int newIndex);
    int GetType() const override { return kKindPinOrder; }
    void Undo() override;
    void Redo() override;
    bool Merge(ICommand& next) override;

private:
    void Move(int from, int to);

    WirrelDoc& doc_;
    SelectionTracker& selection_;
    std::vector<std::pair<int, int>> moves_;  // old and new index, in the order they were made
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
