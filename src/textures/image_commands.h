#pragma once
// Commands on the document's list of images: loading image files (as new images, in place of the
// selected one, or for a document being opened) and deleting an image with its textures. Both keep
// snapshots of the textures, skins and animations from before they ran, which is what Undo restores.

#include <memory>
#include <vector>

#include "base/dual_string.h"
#include "base/prompt.h"
#include "commands/command.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "images/wirrel_tex_image.h"

namespace kovra {

enum ImgLoadMode : int {
    kImgLoadReplace = 0,  // in place of the current image of the image selection
    kImgLoadOpen = 1,     // an image named by a document being opened: never asks about a colour key
    kImgLoadAdd = 2,      // new images at the end of the list
};

// Answers of the question asked when a replacement image changes what fits on it.
enum SizeChoice : int { kSizeUnanswered = -1, kSizeKeep = 0, kSizeRemove = 1, kSizeCancel = 2 };

// Brings image files into the document. The caller reads `succeeded` and hands the command to the stack
// only when it is true; after a failure the document is as it was. The user's answers stay in the
// command, so that Redo asks nothing.
class CommandImgLoad : public WirrelCommand {
public:
    CommandImgLoad(WirrelDoc& document, std::vector<aurel::DualString> paths, aurel::Prompt& window,
                   SelectionTracker& textureSelection, SelectionTracker& imageSelection, int mode,
                   bool colorKey);
    int GetType() const override { return kKindImgLoad; }
    void Undo() override;
    void Redo() override;

    bool succeeded = false;

private:
    // Steps of one file; false ends the routine, after Undo has put everything back.
    bool LoadOne(std::size_t index, int target);
    // Whether the textures on `target` still fit the new size, asking when they may not; false on Cancel.
    bool SettleSize(int target, const WirrelTexImage& loaded, bool& hasSkins);
    // Drops the paths from `index` on and undoes what the earlier ones did.
    void Abandon(std::size_t index);

    WirrelDoc& document_;
    aurel::Prompt& window_;
    std::vector<aurel::DualString> paths_;
    int mode_;
    SelectionTracker& textureSelection_;
    SelectionTracker& imageSelection_;
    int sizeChoice_ = kSizeUnanswered;
    int keyChoice_ = -1;
    SelectionTracker::Saved textureSelectionBefore_;
    SelectionTracker::Saved imageSelectionBefore_;
    int oldIndex_ = -1;
    std::shared_ptr<WirrelTexImage> oldImage_;
    aurel::DualString oldPath_;
    std::vector<WirrelTexture> textures_;
    std::vector<WirrelSkin> skins_;
    std::vector<WirrelAnim> anims_;
};

// Deletes the current image of the image selection and every texture on it. The image numbers of
// textures on later images stay as they are. Undo sets the list entry at the image's old index back,
// without inserting.
class CommandImgDelete : public WirrelCommand {
public:
    CommandImgDelete(WirrelDoc& document, SelectionTracker& textureSelection,
                     SelectionTracker& imageSelection);
    int GetType() const override { return kKindImgDelete; }
    void Undo() override;
    void Redo() override;

private:
    WirrelDoc& document_;
    SelectionTracker& textureSelection_;
    SelectionTracker& imageSelection_;
    SelectionTracker::Saved textureSelectionBefore_;
    SelectionTracker::Saved imageSelectionBefore_;
    std::vector<WirrelTexture> textures_;
    std::vector<WirrelSkin> skins_;
    std::vector<WirrelAnim> anims_;
    int index_;
    std::shared_ptr<WirrelTexImage> image_;
    aurel::DualString path_;
};

}  // namespace kovra
