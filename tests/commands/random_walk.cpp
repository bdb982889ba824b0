#include "random_walk.h"

#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "anim/skin_grips.h"
#include "commands/anim_commands.h"
#include "commands/bg_commands.h"
#include "commands/command_stack.h"
#include "commands/editor_commands.h"
#include "commands/frame_commands.h"
#include "commands/pin_commands.h"
#include "commands/repeat.h"
#include "commands/skin_commands.h"
#include "doc/wirrel_writer.h"
#include "doc_state.h"
#include "images/vyl_lib.h"
#include "textures/image_commands.h"
#include "textures/pack_command.h"
#include "textures/pack_trial.h"
#include "textures/texture_commands.h"

namespace kovra::test {
namespace {

using std::make_shared;

// The walk answers every question safely.
class Walk : public aurel::SilentPrompt {
public:
    // Skins also have a wide and a tall texture to choose from, after those cut from the sheets.
    explicit Walk(std::uint32_t seed) : rng_(seed) {
        AddSheets();
        WriteImageFiles(seed);
        doc_.Wirrel().textures.push_back({.imageIndex = 0, .width = 48, .height = 20});
        doc_.Wirrel().textures.push_back({.imageIndex = 0, .width = 16, .height = 40});
    }
    ~Walk() override {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

    // What is compared: the document as its writer saves it, and where playback stands.
    auto Save() const {
        WirrelEditorData editor;
        editor.backgroundAlpha = doc_.background.alpha;
        editor.backgroundOffsetX = doc_.background.offsetX;
        editor.backgroundOffsetY = doc_.background.offsetY;
        editor.backgroundScale = doc_.background.scale;
        editor.snapFrames = doc_.snapFrames;
        std::vector<WirrelImageRecord> images;
        for (std::size_t i = 0; i < doc_.images.size(); ++i) {
            images.push_back({doc_.images[i]->path, static_cast<std::int32_t>(i), doc_.images[i]->colorKey});
        }
        return std::make_pair(WriteWirrel(doc_.Wirrel(), images, editor), CursorOf(doc_.cursor));
    }

    // The whole history undone, or redone.
    void Replay(bool redo) {
        hub_.playing = false;
        while (redo ? stack_.CanRedo() : stack_.CanUndo()) {
            stack_.UndoRedo(redo, hub_);
        }
    }

    // One gesture; false when the current frame's pose is no longer a tree.
    bool Step() {
        if (Pick(0, 9) == 0) {
            TextureStep();
            return IsTree(Pins());
        }
        const int choice = Pick(0, 129);
        const int anims = static_cast<int>(doc_.Wirrel().anims.size());
        if (choice < 12 || (Pins().empty() && choice < 60)) {
            const int parent = Pins().empty() || Pick(0, 3) == 0 ? -1 : AnyPin();
            Add(make_shared<CommandPinNew>(
                doc_, selection_, PinDescription{PickFloat(0, 6.2f), PickFloat(0, 4), parent, Name()}));
        } else if (choice < 28) {
            Drag(true);
        } else if (choice < 36) {
            Drag(false);
        } else if (choice < 41) {
            // Onto its own tree the change is refused, and nothing is sent.
            auto command = make_shared<CommandPinParent>(doc_, selection_, *this, AnyPin(), AnyPin());
            Add(command->valid ? command : nullptr);
        } else if (choice < 47) {
            Add(make_shared<CommandPinType>(doc_, AnyPin(), static_cast<PinType>(Pick(0, 5))));
        } else if (choice < 52) {
            Add(make_shared<CommandPinOrder>(doc_, selection_, "Change Draw Order", AnyPin(), AnyPin()));
        } else if (choice < 58) {
            SelectSome();
            Add(make_shared<CommandPinDelete>(doc_, selection_));
        } else if (choice < 64) {
            WirrelKey frame = doc_.CurrentKey();
            frame.ticks /= 2;
            Add(make_shared<CommandFrameNew>(doc_, frame, static_cast<int>(doc_.cursor.frameIndex)));
        } else if (choice < 70) {
            Add(make_shared<CommandFrameSel>(doc_, AnyFrame()));
        } else if (choice < 74) {
            Add(doc_.cursor.frameIndex > 0 ? make_shared<CommandFrameDelete>(doc_) : nullptr);
        } else if (choice < 77) {
            Add(make_shared<CommandFrameReflect>(doc_, Pick(0, 1)));
        } else if (choice < 80) {
            Add(make_shared<CommandAnimNew>(doc_, selection_, hub_, Name(), Pick(100, 2400)));
        } else if (choice < 82) {
            Add(make_shared<CommandAnimName>(doc_, Name()));
        } else if (choice < 84) {
            Add(anims > 1 ? make_shared<CommandAnimDelete>(doc_, selection_, hub_) : nullptr);
        } else if (choice < 88) {
            Add(make_shared<CommandAnimSel>(doc_, selection_, hub_, Pick(0, anims - 1)));
        } else if (choice < 96) {
            RepeatTop();
        } else if (choice < 100) {
            UndoAFew();
        } else if (choice < 120) {
            SkinStep(choice);
        } else {
            EditorStep(choice);
        }
        return IsTree(Pins());
    }

    WirrelDoc doc_;
    CommandStack stack_;
    RecordingHub hub_;

private:
    int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(rng_); }
    float PickFloat(float low, float high) { return std::uniform_real_distribution<float>(low, high)(rng_); }
    std::string Name() { return "Name" + std::to_string(++names_); }
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

