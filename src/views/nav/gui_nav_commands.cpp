#include <algorithm>
#include <set>

#include "commands/anim_commands.h"
#include "commands/bg_commands.h"
#include "commands/editor_commands.h"
#include "commands/pin_commands.h"
#include "commands/skin_commands.h"
#include "gui/file_dialog.h"
#include "settings/lang.h"
#include "textures/image_commands.h"
#include "views/nav/gui_nav.h"
#include "views/nav/nav_ids.h"

namespace kovra {

using namespace kestrel2::win;

namespace {

// The image formats the open dialog offers, the first two only for opening.
std::vector<FileFilter> ImageFilters() {
    return {
        {"All Files", "*.*"},   {"All Supported Images", "*.bmp;*.png;*.tga;*.jpg;*.jpeg;*.gif;*.pct;*.psd"},
        {"Bmp Files", "*.bmp"}, {"Png Files", "*.png"},
        {"Tga Files", "*.tga"}, {"Jpeg Files", "*.jpg"},
        {"Gif Files", "*.gif"}, {"Pct Files", "*.pct"},
        {"Psd Files", "*.psd"}};
}

// The first "Animation n" that no animation carries yet.
std::string NewAnimName(const WirrelDoc& doc) {
    for (int n = static_cast<int>(doc.Wirrel().anims.size()) + 1;; ++n) {
        const std::string name = "Animation " + std::to_string(n);
        if (doc.FindAnim(name) < 0) {
            return name;
        }
    }
}

// How many textures of the image some skin uses.
std::size_t TexturesInUse(const WirrelDoc& doc, int image) {
    std::set<int> used;
    const Wirrel& w = doc.Wirrel();
    for (const WirrelSkin& skin : w.skins) {
        if (skin.texture >= 0 && skin.texture < static_cast<int>(w.textures.size()) &&
            w.textures[static_cast<std::size_t>(skin.texture)].imageIndex == image) {
            used.insert(skin.texture);
        }
    }
    return used.size();
}

}  // namespace

void GuiNav::Send(std::shared_ptr<ICommand> command) {
    if (command) {
        commandListeners.Call(std::move(command));
    }
}

void GuiNav::OnCommand(int id) {
    switch (id) {
        case kNavModeAnimate:
        case kNavModeAnimate + 1:
        case kNavModeAnimate + 2:
        case kNavModeBackground:
            Send(std::make_shared<CommandEditorMode>(hub_, id - kNavModeAnimate));
            SetMode(hub_.EditMode());
            break;
        case kNavOptionIk:
            FlipView(kViewIk, id);
            break;
        case kNavOptionRotate:
            FlipView(kViewRotateChildren, id);
            break;
        case kNavToolSkin:
        case kNavToolSkin + 1:
        case kNavToolTile:
            ChooseTool(id - kNavToolSkin);
            break;
        case kNavImageAdd:
            AddImages();
            break;
        case kNavImageReplace:
            ReplaceImage();
            break;
        case kNavImageDel:
            DeleteImage();
            break;
        case kNavImageList: {
            const int index = Control<GuiListBox>(kNavImageList)->GetSel();
            Send(std::make_shared<CommandSel>(document_, images_, aurel::Lang("COMMANDS", "ImgSel").Utf8(),
                                              kKindImageSelection, index, 1, false));
            break;
        }
        case kNavAnimList:
            Send(std::make_shared<CommandAnimSel>(document_, pins_, hub_,
                                                  Control<GuiListBox>(kNavAnimList)->GetSel()));
            break;
        case kNavAnimAdd:
            if (document_.HasCurrentAnim() && !document_.CurrentAnim().keys.empty()) {
                Send(std::make_shared<CommandAnimNew>(document_, pins_, hub_, NewAnimName(document_),
                                                      document_.CurrentKey().ticks));
            }
            break;
        case kNavAnimDel:
            DeleteAnim();
            break;
        case kNavScaleEdit:
            SetScale();
            break;
        case kNavSkinMirror:
        case kNavSkinFlip:
            if (const WirrelSkin* found = SkinOf(document_, pins_.currentItem)) {
                WirrelSkin skin = *found;
                const bool mirror = id == kNavSkinMirror;
                (mirror ? skin.scaleX : skin.scaleY) *= -1.0f;
                Send(std::make_shared<CommandSkinProperty>(
                    document_, aurel::Lang("COMMANDS", mirror ? "SkinPropMirror" : "SkinPropFlip").Utf8(),
                    mirror ? kKindSkinMirror : kKindSkinFlip, pins_.currentItem, skin));
            }
            break;
        case kNavSkinIncZ:
            ChangeOrder(1);
            break;
        case kNavSkinDecZ:
            ChangeOrder(-1);
            break;
        case kNavSkinCollision:
            ChangeCollision();
            break;
        case kNavBoneTypes: {
            const int type = Control<GuiComboBox>(kNavBoneTypes)->GetSel();
            if (PinAt(document_, pins_.currentItem) && type >= 0) {
                Send(std::make_shared<CommandPinType>(document_, pins_.currentItem,
                                                      static_cast<PinType>(type)));
            }
            break;
        }
        case kNavBgLoad:
            LoadBackground();
            break;
        case kNavBgSource:
            ChangeBackgroundSource();
            break;
        case kNavBgAlpha: {
            BgPlacement placement = BgPlacement::Of(document_.background);
            placement.alpha = static_cast<std::uint8_t>(Control<GuiSlider>(kNavBgAlpha)->GetPos());
            if (!(placement == BgPlacement::Of(document_.background))) {
                Send(std::make_shared<CommandBgChange>(document_, aurel::Lang("COMMANDS", "BgAlpha").Utf8(),
                                                       kKindBgAlpha, placement));
            }
            break;
        }
        case kNavViewLabels:
            FlipView(kViewLabels, id);
            break;
        case kNavViewBones:
            FlipView(kViewBones, id);
            break;
        case kNavViewSkinning:
            FlipView(kViewSkins, id);
            break;
        case kNavViewCollision:
            FlipView(kViewCollision, id);
            break;
        case kNavViewBg:
            Send(std::make_shared<CommandBgToggle>(document_));
            break;
        default:
            break;
    }
}

void GuiNav::OnPropsChanged(int id, int row, const aurel::DualString& text) {
    GuiProps* grid = Control<GuiProps>(id);
    const std::string name = grid->Row(row).name.Utf8();
    switch (id) {
        case kNavBoneProps:
            Send(PinEdit(document_, pins_.currentItem, name, text.Utf8()));
            break;
        case kNavSkinProps:
            Send(SkinEdit(document_, pins_.currentItem, name, text.Utf8()));
            break;
        case kNavBgProps: {
            const bool colour = grid->Row(row).type == kPropColor;
            Send(BackgroundEdit(document_, hub_, name, text.Utf8(),
                                colour ? grid->GetColor(row) : aurel::Color32(0, 0, 0)));
            break;
        }
        case kNavTextureProps:
            Send(TextureEdit(document_, textures_, name, text.Utf8()));
            break;
        default:
            break;
    }
    // A value that made no command, or one the command changed, shows what the document holds.
    OnDocumentChanged();
}

void GuiNav::OnListEdited(int id, int index, const aurel::DualString& text) {
    if (id == kNavAnimList && index == document_.cursor.animIndex) {
        Send(std::make_shared<CommandAnimName>(document_, text.Utf8()));
    }
}

void GuiNav::FlipView(std::size_t flag, int id) {
    document_.viewFlags[flag] = !document_.viewFlags[flag];
    if (auto* check = Control<GuiCheckbox>(id)) {
        check->SetCheck(document_.viewFlags[flag] ? kChecked : kUnchecked);
    }
    if (auto* options = Control<GuiToolbar>(kNavOptions);
        options && (id == kNavOptionIk || id == kNavOptionRotate)) {
        options->SetButtonState(id, document_.viewFlags[flag]);
    }
    document_.onChanged.Call();
}

void GuiNav::ChooseTool(int tool) {
    if (tool != kToolSkin) {
        window_.Tell(
            "WIP",
            "This is demo functionality. Completed implementation coming in a future version of Kovra.");
    }
    Send(std::make_shared<CommandEditorModeSkin>(hub_, tool));
    SetMode(hub_.EditMode());
}

void GuiNav::AddImages() {
    const std::vector<aurel::DualString> files = openImages(aurel::Lang("NAV", "ImageAddTip"), true);
    if (files.empty()) {
        return;
    }
    auto command =
        std::make_shared<CommandImgLoad>(document_, files, window_, textures_, images_, kImgLoadAdd, false);
    if (command->succeeded) {
        Send(command);
    }
}

void GuiNav::ReplaceImage() {
    if (images_.currentItem < 0 || images_.currentItem >= static_cast<int>(document_.images.size())) {
        return;
    }
    const std::vector<aurel::DualString> files = openImages(aurel::Lang("NAV", "ImageReplaceTip"), false);
    if (files.empty()) {
        return;
    }
    auto command = std::make_shared<CommandImgLoad>(document_, std::vector<aurel::DualString>{files.front()},
                                                    window_, textures_, images_, kImgLoadReplace, false);
    if (command->succeeded) {
        Send(command);
    }
}

void GuiNav::DeleteImage() {
    const int image = images_.currentItem;
    if (image < 0 || image >= static_cast<int>(document_.images.size())) {
        return;
    }
    if (const std::size_t used = TexturesInUse(document_, image); used > 0) {
        aurel::PromptRequest question;
        question.title = aurel::Lang("MESSAGES", "Warn");
        question.text = aurel::Lang("MESSAGES", used == 1 ? "WarnSkinTex" : "WarnSkinTexs");
        question.buttons = aurel::PromptButtons::OkCancel;
        question.icon = aurel::PromptIcon::Warning;
        if (window_.Ask(question) != aurel::kAnswerOk) {
            return;
        }
    }
    Send(std::make_shared<CommandImgDelete>(document_, textures_, images_));
    Control<GuiButton>(kNavImageDel)->Enable(!document_.images.empty());
    Control<GuiButton>(kNavImageReplace)->Enable(!document_.images.empty());
}

void GuiNav::DeleteAnim() {
    if (document_.Wirrel().anims.size() <= 1) {
        window_.Tell(aurel::Lang("MESSAGES", "Error"), aurel::Lang("MESSAGES", "ErrorAnimMin"));
        return;
    }
    Send(std::make_shared<CommandAnimDelete>(document_, pins_, hub_));
}

void GuiNav::SetScale() {
    auto* edit = Control<GuiEdit>(kNavScaleEdit);
    const std::string text = edit->GetText().Utf8();
    const int value = IsIntegerText(text) ? std::atoi(text.c_str()) : 0;
    if (value > 0 && value != document_.Wirrel().pixelsPerUnit) {
        Send(std::make_shared<CommandEditorPpu>(document_, value));
    }
    edit->SetText(std::to_string(document_.Wirrel().pixelsPerUnit));
}

void GuiNav::ChangeCollision() {
    auto* combo = Control<GuiComboBox>(kNavSkinCollision);
    const int choice = combo->GetSel();
    const WirrelSkin* found = SkinOf(document_, pins_.currentItem);
    if (choice == combo->GetCount() - 1) {
        window_.Tell("Not yet...",
                     "This is placeholder functionality. This feature will be implemented in a future "
                     "version of Kovra.");
        combo->SetSel(found ? found->collision + 1 : 0);
        return;
    }
    if (found && choice - 1 != found->collision) {
        WirrelSkin skin = *found;
        skin.collision = choice - 1;
        Send(std::make_shared<CommandSkinProperty>(document_, aurel::Lang("COMMANDS", "SkinPropCd").Utf8(),
                                                   kKindSkinCollision, pins_.currentItem, skin));
    }
}

void GuiNav::ChangeOrder(int step) {
    const int pin = pins_.currentItem;
    if (!PinAt(document_, pin)) {
        return;
    }
    const int target = pin + step;
    if (target >= 0 && target < static_cast<int>(document_.CurrentKey().pins.size())) {
        Send(std::make_shared<CommandPinOrder>(document_, pins_, "Change Draw Order", pin, target));
    }
}

void GuiNav::LoadBackground() {
    const std::vector<aurel::DualString> files = openImages(aurel::Lang("NAV", "BgLoadTip"), false);
    if (!files.empty()) {
        auto command = std::make_shared<CommandBgLoad>(document_, hub_, window_, files.front());
        if (command->valid) {
            Send(command);
        }
    }
}

void GuiNav::ChangeBackgroundSource() {
    if (Control<GuiComboBox>(kNavBgSource)->GetSel() == 1) {
        if (pasteBackground) {
            pasteBackground();
        }
    } else if (!document_.background.bitmap.IsEmpty()) {
        Send(std::make_shared<CommandBgClear>(document_, hub_));
    }
}

std::vector<aurel::DualString> OpenImageFiles(kestrel2::win::IGuiWindow* owner,
                                              const aurel::DualString& title, bool multiple) {
    FileDialog dialog(ImageFilters(), 1);
    return dialog.Open(owner, title, multiple);
}

}  // namespace kovra
