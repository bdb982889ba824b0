#pragma once
// Packing as a command: the textures of the checked images move onto new page images, which take the
// place of the checked ones at the end of the list. Every texture keeps its index, so skins are left as
// they are; textures on later images follow their image's new number.

#include <memory>
#include <vector>

#include "base/dual_string.h"
#include "commands/command.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"

namespace kovra {

class CommandTexPack : public WirrelCommand {
public:
    // `checked` ascending; `files` names the pages in order (a page without a name keeps an empty path).
    CommandTexPack(const std::vector<int>& checked, const std::vector<aurel::DualString>& files,
                   SelectionTracker& imageSelection, WirrelDoc& document, int pageWidth, int pageHeight);
    int GetType() const override { return kKindTexPack; }
    void Undo() override;
    void Redo() override;
    bool Merge(ICommand& next) override;

private:
    using Images = std::vector<std::shared_ptr<WirrelTexImage>>;

    void Apply(const std::vector<WirrelTexture>& textures, const Images& images);

    std::vector<WirrelTexture> texturesBefore_;
    Images imagesBefore_;
    SelectionTracker::Saved savedSelection_;
    std::vector<WirrelTexture> texturesAfter_;
    Images imagesAfter_;
    WirrelDoc& document_;
    SelectionTracker& imageSelection_;
};

}  // namespace kovra