    // A drag of a few moves, forward or inverse; the workspace ends every posing drag with the forward
    // kind, so an open IK drag stays open until the next command freezes it.
    void Drag(bool forward) {
        const int hot = SelectSome();
        const int mode = Pick(0, 2);
        FillPinPixels(view_, Pins());
        const Vec2 grabbed{view_.pinPixels[hot].x, view_.pinPixels[hot].y};
        const Vec2 pressed{grabbed.x + view_.ScreenToWorld().ox, grabbed.y + view_.ScreenToWorld().oy};
        Vec2 mouse = pressed;
        for (int move = Pick(1, 20); move > 0; --move) {
            mouse = {mouse.x + PickFloat(-6, 6), mouse.y + PickFloat(-6, 6)};
            if (forward) {
                Add(make_shared<CommandPinFk>(grabbed, pressed, mouse, doc_, selection_, mode, view_));
                FillPinPixels(view_, Pins());
            } else {
                auto ik =
                    make_shared<CommandPinIk>(doc_, selection_, Pick(0, 640), Pick(0, 480), view_, mode == 0);
                Add(ik->valid ? ik : nullptr);
            }
        }
        stack_.FinishDrag(kKindPinFk, true);
    }

    // The history dialog's repeat of the top command in one of the modes it offers; a drag is made
    // first when the top offers none.
    void RepeatTop() {
        if (Pins().empty()) {
            return;
        }
        if (!stack_.CanUndo() || RepeatModesOf(*stack_.TopCommand()) == 0) {
            Drag(true);
        }
        const unsigned mask = kRepeatModes[Pick(0, kRepeatModes.size() - 1)].mask;
        if (stack_.IsTopFrozen() && (RepeatModesOf(*stack_.TopCommand()) & mask) != 0) {
            Add(make_shared<CommandRepeat>(doc_, stack_.TopCommand(), mask));
        }
    }

