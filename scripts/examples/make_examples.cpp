// Builds the example documents that the editor offers under File > Open Example: a cat with skins, a
// tail, collision rectangles and three animations, and a crane arm whose joints make an IK chain. Each
// is made as a user would make it, through the editor's commands, and saved beside its sprite sheet.
//
// Usage: kovra-make-examples FOLDER [PREVIEW_FOLDER]
// With a preview folder, the first key frame of every animation is also painted there as a PNG picture.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <string>

#include "commands/anim_commands.h"
#include "commands/command_stack.h"
#include "commands/editor_commands.h"
#include "commands/frame_commands.h"
#include "commands/pin_commands.h"
#include "commands/skin_commands.h"
#include "doc/wirrel_doc.h"
#include "example_art.h"
#include "images/vyl_lib.h"
#include "settings/lang.h"
#include "state/headless_hub.h"
#include "textures/document_images.h"
#include "textures/image_commands.h"
#include "textures/texture_commands.h"
#include "views/workspace/workspace_paint.h"

namespace kovra::examples {

namespace {

constexpr float kTurn = 6.2831855f;

void Check(bool ok, const std::string& what) {
    if (!ok) {
        std::fprintf(stderr, "kovra-make-examples: %s failed\n", what.c_str());
        std::exit(1);
    }
}

float Wrap(float angle) {
    angle = std::fmod(angle, kTurn);
    return angle < 0.0f ? angle + kTurn : angle;
}

// One document under construction. Pins are named by their id, which stays the same in every key frame
// whatever happens to their order.
class Builder {
public:
    explicit Builder(const std::string& sheetFile, const std::vector<PartArt>& parts) {
        doc.Reset(true);
        WirrelTexImage sheet;
        sheet.surface = DrawSheet(256, 192, parts);
        sheet.Save(sheetFile);
        CommandImgLoad load(doc, {sheetFile}, prompt_, textures_, images_, kImgLoadOpen, false);
        Check(load.succeeded, sheetFile);
        for (const PartArt& part : parts) {
            Run(std::make_shared<CommandTexCreate>(
                0, doc, textures_, TexRect{part.x, part.y, part.x + part.width, part.y + part.height}));
            textureOf_[part.name] = static_cast<int>(doc.Wirrel().textures.size()) - 1;
        }
    }

    void Run(std::shared_ptr<ICommand> command) { stack_.AddCommand(std::move(command)); }

    // A new pin pointing `angle` away from its parent, wearing the named part when one is given.
    int Pin(const std::string& name, float angle, float length, int parentId, const std::string& part = {}) {
        const int parent = parentId < 0 ? -1 : At(doc.CurrentKey(), parentId);
        Run(std::make_shared<CommandPinNew>(doc, pins_, PinDescription{Wrap(angle), length, parent, name}));
        const int id = static_cast<int>(doc.PinCount()) - 1;
        if (!part.empty()) {
            Run(std::make_shared<CommandSkinSet>(doc, pins_, At(doc.CurrentKey(), id), textureOf_.at(part)));
        }
        return id;
    }

    // Turns the skin of a pin by `angle` from where it was placed.
    void TurnSkin(int id, float angle) {
        const int at = At(doc.CurrentKey(), id);
        WirrelSkin skin = doc.Wirrel().skins[doc.CurrentKey().pins[at].skin];
        skin.angle = Wrap(skin.angle + angle);
        Run(std::make_shared<CommandSkinProperty>(doc, "Skin Angle", kKindSkinRotate, at, skin));
    }

    void Type(int id, PinType type) {
        Run(std::make_shared<CommandPinType>(doc, At(doc.CurrentKey(), id), type));
    }
    void Lock(int id) { Run(std::make_shared<CommandPinIkLock>(At(doc.CurrentKey(), id), doc)); }
    void Collision(int id, float left, float top, float right, float bottom) {
        Run(std::make_shared<CommandAabbCreate>(doc, left, top, right, bottom, At(doc.CurrentKey(), id)));
    }
    // Moves a pin to `position` in the draw order; later pins are drawn over earlier ones.
    void Order(int id, int position) {
        Run(std::make_shared<CommandPinOrder>(doc, pins_, "Pin Order", At(doc.CurrentKey(), id), position));
    }

