#include "textures/pack_command.h"

#include "textures/detection.h"
#include "textures/pack_trial.h"
#include "textures/packing.h"

namespace kovra {

CommandTexPack::CommandTexPack(const std::vector<int>& checked, const std::vector<aurel::DualString>& files,
                               SelectionTracker& imageSelection, WirrelDoc& document, int pageWidth,
                               int pageHeight)
    : WirrelCommand("Pack Textures"),
      texturesBefore_(document.Wirrel().textures),
      imagesBefore_(document.images),
      savedSelection_(imageSelection.Snapshot()),
      texturesAfter_(texturesBefore_),
      imagesAfter_(imagesBefore_),
      document_(document),
      imageSelection_(imageSelection) {
    std::vector<PackRect> rects;
    int removed = 0;
    for (int s : checked) {
        for (std::size_t i = 0; i < texturesBefore_.size(); ++i) {
            const WirrelTexture& t = texturesBefore_[i];
            if (t.imageIndex == s) {
                rects.push_back(
                    {t.x, t.y, t.x + t.width - 1, t.y + t.height - 1, static_cast<std::int32_t>(i), 0});
            } else if (t.imageIndex > s) {
                --texturesAfter_[i].imageIndex;
            }
        }
        imagesAfter_.erase(imagesAfter_.begin() + (s - removed));
        ++removed;
    }
    const int base = static_cast<int>(imagesAfter_.size());
    SortPackRects(rects);
    std::vector<PackRect> placed;
    const int pages = PackRects(rects, placed, pageWidth, pageHeight, 1);
    for (int page = 0; page < pages; ++page) {
        auto image = std::make_shared<WirrelTexImage>();
        image->surface.Resize(pageWidth, pageHeight);
        if (page < static_cast<int>(files.size())) {
            image->path = files[page];
        }
        imagesAfter_.push_back(image);
    }
    for (const PackRect& r : placed) {
        const WirrelTexture& source = texturesBefore_[r.texture];
        if (const auto& from = imagesBefore_[source.imageIndex]) {
            BlitPlaced(from->surface, source, imagesAfter_[base + r.page]->surface, r.left, r.top);
        }
        texturesAfter_[r.texture] = {base + r.page, r.left, r.top, r.right - r.left + 1,
                                     r.bottom - r.top + 1};
    }
    // Each page gets its mask and its textures their marks, with no question.
    document.Wirrel().textures = texturesAfter_;
    aurel::SilentPrompt noWindow;
    SelectionTracker unusedTextures;
    for (int page = 0; page < pages; ++page) {
        int keyChoice = 0;
        ApplyDetection(true, *imagesAfter_[base + page], base + page, document, noWindow, unusedTextures,
                       keyChoice, imageSelection);
    }
    Redo();
}

void CommandTexPack::Apply(const std::vector<WirrelTexture>& textures, const Images& images) {
    document_.Wirrel().textures = textures;
    for (std::size_t i = 0; i < images.size(); ++i) {
        document_.SetImage(static_cast<int>(i), images[i]);
    }
    while (document_.images.size() > images.size()) {
        document_.RemoveImage(static_cast<int>(document_.images.size()) - 1);
    }
}

void CommandTexPack::Redo() {
    Apply(texturesAfter_, imagesAfter_);
    imageSelection_.SetCurrent(static_cast<int>(imagesAfter_.size()) - 1, imageSelection_.currentPart);
    document_.onChanged.Call();
}

void CommandTexPack::Undo() {
    Apply(texturesBefore_, imagesBefore_);
    imageSelection_.SetCurrent(static_cast<int>(imagesBefore_.size()) - 1, imageSelection_.currentPart);
    imageSelection_.Restore(savedSelection_);
    document_.onChanged.Call();
}

bool CommandTexPack::Merge(ICommand& next) {
    auto* newer = dynamic_cast<CommandTexPack*>(&next);
    if (newer == nullptr) {
        return false;
    }
    texturesAfter_ = newer->texturesAfter_;
    imagesAfter_ = newer->imagesAfter_;
    return true;
}

}  // namespace kovra