    // A skin of a random texture, or none, on a pin; then a drag of one of its grips.
    void SkinStep(int choice) {
        if (Pins().empty()) {
            return;
        }
        if (choice < 104) {
            Add(make_shared<CommandSkinSet>(doc_, selection_, AnyPin(), Pick(-1, Textures() - 1)));
            return;
        }
        if (choice < 106) {
            const int pin = AnyPin();
            const WirrelSkin skin{
                .texture = Pick(-1, Textures() - 1), .scaleX = PickFloat(-2, 2), .angle = PickFloat(-4, 4)};
            Add(make_shared<CommandSkinProperty>(doc_, "Skin", 200 + Pick(0, 1), pin, skin));
            return;
        }
        const int kind = choice < 109   ? kKindSkinRotate
                         : choice < 112 ? kKindSkinScale
                         : choice < 116 ? kKindSkinOffset
                                        : kKindSkinPin;
        const int hot = SelectSome();
        const int part = kind == kKindSkinRotate   ? Pick(kGripRotate0, kGripRotate2)
                         : kind == kKindSkinScale  ? Pick(kGripScaleTop, kGripScaleLeft)
                         : kind == kKindSkinOffset ? Pick(kGripBone, kGripBody)
                                                   : Pick(0, kGripParent);
        selection_.SetCurrent(hot, part);
        selection_.SetHot(hot, part);
        Refresh();
        const SkinGrip& grip = grips_[hot * kGripsPerPin + part];
        const Vec2 anchor = kind == kKindSkinPin ? Vec2{view_.pinPixels[hot].x, view_.pinPixels[hot].y}
                                                 : Vec2{grip.x, grip.y};
        const Vec2 press{grip.x, grip.y};
        Vec2 mouse = press;
        const bool flag = Pick(0, 1) == 0;
        for (int move = Pick(1, 12); move > 0; --move) {
            const float dx = PickFloat(-8, 8);
            const float dy = PickFloat(-8, 8);
            mouse = {mouse.x + dx, mouse.y + dy};
            const SkinDrag drag{anchor, press, mouse};
            if (kind == kKindSkinRotate) {
                Add(make_shared<CommandSkinRotate>(drag, grips_, doc_, selection_));
            } else if (kind == kKindSkinScale) {
                Add(make_shared<CommandSkinScale>(drag, grips_, doc_, selection_, flag));
            } else if (kind == kKindSkinOffset) {
                auto offset = make_shared<CommandSkinOffset>(dx, dy, selection_, doc_, grips_, view_, flag);
                Add(offset->valid ? offset : nullptr);
            } else {
                Add(make_shared<CommandSkinPin>(drag, selection_, doc_, view_, 4.0f, flag));
            }
            Refresh();
        }
        stack_.FinishDrag(kind, true);
    }

    // A change of what the editor shows or of the document's settings.
    void EditorStep(int choice) {
        if (choice < 122) {
            Add(make_shared<CommandEditorMode>(hub_, Pick(0, 3)));
        } else if (choice < 123) {
            Add(make_shared<CommandEditorModeSkin>(hub_, Pick(0, 2)));
        } else if (choice < 124) {
            Add(make_shared<CommandEditorPpu>(doc_, Pick(1, 64)));
        } else if (choice < 125) {
            EventDefinitions events = EventDefinitions::Of(doc_.Wirrel());
            events.names.push_back(MakeName(Name()));
            events.events.push_back({.name = static_cast<std::uint32_t>(events.names.size() - 1)});
            events.spans.back() = {static_cast<std::int32_t>(events.events.size() - 1), 1};
            Add(make_shared<CommandEditorEvents>(doc_, events));
        } else if (choice < 127) {
            const int pin = Pins().empty() || Pick(0, 4) == 0 ? -1 : AnyPin();
            Add(make_shared<CommandSel>(doc_, selection_, "Pin Selection", 13, pin, Pick(0, 4),
                                        Pick(0, 1) == 0));
        } else if (choice < 128) {
            for (int move = Pick(1, 5); move > 0; --move) {
                BgPlacement placement = BgPlacement::Of(doc_.background);
                placement.offsetX += PickFloat(-3, 3);
                placement.alpha = static_cast<std::uint8_t>(Pick(0, 255));
                Add(make_shared<CommandBgChange>(doc_, "Change Background Offset", 40, placement));
            }
            stack_.FinishDrag(40, true);
        } else if (choice < 129) {
            Add(make_shared<CommandBgToggle>(doc_));
        } else {
            Add(make_shared<CommandBgColor>(hub_,
                                            static_cast<std::uint32_t>(Pick(0, 0xFFFFFF)) | 0xFF000000u));
        }
    }