    // The first animation takes the name and key frames; each further one is added.
    void Animation(const std::string& name, std::vector<WirrelKey> keys) {
        if (animations_++ == 0) {
            Run(std::make_shared<CommandAnimName>(doc, name));
        } else {
            Run(std::make_shared<CommandAnimNew>(doc, pins_, hub_, name, keys.front().ticks));
        }
        Run(std::make_shared<CommandFrameState>(doc, "Key Frames", kKindFrameReplace, std::move(keys)));
    }

    // Events by animation and key frame: the name offered, its variables' types and raw values.
    struct Event {
        int anim;
        int key;
        std::string name;
        std::uint32_t types;
        std::array<std::uint32_t, 6> vars;
    };
    void Events(const std::vector<Event>& events) {
        EventDefinitions definitions = EventDefinitions::Of(doc.Wirrel());
        std::vector<std::size_t> firstSpan;
        std::size_t spans = 0;
        for (const WirrelAnim& anim : doc.Wirrel().anims) {
            firstSpan.push_back(spans);
            spans += anim.keys.size();
        }
        for (const Event& event : events) {
            auto name = std::find_if(definitions.names.begin(), definitions.names.end(),
                                     [&](const Name32& n) { return NameOf(n) == event.name; });
            if (name == definitions.names.end()) {
                name = definitions.names.insert(name, MakeName(event.name));
            }
            auto& span = definitions.spans[firstSpan[event.anim] + event.key];
            span = {static_cast<std::int32_t>(definitions.events.size()), 1};
            definitions.events.push_back(
                {static_cast<std::uint32_t>(name - definitions.names.begin()), event.types, event.vars});
        }
        Run(std::make_shared<CommandEditorEvents>(doc, std::move(definitions)));
    }

    bool Save(const std::string& file) {
        aurel::SilentPrompt silent;
        return doc.Save(file, file.ends_with(".ske"), silent);
    }

    // The pin under `topId` whose chain of parents leads to `id`: where a chain hangs from.
    int Below(int topId, int id) {
        const WirrelKey& key = doc.CurrentKey();
        int at = At(key, id);
        while (key.pins[at].parent >= 0 && key.pins[key.pins[at].parent].id != topId) {
            at = key.pins[at].parent;
        }
        return key.pins[at].id;
    }

    static int At(const WirrelKey& key, int id) {
        for (std::size_t i = 0; i < key.pins.size(); ++i) {
            if (key.pins[i].id == id) {
                return static_cast<int>(i);
            }
        }
        return -1;
    }

    WirrelDoc doc;

private:
    aurel::SilentPrompt prompt_;
    CommandStack stack_;
    HeadlessHub hub_;
    SelectionTracker pins_;
    SelectionTracker textures_;
    SelectionTracker images_;
    std::map<std::string, int> textureOf_;
    int animations_ = 0;
};

// A pose being made from another: turns act on a pin with everything that hangs from it, since angles
// are world directions.
struct PoseMaker {
    WirrelKey key;

