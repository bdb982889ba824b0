#include "random_walk.h"

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "anim/forward.h"
#include "commands/anim_commands.h"
#include "commands/command_stack.h"
#include "commands/frame_commands.h"
#include "commands/pin_commands.h"
#include "commands/repeat.h"
#include "doc/wirrel_writer.h"
#include "doc_state.h"
#include "recording_hub.h"

namespace kovra::test {
namespace {

class Silent : public aurel::Prompt {
public:
    int Ask(const aurel::PromptRequest& request) override { return aurel::SafeAnswer(request); }
};

// What the comparison looks at: the document as its writer saves it, and where playback stands.
struct Saved {
    std::vector<std::uint8_t> bytes;
    PlayCursor cursor;

    bool operator==(const Saved& other) const {
        return bytes == other.bytes && SameCursor(cursor, other.cursor);
    }
};

class Walk {
public:
    explicit Walk(std::uint32_t seed) : rng_(seed) {}

    Saved Save() const {
        WirrelEditorData editor;
        editor.snapFrames = doc_.snapFrames;
        return Saved{WriteWirrel(doc_.Wirrel(), {}, editor), doc_.cursor};
    }

    // One gesture; false when the pose of the current frame is no longer a tree.
    bool Step() {
        const int choice = Pick(0, 99);
        if (Pins().empty() && choice < 60) {
            NewPin();
        } else if (choice < 8) {
            NewPin();
        } else if (choice < 10) {
            NewRootAndChild();
        } else if (choice < 24) {
            DragForward();
        } else if (choice < 31) {
            DragInverse();
        } else if (choice < 35) {
            Reparent();
        } else if (choice < 40) {
            Add(std::make_shared<CommandPinType>(doc_, AnyPin(), static_cast<PinType>(Pick(0, 5))));
        } else if (choice < 44) {
            Add(std::make_shared<CommandPinOrder>(doc_, selection_, "Change Draw Order", AnyPin(), AnyPin()));
        } else if (choice < 49) {
            SelectSome();
            Add(std::make_shared<CommandPinDelete>(doc_, selection_));
        } else if (choice < 51) {
            Add(std::make_shared<CommandPinIkLock>(AnyPin(), doc_));
        } else if (choice < 53) {
            Add(std::make_shared<CommandPinName>(doc_, AnyPin(), "Name" + std::to_string(++names_)));
        } else if (choice < 56) {
            EditProperty();
        } else if (choice < 60) {
            SelectArea();
        } else if (choice < 65) {
            NewFrame();
        } else if (choice < 70) {
            Add(std::make_shared<CommandFrameSel>(doc_, AnyFrame()));
        } else if (choice < 73) {
            if (doc_.cursor.frameIndex > 0) {
                Add(std::make_shared<CommandFrameDelete>(doc_));
            }
        } else if (choice < 75) {
            Add(std::make_shared<CommandFrameReflect>(doc_, Pick(0, 1)));
        } else if (choice < 77) {
            Add(std::make_shared<CommandFrameReplace>(doc_, AnyFrame(), doc_.CurrentAnim().keys[AnyFrame()]));
        } else if (choice < 79) {
            Tween();
        } else if (choice < 80) {
            Add(std::make_shared<CommandFrameSpeed>(doc_, 0.25f * static_cast<float>(Pick(1, 8))));
        } else if (choice < 81) {
            Add(std::make_shared<CommandFrameSnap>(doc_, static_cast<std::uint32_t>(Pick(1, 12))));
        } else if (choice < 84) {
            Add(std::make_shared<CommandAnimNew>(doc_, selection_, hub_, "Anim" + std::to_string(++names_),
                                                 static_cast<std::uint32_t>(Pick(100, 2400))));
        } else if (choice < 85) {
            Add(std::make_shared<CommandAnimName>(doc_, "Anim" + std::to_string(++names_)));
        } else if (choice < 87) {
            if (doc_.Wirrel().anims.size() > 1) {
                Add(std::make_shared<CommandAnimDelete>(doc_, selection_, hub_));
            }
        } else if (choice < 90) {
            const int anims = static_cast<int>(doc_.Wirrel().anims.size());
            Add(std::make_shared<CommandAnimSel>(doc_, selection_, hub_, Pick(0, anims - 1)));
        } else if (choice < 96) {
            RepeatTop();
        } else {
            UndoAFew();
        }
        return IsTree(Pins());
    }