    // The pose step of the workspace in the build mode.
    void Refresh() {
        FillPinPixels(view_, Pins());
        BuildSkinGrips(doc_.Wirrel(), Pins(), view_, kModeBuild, selection_, 4.0f, grips_);
    }

    // A few steps back, sometimes pressed while playback runs and stops elsewhere.
    void UndoAFew() {
        for (int n = Pick(1, 3); n > 0; --n) {
            hub_.playing = Pick(0, 3) == 0;
            const std::uint32_t stop = AnyFrame();
            hub_.onStop = [this, stop] {
                Add(stop != doc_.cursor.frameIndex ? make_shared<CommandFrameSel>(doc_, stop) : nullptr);
            };
            stack_.UndoRedo(false, hub_);
        }
    }

    // Two sheets to cut textures from: sprites on transparent pixels, and sprites on a colour key that
    // nobody converts, since the walk answers no.
    void AddSheets() {
        for (std::uint32_t background : {0x00000000u, 0x00FF00FFu}) {
            auto image =
                make_shared<WirrelTexImage>(aurel::DualString("/sheets/" + std::to_string(background)));
            image->surface.Resize(64, 48);
            image->surface.Clear(background);
            for (int sprite = 0; sprite < 6; ++sprite) {
                const int x = Pick(0, 50), y = Pick(0, 36);
                image->surface.FillRect(x, y, x + Pick(2, 12), y + Pick(2, 10), 0xFF000000u | rng_());
            }
            doc_.SetImage(-1, image);
        }
    }

    // Picture files to load: a sheet like the first, a smaller one whose textures may not fit, one
    // without alpha that raises the colour-key question; and a name of no file at all.
    void WriteImageFiles(std::uint32_t seed) {
        static const bool started = [] {
            VylLibInit();
            return true;
        }();
        (void)started;
        folder_ =
            std::filesystem::temp_directory_path() / ("kovra-walk-" + std::to_string(seed) + "-" +
                                                      std::to_string(reinterpret_cast<std::uintptr_t>(this)));
        std::filesystem::create_directories(folder_);
        const std::pair<const char*, int> files[] = {{"sheet.png", 64}, {"small.png", 24}, {"keyed.bmp", 40}};
        for (const auto& [name, side] : files) {
            WirrelTexImage picture;
            picture.surface.Resize(side, side * 3 / 4);
            picture.surface.Clear(0x00FF00FFu);
            for (int sprite = 0; sprite < 4; ++sprite) {
                const int x = Pick(0, side / 2), y = Pick(0, side / 3);
                picture.surface.FillRect(x, y, x + Pick(2, 8), y + Pick(2, 6), 0xFF000000u | rng_());
            }
            picture.Save(aurel::DualString((folder_ / name).string()));
            imageFiles_.emplace_back((folder_ / name).string());
        }
        imageFiles_.emplace_back((folder_ / "missing.png").string());
    }

    // Image files added or put in place of the current image, or the last image deleted (undoing the
    // deletion of any other leaves the list one shorter, by design); the walk keeps at least one image.
    void ImageStep(bool load) {
        if (!load) {
            imageSelection_.SetCurrent(Images() - 1, 1);
            Add(Images() > 1 ? make_shared<CommandImgDelete>(doc_, textureSelection_, imageSelection_)
                             : nullptr);
            return;
        }
        std::vector<aurel::DualString> paths;
        for (int count = Pick(1, 2); count > 0; --count) {
            paths.push_back(imageFiles_[Pick(0, static_cast<int>(imageFiles_.size()) - 1)]);
        }
        const int mode = Pick(0, 1) == 0 ? kImgLoadAdd : kImgLoadReplace;
        auto command = make_shared<CommandImgLoad>(doc_, paths, *this, textureSelection_, imageSelection_,
                                                   mode, Pick(0, 1) == 1);
        Add(command->succeeded ? command : nullptr);
    }

