#include "textures/image_commands.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "doc/image_extents.h"
#include "settings/lang.h"
#include "textures/detection.h"
#include "textures/texture_edit.h"

namespace kovra {

namespace {

// The question asked when a replacement changes the size of an image that has textures.
int AskSize(aurel::Prompt& window, bool overflow, bool hasSkins) {
    std::string text = "The new image is not the same size as the current one.\n\n";
    text += overflow ? "- Keep only textures that fit and replace old image?\n"
                     : "- Keep current textures and replace old image?\n";
    text += hasSkins ? "- Remove all textures (and skins using them) and replace old image (rescan)?\n"
                     : "- Remove all textures and replace old image (rescan)?\n";
    text += "- Cancel replace image?";
    const std::vector<aurel::DualString> labels{"Keep", "Remove", "Cancel"};
    // 100 pixels a button and 40 more, at least 260, by 160.
    const int width = std::max(100 * static_cast<int>(labels.size()) + 40, 260);
    const int answer = window.Ask(
        {"Warning", text, aurel::PromptButtons::Custom, aurel::PromptIcon::None, labels, width, 160});
    return answer == kSizeKeep || answer == kSizeRemove ? answer : kSizeCancel;
}

void TellLoadFailure(aurel::Prompt& window, const std::string& path) {
    const std::string pattern = aurel::Lang("MESSAGES", "ErrorLoadImage").Utf8();
    std::string text;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        if (pattern.compare(at, 2, "%1") == 0) {
            text += '"' + path + '"';
            ++at;
        } else {
            text += pattern[at];
        }
    }
    window.Tell(aurel::Lang("MESSAGES", "Error"), text);
}

std::set<int> TexturesOn(const Wirrel& wirrel, int image) {
    std::set<int> found;
    for (std::size_t i = 0; i < wirrel.textures.size(); ++i) {
        if (wirrel.textures[i].imageIndex == image) {
            found.insert(static_cast<int>(i));
        }
    }
    return found;
}

// Empties the selection and leaves it without a current item, then selects `saved` capped to the last
// of `count` items, if any remain.
void Reselect(SelectionTracker& selection, int saved, int count) {
    selection.Clear();
    if (selection.currentItem != -1) {
        selection.SetCurrent(-1, -1);
    }
    const int item = saved < count ? saved : count - 1;
    if (count > 0 && item != -1 && !selection.IsSelected(item)) {
        selection.Add(item, true);
    }
}

}  // namespace

CommandImgLoad::CommandImgLoad(WirrelDoc& document, std::vector<aurel::DualString> paths,
                               aurel::Prompt& window, SelectionTracker& textureSelection,
                               SelectionTracker& imageSelection, int mode, bool colorKey)
    : WirrelCommand(aurel::Lang("COMMANDS", "ImgLoad").Utf8()),
      document_(document),
      window_(window),
      paths_(std::move(paths)),
      mode_(mode),
      textureSelection_(textureSelection),
      imageSelection_(imageSelection),
      keyChoice_(mode == kImgLoadOpen ? (colorKey ? 1 : 0) : -1),
      textureSelectionBefore_(textureSelection.Snapshot()),
      imageSelectionBefore_(imageSelection.Snapshot()),
      textures_(document.Wirrel().textures),
      skins_(document.Wirrel().skins),
      anims_(document.Wirrel().anims) {
    Redo();
}

void CommandImgLoad::Redo() {
    succeeded = false;
    int first = -1;
    for (std::size_t i = 0; i < paths_.size(); ++i) {
        const int target = mode_ == kImgLoadReplace ? imageSelection_.currentItem
                                                    : static_cast<int>(document_.images.size());
        // A replacement needs an image to replace.
        if (mode_ == kImgLoadReplace && (target < 0 || target >= static_cast<int>(document_.images.size()))) {
            Abandon(i);
            return;
        }
        if (i == 0) {
            first = target;
        }
        if (!LoadOne(i, target)) {
            return;
        }
    }
    if (succeeded) {
        imageSelection_.SetCurrent(first, 1);
        document_.onChanged.Call();
    }
}

bool CommandImgLoad::LoadOne(std::size_t index, int target) {
    succeeded = false;
    if (mode_ == kImgLoadReplace) {
        oldIndex_ = target;
        oldImage_ = document_.Image(target);
        oldPath_ = oldImage_ ? oldImage_->path : aurel::DualString();
    }
    auto image = std::make_shared<WirrelTexImage>();
    succeeded = image->Load(paths_[index]) == 0;
    if (!succeeded) {
        const std::string path = paths_[index].Utf8();
        Abandon(index);
        TellLoadFailure(window_, path);
        return false;
    }
    bool hasSkins = false;
    if (!SettleSize(target, *image, hasSkins)) {
        succeeded = false;
        Abandon(index);
        return false;
    }
    image->path = paths_[index];
    document_.SetImage(target, image);
    ApplyDetection(hasSkins || mode_ == kImgLoadOpen, *image, target, document_, window_, textureSelection_,
                   keyChoice_, imageSelection_);
    return true;
}

