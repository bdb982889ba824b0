#include "textures/pack_trial.h"

#include <algorithm>

namespace kovra {

std::vector<PackRect> GatherPackRects(const Wirrel& wirrel, const std::vector<int>& images) {
    std::vector<PackRect> rects;
    for (int image : images) {
        for (std::size_t i = 0; i < wirrel.textures.size(); ++i) {
            const WirrelTexture& t = wirrel.textures[i];
            if (t.imageIndex == image) {
                rects.push_back(
                    {t.x, t.y, t.x + t.width - 1, t.y + t.height - 1, static_cast<std::int32_t>(i), 0});
            }
        }
    }
    return rects;
}

void BlitPlaced(const aurel::ImageSurface& source, const WirrelTexture& texture, aurel::ImageSurface& page,
                int left, int top) {
    source.Blit(static_cast<float>(texture.x), static_cast<float>(texture.y),
                static_cast<float>(texture.width), static_cast<float>(texture.height), page, left, top,
                texture.width, texture.height, 1.0f, false);
}

PackTrial RunPackTrial(const Wirrel& wirrel, const std::vector<int>& images, int pageWidth, int pageHeight) {
    PackTrial trial;
    std::vector<PackRect> rects = GatherPackRects(wirrel, images);
    int largestWidth = 0;
    int largestHeight = 0;
    for (const PackRect& r : rects) {
        largestWidth = std::max(largestWidth, r.right - r.left + 1);
        largestHeight = std::max(largestHeight, r.bottom - r.top + 1);
    }
    if (largestWidth > pageWidth || largestHeight > pageHeight) {
        trial.message = "Packing failure. Texture(s) larger than " + std::to_string(pageWidth) + "x" +
                        std::to_string(pageHeight) + ".";
        return trial;
    }
    if (rects.empty()) {
        trial.message = "No images selected to pack.";
        return trial;
    }
    SortPackRects(rects);
    trial.pages = PackRects(rects, trial.placed, pageWidth, pageHeight, 1);
    if (trial.pages == 0) {
        trial.message = "Packing failure. Unknown error.";
        trial.placed.clear();
    }
    return trial;
}

std::vector<aurel::ImageSurface> ComposePages(const WirrelDoc& document, const PackTrial& trial,
                                              int pageWidth, int pageHeight) {
    std::vector<aurel::ImageSurface> pages(static_cast<std::size_t>(trial.pages));
    for (aurel::ImageSurface& page : pages) {
        page.Resize(pageWidth, pageHeight);
    }
    const Wirrel& wirrel = document.Wirrel();
    for (const PackRect& r : trial.placed) {
        const WirrelTexture& texture = wirrel.textures[r.texture];
        if (const auto image = document.Image(texture.imageIndex)) {
            BlitPlaced(image->surface, texture, pages[r.page], r.left, r.top);
        }
    }
    return pages;
}

PackSize AutoPackSize(const WirrelDoc& document, const std::vector<int>& images, int width, int height) {
    PackSize size{width, height, {}, 0};
    auto attempt = [&] {
        size.trial = RunPackTrial(document.Wirrel(), images, size.width, size.height);
        ++size.trials;
        return size.trial.pages;
    };
    if (document.images.empty()) {
        attempt();
        return size;
    }
    size.width = size.height = 1024;
    if (attempt() != 1) {
        return size;
    }
    // Halves one side; answers whether it had to go back.
    auto halve = [&](int& side) {
        side /= 2;
        if (attempt() == 1) {
            return false;
        }
        side *= 2;
        attempt();
        return true;
    };
    for (;;) {
        const bool heightStuck = halve(size.height);
        const bool widthStuck = halve(size.width);
        if ((heightStuck && widthStuck) || size.trial.pages != 1) {
            return size;
        }
    }
}

}  // namespace kovra