    int Images() const { return static_cast<int>(doc_.images.size()); }
    int Textures() const { return static_cast<int>(doc_.Wirrel().textures.size()); }

    // A gesture of the texture view or the pack dialog.
    void TextureStep() {
        const int choice = Pick(0, 13);
        const int image = Pick(0, Images() - 1);
        imageSelection_.SetCurrent(image, 1);
        if (choice >= 12) {
            ImageStep(choice == 12);
        } else if (choice < 3 || Textures() == 0) {
            const int x = Pick(0, 40), y = Pick(0, 30);
            Add(make_shared<CommandTexCreate>(image, doc_, textureSelection_,
                                              TexRect{x, y, x + Pick(1, 20), y + Pick(1, 15)}));
        } else if (choice < 6) {
            textureSelection_.SetCurrent(Pick(0, Textures() - 1), 0);
            const WirrelTexture& t = doc_.Wirrel().textures[textureSelection_.currentItem];
            const TexRect start{t.x, t.y, t.x + t.width, t.y + t.height};
            const int grip = Pick(0, 9);
            for (int move = Pick(1, 6); move > 0; --move) {
                Add(make_shared<CommandTexMove>(doc_, textureSelection_, start, grip, PickFloat(-30, 30),
                                                PickFloat(-30, 30)));
            }
            stack_.FinishDrag(kKindTexMove, true);
        } else if (choice < 7) {
            textureSelection_.Clear();
            textureSelection_.Add(Pick(0, Textures() - 1), true);
            textureSelection_.Add(Pick(0, Textures() - 1), false);
            Add(make_shared<CommandTexDelete>(doc_, textureSelection_));
        } else if (choice < 8) {
            textureSelection_.SetCurrent(Pick(0, Textures() - 1), 0);
            const WirrelTexture record{image, Pick(0, 40), Pick(0, 30), Pick(1, 20), Pick(1, 15)};
            Add(make_shared<CommandTexProperty>(doc_, textureSelection_, 90 + Pick(0, 1), "Texture", record));
        } else if (choice < 10) {
            auto detect = make_shared<CommandTexAutoDetect>(doc_, *this, textureSelection_, imageSelection_);
            Add(detect->succeeded ? detect : nullptr);
        } else {
            std::vector<int> checked;
            for (int i = 0; i < Images(); ++i) {
                if (Pick(0, 1) == 0) {
                    checked.push_back(i);
                }
            }
            const int side = 32 << Pick(0, 2);
            if (RunPackTrial(doc_.Wirrel(), checked, side, side).Stands()) {
                Add(make_shared<CommandTexPack>(checked, std::vector<aurel::DualString>{"/pages/page.png"},
                                                imageSelection_, doc_, side, side));
            }
        }
    }

    std::mt19937 rng_;
    SelectionTracker selection_;
    SelectionTracker textureSelection_;
    SelectionTracker imageSelection_;
    ViewTransform view_ = ViewTransform::OfClient(640, 480);
    std::vector<SkinGrip> grips_;
    int names_ = 0;
    std::filesystem::path folder_;
    std::vector<aurel::DualString> imageFiles_;
};

}  // namespace

WalkResult RunRandomWalk(std::uint32_t seed, int steps) {
    Walk walk(seed);
    WalkResult result;
    const auto start = walk.Save();
    for (int step = 0; step < steps; ++step) {
        if (!walk.Step()) {
            result.failure = "the current frame is no longer a tree after step " + std::to_string(step);
            return result;
        }
    }
    walk.Replay(true);  // the walk may have stopped after a few undos: the end is the whole history
    const auto end = walk.Save();
    result.commands = walk.stack_.Size();
    result.end = walk.doc_.Wirrel();
    walk.Replay(false);
    if (walk.Save() != start) {
        result.failure = "undo didn't give back the start";
        return result;
    }
    walk.Replay(true);
    if (walk.Save() != end) {
        result.failure = "redo didn't give back the end";
    }
    return result;
}

}  // namespace kovra::test