    WirrelDoc doc_;
    CommandStack stack_;
    RecordingHub hub_;

private:
    int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(rng_); }
    float PickFloat(float low, float high) { return std::uniform_real_distribution<float>(low, high)(rng_); }
    std::vector<WirrelPin>& Pins() { return doc_.CurrentKey().pins; }
    int AnyPin() { return Pick(0, static_cast<int>(Pins().size()) - 1); }
    std::uint32_t AnyFrame() {
        return static_cast<std::uint32_t>(Pick(0, static_cast<int>(doc_.FrameCount()) - 1));
    }

    void Add(const std::shared_ptr<ICommand>& command) { stack_.AddCommand(command); }

    // The selection as a click on a pin leaves it, sometimes with a second pin held by Ctrl.
    int SelectSome() {
        const int hot = AnyPin();
        selection_.Clear();
        selection_.Add(hot, true);
        if (Pick(0, 2) == 0) {
            selection_.Add(AnyPin(), false);
        }
        selection_.SetHot(hot, Pick(0, 1) * 2);
        return hot;
    }

    PinDescription Description(int parent) {
        return PinDescription{PickFloat(0.0f, 6.2f), PickFloat(0.0f, 4.0f), parent,
                              "Pin" + std::to_string(++names_)};
    }

    void NewPin() {
        const int parent = Pins().empty() || Pick(0, 3) == 0 ? -1 : AnyPin();
        Add(std::make_shared<CommandPinNew>(doc_, selection_, Description(parent)));
    }

    void NewRootAndChild() {
        const int root = static_cast<int>(Pins().size());
        Add(std::make_shared<CommandPinNew2>(doc_, selection_, Description(-1), Description(root)));
    }

    // A pin dropped onto another; onto its own tree the change is refused and nothing is sent.
    void Reparent() {
        auto command = std::make_shared<CommandPinParent>(doc_, selection_, silent_, AnyPin(), AnyPin());
        if (command->valid) {
            Add(command);
        }
    }

    void DragForward() {
        const int hot = SelectSome();
        const int mode = Pick(0, 2);
        FillPinPixels(view_, Pins());
        const Vec2 grabbed{view_.pinPixels[hot].x, view_.pinPixels[hot].y};
        const Vec2 pressed{grabbed.x + view_.OriginX(), grabbed.y + view_.OriginY()};
        Vec2 mouse = pressed;
        for (int move = Pick(1, 20); move > 0; --move) {
            mouse = {mouse.x + PickFloat(-6.0f, 6.0f), mouse.y + PickFloat(-6.0f, 6.0f)};
            Add(std::make_shared<CommandPinFk>(grabbed, pressed, mouse, doc_, selection_, mode, view_));
            FillPinPixels(view_, Pins());
        }
        stack_.FinishDrag(kKindPinFk, true);
    }

    void DragInverse() {
        SelectSome();
        const bool single = Pick(0, 1) == 0;
        for (int move = Pick(1, 10); move > 0; --move) {
            auto command = std::make_shared<CommandPinIk>(doc_, selection_, Pick(0, view_.clientWidth),
                                                          Pick(0, view_.clientHeight), view_, single);
            if (command->valid) {
                Add(command);
            }
        }
        // The workspace ends every posing drag with the forward kind; an open IK drag is frozen by the
        // next command instead.
        stack_.FinishDrag(kKindPinFk, true);
    }

    void EditProperty() {
        const int pin = AnyPin();
        WirrelPin record = Pins()[pin];
        record.angle = PickFloat(0.0f, 6.2f);
        record.scale = PickFloat(0.5f, 2.0f);
        Add(std::make_shared<CommandPinProperty>(doc_, "Set Angle", 200 + Pick(0, 2), pin, record));
    }

    void SelectArea() {
        const SelectionTracker::Saved atPress = selection_.Snapshot();
        FillPinPixels(view_, Pins());
        const bool add = Pick(0, 1) == 0;
        for (int move = Pick(1, 5); move > 0; --move) {
            Add(std::make_shared<CommandPinSelArea>(PickFloat(0, 640), PickFloat(0, 480), PickFloat(0, 640),
                                                    PickFloat(0, 480), doc_, selection_, view_, add,
                                                    atPress));
        }
        stack_.FinishDrag(kKindPinSelArea, true);
    }

