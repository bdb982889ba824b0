#include "random_walk.h"

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "commands/anim_commands.h"
#include "commands/command_stack.h"
#include "commands/frame_commands.h"
#include "commands/pin_commands.h"
#include "commands/repeat.h"
#include "doc/wirrel_writer.h"
#include "doc_state.h"

namespace kovra::test {
namespace {

class Silent : public aurel::Prompt {
public:
    int Ask(const aurel::PromptRequest& request) override { return aurel::SafeAnswer(request); }
};

// What is compared: the document as its writer saves it, and where playback stands.
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

    // One gesture; false when the current frame's pose is no longer a tree.
    bool Step() {
        const int choice = Pick(0, 99);
        const int anims = static_cast<int>(doc_.Wirrel().anims.size());
        if (choice < 12 || (Pins().empty() && choice < 60)) {
            const int parent = Pins().empty() || Pick(0, 3) == 0 ? -1 : AnyPin();
            const PinDescription pin{PickFloat(0, 6.2f), PickFloat(0, 4), parent,
                                     "Pin" + std::to_string(++names_)};
            Add(std::make_shared<CommandPinNew>(doc_, selection_, pin));
        } else if (choice < 28) {
            DragForward();
        } else if (choice < 36) {
            DragInverse();
        } else if (choice < 41) {
            // Onto its own tree the change is refused, and nothing is sent.
            auto command = std::make_shared<CommandPinParent>(doc_, selection_, silent_, AnyPin(), AnyPin());
            Add(command->valid ? command : nullptr);
        } else if (choice < 47) {
            Add(std::make_shared<CommandPinType>(doc_, AnyPin(), static_cast<PinType>(Pick(0, 5))));
        } else if (choice < 52) {
            Add(std::make_shared<CommandPinOrder>(doc_, selection_, "Change Draw Order", AnyPin(), AnyPin()));
        } else if (choice < 58) {
            SelectSome();
            Add(std::make_shared<CommandPinDelete>(doc_, selection_));
        } else if (choice < 64) {
            WirrelKey frame = doc_.CurrentKey();
            frame.ticks /= 2;
            Add(std::make_shared<CommandFrameNew>(doc_, frame, static_cast<int>(doc_.cursor.frameIndex)));
        } else if (choice < 70) {
            Add(std::make_shared<CommandFrameSel>(doc_, AnyFrame()));
        } else if (choice < 74) {
            Add(doc_.cursor.frameIndex > 0 ? std::make_shared<CommandFrameDelete>(doc_) : nullptr);
        } else if (choice < 77) {
            Add(std::make_shared<CommandFrameReflect>(doc_, Pick(0, 1)));
        } else if (choice < 80) {
            Add(std::make_shared<CommandAnimNew>(doc_, selection_, hub_, "Anim" + std::to_string(++names_),
                                                 static_cast<std::uint32_t>(Pick(100, 2400))));
        } else if (choice < 82) {
            Add(std::make_shared<CommandAnimName>(doc_, "Anim" + std::to_string(++names_)));
        } else if (choice < 84) {
            Add(anims > 1 ? std::make_shared<CommandAnimDelete>(doc_, selection_, hub_) : nullptr);
        } else if (choice < 88) {
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

    void Add(const std::shared_ptr<ICommand>& command) {
        if (command) {
            stack_.AddCommand(command);
        }
    }

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

    void DragForward() {
        const int hot = SelectSome();
        const int mode = Pick(0, 2);
        FillPinPixels(view_, Pins());
        const Vec2 grabbed{view_.pinPixels[hot].x, view_.pinPixels[hot].y};
        const Vec2 pressed{grabbed.x + view_.ScreenToWorld().ox, grabbed.y + view_.ScreenToWorld().oy};
        Vec2 mouse = pressed;
        for (int move = Pick(1, 20); move > 0; --move) {
            mouse = {mouse.x + PickFloat(-6, 6), mouse.y + PickFloat(-6, 6)};
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
            Add(command->valid ? command : nullptr);
        }
        // The workspace ends every posing drag with the forward kind: an open IK drag stays open until
        // the next command freezes it.
        stack_.FinishDrag(kKindPinFk, true);
    }

    // The history dialog's repeat of the top command in one of the modes it offers; a drag is made
    // first when the top offers none.
    void RepeatTop() {
        if (Pins().empty()) {
            return;
        }
        if (!stack_.CanUndo() || RepeatModesOf(*stack_.TopCommand()) == 0) {
            DragForward();
        }
        std::vector<unsigned> offered;
        for (const RepeatMode& mode : kRepeatModes) {
            if ((RepeatModesOf(*stack_.TopCommand()) & mode.mask) != 0) {
                offered.push_back(mode.mask);
            }
        }
        if (stack_.IsTopFrozen() && !offered.empty()) {
            const unsigned mask = offered[Pick(0, static_cast<int>(offered.size()) - 1)];
            Add(std::make_shared<CommandRepeat>(doc_, stack_.TopCommand(), mask));
        }
    }

    // A few steps back, sometimes pressed while playback runs and stops elsewhere.
    void UndoAFew() {
        for (int n = Pick(1, 3); n > 0; --n) {
            hub_.playing = Pick(0, 3) == 0;
            const std::uint32_t stop = AnyFrame();
            hub_.onStop = [this, stop] {
                Add(stop != doc_.cursor.frameIndex ? std::make_shared<CommandFrameSel>(doc_, stop) : nullptr);
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
