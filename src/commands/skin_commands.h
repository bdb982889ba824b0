#pragma once
// Commands on the skins of pins: which texture hangs on a pin and how it sits there, and the rigging of
// a joint while the skins on both sides stay where they are. Skin records are shared between pins and
// key frames, so every write goes through SetPinSkin; the commands keep the skin table and every pin
// record's skin index for their undo, or the whole set of tables where pins are made or moved.

#include <cstdint>
#include <memory>
#include <set>
#include <string_view>
#include <vector>

#include "anim/forward.h"
#include "anim/skin_grips.h"
#include "commands/command.h"
#include "commands/selection_snapshot.h"
#include "doc/view_transform.h"
#include "doc/wirrel_doc.h"

namespace kovra {

// The kinds of the skin resets of a double click on a grip; they go through CommandSkinProperty.
enum SkinResetKind : int { kKindSkinResetAngle = 8, kKindSkinResetOffset = 9, kKindSkinResetScale = 10 };

// The skin table and the skin index of every pin record of every key frame: what a change of skins
// alone can touch.
struct SkinState {
    std::vector<WirrelSkin> skins;
    std::vector<std::int32_t> indices;

    static SkinState Of(const Wirrel& wirrel);
    void Restore(Wirrel& wirrel) const;
};

// The tables that a change of skins and pins together touches.
struct SkinTables {
    std::vector<WirrelAnim> anims;
    std::vector<Name32> pinNames;
    std::vector<WirrelSkin> skins;

    static SkinTables Of(const Wirrel& wirrel);
    void Restore(Wirrel& wirrel) const;
};

// Hangs a texture on a pin of the current frame, keeping the pin's skin values, or with a first skin
// lying upright along the bone; the pin becomes the hot and selected pin.
class CommandSkinSet : public WirrelCommand {
public:
    CommandSkinSet(WirrelDoc& doc, SelectionTracker& selection, int pin, int texture);
    int GetType() const override { return kKindSkinSet; }
    void Undo() override;
    void Redo() override;

private:
    WirrelDoc& doc_;
    SelectionTracker& selection_;
    int pin_;
    int texture_;
    SkinState before_;
    SelectionSnapshot selectionBefore_;
};

// Writes one whole skin record of a pin, as the skin panel does for one value; edits of the same kind on
// the same pin merge.
class CommandSkinProperty : public WirrelCommand {
public:
    CommandSkinProperty(WirrelDoc& doc, std::string_view text, int kind, int pin, const WirrelSkin& record);
    int GetType() const override { return kind_; }
    void Undo() override;
    void Redo() override;
    bool Merge(ICommand& next) override;

private:
    WirrelDoc& doc_;
    int kind_;
    int pin_;
    SkinState before_;
    WirrelSkin record_;
};

// A double click on grip `part` of the skin of `pin`: the offset (the body), the scale (a side, with Ctrl
// both scales, with Alt about the centre) or the angle (a corner) back to its default. Null when the pin
// has no skin with a texture or the part has nothing to reset.
std::shared_ptr<CommandSkinProperty> MakeSkinReset(WirrelDoc& doc, int pin, int part, bool ctrl, bool alt);

// A drag shared by the grips of a skin: the grip grabbed lay at `anchor` (screen pixels) when the mouse
// was pressed at `press`; it is now at `mouse`. The current pin of the selection and its part name the
// grip, and `grips` is the table the view shows now.
struct SkinDrag {
    Vec2 anchor;
    Vec2 press;
    Vec2 mouse;
};

// Turns the skins of the selected pins about their centres by the angle the mouse has turned about the
// current pin's skin since the press. Each mouse move applies its own step; a merged drag applies the
// whole turn to the skins from before it.
class CommandSkinRotate : public WirrelCommand {
public:
    CommandSkinRotate(const SkinDrag& drag, const std::vector<SkinGrip>& grips, WirrelDoc& doc,
                      const SelectionTracker& selection);
    int GetType() const override { return kKindSkinRotate; }
    void Undo() override;
    void Redo() override;
    bool Merge(ICommand& next) override;

private:
    WirrelDoc& doc_;
    std::set<int> selected_;
    SkinState before_;
    float total_ = 0.0f;
    float step_ = 0.0f;
};

// Scales the skins of the selected pins by how far the dragged side grip has moved from the skin's
// centre; "Expand Skin" scales both ways by the same ratio. The factors always apply to the skins from
// before the command, so a merged drag does not compound.
class CommandSkinScale : public WirrelCommand {
public:
    CommandSkinScale(const SkinDrag& drag, const std::vector<SkinGrip>& grips, WirrelDoc& doc,
                     const SelectionTracker& selection, bool expand);
    int GetType() const override { return kKindSkinScale; }
    void Undo() override;
    void Redo() override;
    bool Merge(ICommand& next) override;

private:
    WirrelDoc& doc_;
    std::set<int> selected_;
    int pin_;
    SkinState before_;
    float factorX_ = 1.0f;
    float factorY_ = 1.0f;
};

// Moves the skins of the selected pins by the mouse's motion (`dx`, `dy` pixels), along and across their
// bones; a skin on a bone from a free root, or any bone when `separate` is set, moves its parent pin
// instead, so that a bone may be pulled away from its skeleton onto a pin of its own. The view drops
// the command unless `valid`.
class CommandSkinOffset : public WirrelCommand {
public:
    CommandSkinOffset(float dx, float dy, const SelectionTracker& selection, WirrelDoc& doc,
                      const std::vector<SkinGrip>& grips, const ViewTransform& view, bool separate);
    int GetType() const override { return kKindSkinOffset; }
    void Undo() override;
    void Redo() override;
    bool Merge(ICommand& next) override;
    // At the end of the drag the separated bones are drawn as bones again.
    void OnFreeze() override;
    bool Separate() const { return separate_; }

    bool valid = true;

private:
    // The new offset of a skin, or the new position of the parent pin when `movesParent`.
    struct Entry {
        int pin = -1;
        Vec2 value;
        bool movesParent = false;
    };
    void Apply(const std::vector<Entry>& entries);

    WirrelDoc& doc_;
    std::set<int> selected_;
    bool separate_;
    SkinTables before_;
    SkinTables after_;
    int anim_;  // the key frame the drag works on
    std::uint32_t frame_;
};

// Drags a joint, the hot pin or with the parent's grip its parent, while the skins on both sides keep
// their place on the screen. With `insert` the joint is split first: a new free pin takes the joint's
// children and is dragged instead. Near a pin of another skeleton the joint snaps onto it, and when the
// drag ends it is rehung there and deleted. `pinRadius` is the theme's small pin radius.
class CommandSkinPin : public WirrelCommand {
public:
    CommandSkinPin(const SkinDrag& drag, SelectionTracker& selection, WirrelDoc& doc,
                   const ViewTransform& view, float pinRadius, bool insert);
    int GetType() const override { return kKindSkinPin; }
    void Undo() override;
    void Redo() override;
    bool Merge(ICommand& next) override;
    void OnFreeze() override;
    unsigned RepeatModes() const override;
    // Nothing is carried over; the repeat answers success.
    bool Repeat(unsigned /*mask*/) override { return true; }

private:
    // Puts the dragged joint's children onto `target_` and deletes the joint.
    void Rehang();

    WirrelDoc& doc_;
    SelectionTracker& selection_;
    int pin_ = -1;
    bool snapped_ = false;
    int target_ = -1;
    Pose posed_;  // the current frame before the drag moved the joint
    SkinTables before_;
    SkinTables after_;
    SelectionSnapshot selectionBefore_;
    SelectionSnapshot selectionAfter_;
};

}  // namespace kovra