    void NewFrame() {
        const std::uint32_t previous = doc_.cursor.frameIndex;
        WirrelKey frame = doc_.CurrentKey();
        frame.ticks = doc_.CurrentKey().ticks / 2;
        Add(std::make_shared<CommandFrameNew>(doc_, std::move(frame), static_cast<int>(previous)));
    }

    // A micro-keyframe edit: one pin turned in every frame of the animation.
    void Tween() {
        if (Pins().empty()) {
            return;
        }
        std::vector<WirrelKey> after = doc_.CurrentAnim().keys;
        const int pin = AnyPin();
        for (WirrelKey& key : after) {
            key.pins[pin].angle = NormalizeAngle(key.pins[pin].angle + 0.1f);
            key.pins[pin].flags |= kPinTweened;
        }
        Add(std::make_shared<CommandFrameState>(doc_, "Micro Keyframe Tweening", 62, std::move(after)));
    }

    // The history dialog's repeat of the top command, when it is frozen and offers a mode; else a drag
    // is made first to have something to repeat.
    void RepeatTop() {
        if (Pins().empty()) {
            return;
        }
        if (!stack_.CanUndo() || RepeatModesOf(*stack_.TopCommand()) == 0) {
            DragForward();
        }
        if (!stack_.IsTopFrozen()) {
            return;
        }
        const std::shared_ptr<ICommand> top = stack_.TopCommand();
        std::vector<unsigned> offered;
        for (const RepeatMode& mode : kRepeatModes) {
            if ((RepeatModesOf(*top) & mode.mask) != 0) {
                offered.push_back(mode.mask);
            }
        }
        if (!offered.empty()) {
            const unsigned mask = offered[Pick(0, static_cast<int>(offered.size()) - 1)];
            Add(std::make_shared<CommandRepeat>(doc_, top, mask));
        }
    }

    // A few steps back, sometimes pressed while playback runs and stops elsewhere.
    void UndoAFew() {
        for (int n = Pick(1, 3); n > 0; --n) {
            hub_.playing = Pick(0, 3) == 0;
            const std::uint32_t stop = AnyFrame();
            hub_.onStop = [this, stop] {
                if (stop != doc_.cursor.frameIndex) {
                    Add(std::make_shared<CommandFrameSel>(doc_, stop));
                }
            };
            stack_.UndoRedo(false, hub_);
        }
    }

    std::mt19937 rng_;
    SelectionTracker selection_;
    ViewTransform view_ = ViewTransform::OfClient(640, 480);
    Silent silent_;
    int names_ = 0;
};

}  // namespace

WalkResult RunRandomWalk(std::uint32_t seed, int steps) {
    Walk walk(seed);
    WalkResult result;
    const Saved start = walk.Save();
    for (result.steps = 0; result.steps < steps; ++result.steps) {
        if (!walk.Step()) {
            result.failure =
                "the current frame is no longer a tree after step " + std::to_string(result.steps);
            return result;
        }
    }
    // The walk may have stopped after a few undos: the end is the whole history applied.
    walk.hub_.playing = false;
    while (walk.stack_.CanRedo()) {
        walk.stack_.UndoRedo(true, walk.hub_);
    }
    const Saved end = walk.Save();
    result.commands = walk.stack_.Size();
    result.pins = walk.doc_.PinCount();
    result.anims = walk.doc_.Wirrel().anims.size();
    for (const WirrelAnim& anim : walk.doc_.Wirrel().anims) {
        result.frames += anim.keys.size();
    }
    result.bytes = end.bytes.size();
    result.end = walk.doc_.Wirrel();

    while (walk.stack_.CanUndo()) {
        walk.stack_.UndoRedo(false, walk.hub_);
    }
    result.undoneToStart = walk.Save() == start;
    while (walk.stack_.CanRedo()) {
        walk.stack_.UndoRedo(true, walk.hub_);
    }
    result.redoneToEnd = walk.Save() == end;
    if (!result.undoneToStart || !result.redoneToEnd) {
        result.failure =
            result.undoneToStart ? "redo didn't give back the end" : "undo didn't give back the start";
    }
    return result;
}

}  // namespace kovra::test