bool CommandImgLoad::SettleSize(int target, const WirrelTexImage& loaded, bool& hasSkins) {
    int skinMaxX = 0;
    int skinMaxY = 0;
    int texMaxX = 0;
    int texMaxY = 0;
    hasSkins = SkinExtents(document_.Wirrel(), target, skinMaxX, skinMaxY);
    if (!TextureExtents(document_.Wirrel(), target, texMaxX, texMaxY)) {
        return true;
    }
    const int newW = loaded.surface.Width();
    const int newH = loaded.surface.Height();
    const bool sizeDiffers = oldImage_ && !oldImage_->surface.IsEmpty() &&
                             (oldImage_->surface.Width() != newW || oldImage_->surface.Height() != newH);
    // The height test doesn't look at hasSkins; without skins skinMaxY is 0 and it can't hold.
    const bool skinsOverflow = (hasSkins && skinMaxX > newW) || newH < skinMaxY;
    const bool texturesOverflow = newW < texMaxX || newH < texMaxY;
    const bool overflow = skinsOverflow || texturesOverflow;
    if (!sizeDiffers && !overflow) {
        return true;
    }
    if (sizeChoice_ == kSizeUnanswered) {
        sizeChoice_ = AskSize(window_, overflow, hasSkins);
    }
    if (sizeChoice_ == kSizeCancel) {
        return false;
    }
    if (!overflow && sizeChoice_ != kSizeRemove) {
        return true;
    }
    const bool keepFits = overflow && sizeChoice_ == kSizeKeep;
    hasSkins = keepFits;
    std::set<int> dropped;
    for (int texture : TexturesOn(document_.Wirrel(), target)) {
        const WirrelTexture& t = document_.Wirrel().textures[texture];
        if (!keepFits || t.x + t.width > newW || t.y + t.height > newH) {
            dropped.insert(texture);
        }
    }
    RemoveTextures(document_, dropped);
    return true;
}

void CommandImgLoad::Abandon(std::size_t index) {
    paths_.resize(index);
    Undo();
}

void CommandImgLoad::Undo() {
    if (mode_ == kImgLoadReplace) {
        if (oldIndex_ >= 0) {
            if (oldImage_) {
                oldImage_->path = oldPath_;
            }
            document_.SetImage(oldIndex_, oldImage_);
        }
    } else {
        for (std::size_t i = 0; i < paths_.size() && !document_.images.empty(); ++i) {
            document_.RemoveImage(static_cast<int>(document_.images.size()) - 1);
        }
    }
    Wirrel& wirrel = document_.Wirrel();
    wirrel.textures = textures_;
    wirrel.skins = skins_;
    wirrel.anims = anims_;
    textureSelection_.Restore(textureSelectionBefore_);
    imageSelection_.Restore(imageSelectionBefore_);
    document_.onChanged.Call();
}

CommandImgDelete::CommandImgDelete(WirrelDoc& document, SelectionTracker& textureSelection,
                                   SelectionTracker& imageSelection)
    : WirrelCommand("Delete Image"),
      document_(document),
      textureSelection_(textureSelection),
      imageSelection_(imageSelection),
      textureSelectionBefore_(textureSelection.Snapshot()),
      imageSelectionBefore_(imageSelection.Snapshot()),
      textures_(document.Wirrel().textures),
      skins_(document.Wirrel().skins),
      anims_(document.Wirrel().anims),
      index_(imageSelection.currentItem),
      image_(document.Image(imageSelection.currentItem)),
      path_(image_ ? image_->path : aurel::DualString()) {
    Redo();
}

void CommandImgDelete::Redo() {
    RemoveTextures(document_, TexturesOn(document_.Wirrel(), index_));
    document_.RemoveImage(index_);
    Reselect(textureSelection_, textureSelectionBefore_.currentItem,
             static_cast<int>(document_.Wirrel().textures.size()));
    Reselect(imageSelection_, imageSelectionBefore_.currentItem, static_cast<int>(document_.images.size()));
    document_.onChanged.Call();
}

void CommandImgDelete::Undo() {
    Wirrel& wirrel = document_.Wirrel();
    wirrel.textures = textures_;
    wirrel.skins = skins_;
    wirrel.anims = anims_;
    if (image_) {
        image_->path = path_;
    }
    if (index_ >= 0) {
        document_.SetImage(index_, image_);
    }
    textureSelection_.Restore(textureSelectionBefore_);
    imageSelection_.Restore(imageSelectionBefore_);
    document_.onChanged.Call();
}

}  // namespace kovra
