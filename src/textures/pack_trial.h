#pragma once
// What the pack dialog shows and searches, without a window: the trial packs the textures of the checked
// images at a page size and either stands with its pages or gives the message that blocks packing; Auto
// size looks for the smallest power-of-two page, from 1024 by 1024 down, that keeps everything on one
// page. The pages' pixels are composed only when asked for, since a search needs only their number.

#include <string>
#include <vector>

#include "bitmap/image_surface.h"
#include "doc/wirrel_doc.h"
#include "textures/packing.h"

namespace kovra {

// The rectangles of every texture on the listed images, image by image in the order given and, on one
// image, in texture order.
std::vector<PackRect> GatherPackRects(const Wirrel& wirrel, const std::vector<int>& images);

// Copies a texture's pixels from its image onto a page: the blit at opacity 1 without the fast path,
// which on a page cleared to 0 darkens each colour by (alpha + 1) / 256 and copies the alpha.
void BlitPlaced(const aurel::ImageSurface& source, const WirrelTexture& texture, aurel::ImageSurface& page,
                int left, int top);

struct PackTrial {
    std::string message;  // empty while a preview stands
    int pages = 0;        // 0 when the trial failed
    std::vector<PackRect> placed;

    bool Stands() const { return message.empty(); }
};

PackTrial RunPackTrial(const Wirrel& wirrel, const std::vector<int>& images, int pageWidth, int pageHeight);

// One surface per page of a standing trial, cleared to 0, with every placed texture copied onto it.
std::vector<aurel::ImageSurface> ComposePages(const WirrelDoc& document, const PackTrial& trial,
                                              int pageWidth, int pageHeight);

struct PackSize {
    int width = 1024;
    int height = 1024;
    PackTrial trial;  // the last one run, at this size
    int trials = 0;   // how many were run
};

// The Auto size search: the height is halved first in each round, then the width; a halving that leaves
// more or fewer than one page is undone and that side stays. Without any image in the document it only
// runs a trial at the given size.
PackSize AutoPackSize(const WirrelDoc& document, const std::vector<int>& images, int width, int height);

}  // namespace kovra