    PoseMaker& Turn(int id, float angle) {
        const int top = Builder::At(key, id);
        for (std::size_t i = 0; i < key.pins.size(); ++i) {
            if (Below(static_cast<int>(i), top)) {
                key.pins[i].angle = Wrap(key.pins[i].angle + angle);
            }
        }
        return *this;
    }
    // Moves one pin alone; what hangs from it follows without turning.
    PoseMaker& Place(int id, float angle, float length) {
        WirrelPin& pin = key.pins[Builder::At(key, id)];
        pin.angle = Wrap(angle);
        pin.length = length;
        return *this;
    }
    // The pin's value here is a tween between its neighbouring keys: a micro keyframe.
    PoseMaker& Tween(int id) {
        key.pins[Builder::At(key, id)].flags |= kPinTweened;
        return *this;
    }
    WirrelKey Ticks(std::uint32_t ticks) {
        key.ticks = ticks;
        return key;
    }

private:
    bool Below(int pin, int top) const {
        for (int at = pin; at >= 0; at = key.pins[at].parent) {
            if (at == top) {
                return true;
            }
        }
        return false;
    }
};

std::uint32_t FloatBits(float value) {
    std::uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

constexpr float kUp = 4.712389f;
constexpr float kDown = 1.5707964f;

void MakeCat(const std::string& folder) {
    Builder b(folder + "Cat.png", CatParts());
    const int root = b.Pin("hips", 0.0f, 0.0f, -1);
    const int body = b.Pin("body", kUp, 2.0f, root, "torso");
    const int tail = b.Pin("tail", 3.5f, 2.6f, root, "tail");
    const int thighBack = b.Pin("thigh.R", kDown - 0.25f, 1.25f, root, "thigh");
    const int shinBack = b.Pin("shin.R", kDown + 0.05f, 1.35f, thighBack, "shin");
    const int armBack = b.Pin("arm.R", kDown - 0.55f, 1.2f, body, "upper arm");
    const int handBack = b.Pin("hand.R", kDown - 0.3f, 1.3f, armBack, "forearm");
    b.Order(body, static_cast<int>(b.doc.CurrentKey().pins.size()) - 1);
    const int thigh = b.Pin("thigh.L", kDown + 0.2f, 1.25f, root, "thigh");
    const int shin = b.Pin("shin.L", kDown - 0.05f, 1.35f, thigh, "shin");
    const int head = b.Pin("head", kUp, 2.2f, body, "head");
    const int arm = b.Pin("arm.L", kDown + 0.55f, 1.2f, body, "upper arm");
    b.Pin("hand.L", kDown + 0.3f, 1.3f, arm, "forearm");
    b.Type(tail, Tail);
    // The tail's pin is its tip now; the chain hangs from a segment pin under the hips.
    const int tailBase = b.Below(root, tail);
    b.Lock(body);
    b.Collision(body, -1.0f, -2.6f, 1.0f, 0.4f);
    b.Collision(head, -1.4f, -4.5f, 1.4f, -2.0f);
    b.Collision(shin, -0.4f, 1.6f, 1.0f, 2.5f);
    const WirrelKey rest = b.doc.CurrentKey();

    b.Animation("Idle",
                {
                    PoseMaker{rest}.Ticks(720),
                    PoseMaker{rest}.Turn(body, -0.04f).Turn(head, 0.1f).Turn(tailBase, 0.3f).Ticks(720),
                    PoseMaker{rest}.Turn(head, -0.05f).Turn(tailBase, -0.15f).Tween(head).Ticks(720),
                });
    const auto stride = [&](float swing) {
        return PoseMaker{rest}
            .Turn(thigh, swing)
            .Turn(thighBack, -swing)
            .Turn(arm, -swing * 0.8f)
            .Turn(armBack, swing * 0.8f)
            .Turn(tailBase, swing * 0.3f);
    };
    const auto passing = [&](float bend) {
        return PoseMaker{rest}
            .Turn(shin, bend)
            .Turn(shinBack, -bend)
            .Place(root, kDown, 0.12f)
            .Tween(tailBase);
    };
    b.Animation("Walk", {stride(0.45f).Ticks(300), passing(0.5f).Ticks(300), stride(-0.45f).Ticks(300),
                         passing(-0.5f).Ticks(300)});
    b.Animation("Wave",
                {
                    PoseMaker{rest}.Ticks(480),
                    PoseMaker{rest}.Turn(armBack, -2.3f).Turn(handBack, -0.5f).Turn(head, 0.12f).Ticks(360),
                    PoseMaker{rest}.Turn(armBack, -2.3f).Turn(handBack, 0.2f).Tween(head).Ticks(360),
                    PoseMaker{rest}.Turn(armBack, -2.3f).Turn(handBack, -0.6f).Ticks(480),
                });
    b.Events({{0, 1, "blink", 0, {}},
              {1, 0, "footstep", 2, {0}},
              {1, 2, "footstep", 2, {1}},
              {2, 1, "wave", 1, {FloatBits(1.0f)}}});
    Check(b.Save(folder + "Cat.ske"), "Cat.ske");
}

void MakeCrane(const std::string& folder) {
    Builder b(folder + "Crane.png", CraneParts());
    const int root = b.Pin("pivot", kUp, 0.5f, -1);
    const int base = b.Pin("base", kDown, 1.0f, root, "base");
    b.TurnSkin(base, kTurn * 0.25f);
    const int boom = b.Pin("boom", 5.1f, 2.9f, root, "boom");
    const int jib = b.Pin("jib", 6.0f, 2.3f, boom, "jib");
    const int wrist = b.Pin("wrist", 0.9f, 1.6f, jib, "wrist");
    const int claw = b.Pin("claw", kDown, 1.0f, wrist, "claw");
    b.Lock(base);
    b.Collision(base, -1.9f, -0.1f, 1.9f, 1.4f);
    b.Collision(claw, 3.4f, -3.4f, 4.6f, -1.9f);
    const WirrelKey rest = b.doc.CurrentKey();

    b.Animation("Reach", {
                             PoseMaker{rest}.Ticks(600),
                             PoseMaker{rest}.Turn(boom, 0.35f).Turn(jib, 0.25f).Turn(wrist, -0.3f).Ticks(480),
                             PoseMaker{rest}.Turn(boom, 0.45f).Turn(jib, 0.4f).Turn(claw, 0.2f).Ticks(600),
                         });
    b.Animation("Sweep", {
                             PoseMaker{rest}.Turn(boom, -0.4f).Ticks(540),
                             PoseMaker{rest}.Turn(jib, 0.3f).Tween(wrist).Ticks(540),
                             PoseMaker{rest}.Turn(boom, 0.4f).Turn(wrist, 0.3f).Ticks(540),
                             PoseMaker{rest}.Turn(jib, -0.2f).Tween(wrist).Ticks(540),
                         });
    b.Events({{0, 2, "grab", 1, {FloatBits(2.5f)}},
              {1, 0, "release", 0, {}},
              {1, 2, "grab", 1, {FloatBits(1.5f)}}});
    Check(b.Save(folder + "Crane.ski"), "Crane.ski");
}

// The first key frame of each animation of the saved document, as the workspace paints it in Animate
// mode.
void Preview(const std::string& file, const std::string& picture) {
    aurel::SilentPrompt silent;
    WirrelDoc doc;
    std::vector<WirrelImageRecord> images;
    Check(doc.Load(file, silent, images, false), file);
    SelectionTracker textures;
    SelectionTracker selectedImages;
    LoadDocumentImages(doc, images, silent, textures, selectedImages);
    for (std::size_t a = 0; a < doc.Wirrel().anims.size(); ++a) {
        doc.cursor.animIndex = static_cast<int>(a);
        doc.cursor.animName = doc.Wirrel().anims[a].name;
        doc.SetFrame(0);
        WorkspaceState state;
        state.view = ViewTransform::OfClient(480, 480);
        state.view.cameraY = -1.2f;
        state.view.zoom = 1.4f;
        WorkspaceTheme theme;
        WorkspaceBuffers buffers;
        PaintWorkspace(doc, state, theme, WorkingColours::FromTheme(theme), DefaultEdgeFade(), buffers);
        WirrelTexImage shot;
        shot.surface = buffers.back;
        shot.Save(picture + "-" + std::to_string(a) + ".png");
    }
}

}  // namespace

}  // namespace kovra::examples

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: kovra-make-examples FOLDER [PREVIEW_FOLDER]\n");
        return 2;
    }
    kovra::VylLibInit();
    std::string folder = argv[1];
    if (!folder.ends_with('/')) {
        folder += '/';
    }
    // The default words of new records (pin, segment and event names) come from the language file.
    aurel::LoadLanguageFile(aurel::DualString(folder + "../Lang/English.txt"));
    kovra::examples::MakeCat(folder);
    kovra::examples::MakeCrane(folder);
    if (argc > 2) {
        kovra::examples::Preview(folder + "Cat.ske", std::string(argv[2]) + "/Cat");
        kovra::examples::Preview(folder + "Crane.ski", std::string(argv[2]) + "/Crane");
    }
    kovra::VylLibExit();
    return 0;
}
