#include "textures/detection.h"

#include <algorithm>
#include <deque>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "textures/texture_edit.h"

namespace kovra {
namespace {

// A cell can be filled while it is set but not yet part of the region being labelled.
bool Fillable(std::uint32_t cell, std::uint32_t label) {
    return (cell >> 24) != 0 && cell != label;
}

// True when the alpha of every pixel equals that of the first one.
bool UniformAlpha(const aurel::ImageSurface& bitmap) {
    const std::uint32_t alpha = bitmap.Row(0)[0] & 0xFF000000u;
    for (int y = 0; y < bitmap.Height(); ++y) {
        const std::uint32_t* row = bitmap.Row(y);
        for (int x = 0; x < bitmap.Width(); ++x) {
            if ((row[x] & 0xFF000000u) != alpha) {
                return false;
            }
        }
    }
    return true;
}

aurel::DualString KeyQuestion(std::uint32_t key) {
    return "This image appears to use a color key (red = " + std::to_string((key >> 16) & 0xFF) +
           ", green = " + std::to_string((key >> 8) & 0xFF) + ", blue = " + std::to_string(key & 0xFF) +
           ") instead of alpha. Convert color key to alpha?\n\n"
           "Note that this will not work correctly for images with antialiased edges.";
}

// Step C of detection: the colour key, asked about when the alpha tells nothing.
void DecideColorKey(WirrelTexImage& image, aurel::Prompt& window, int& keyChoice,
                    SelectionTracker& imageSelection, int imageIndex) {
    const std::uint32_t key = BorderKey(image.surface);
    if (keyChoice == -1) {
        keyChoice = 0;
        // An image without pixels has nothing to show or convert.
        if (image.surface.IsEmpty() || !UniformAlpha(image.surface)) {
            image.colorKey = 0;
            return;
        }
        imageSelection.SetCurrent(imageIndex, imageSelection.currentPart);
        const int answer = window.Ask(
            {"Color key", KeyQuestion(key), aurel::PromptButtons::YesNo, aurel::PromptIcon::Question, {}});
        if (answer == aurel::kAnswerYes) {
            keyChoice = 1;
        }
    }
    if (keyChoice == 1) {
        image.unkeyed = image.surface;
        image.colorKey = key & 0x00FFFFFFu;
        ConvertColorKey(image.surface, key);
    } else {
        image.colorKey = 0;
    }
}

// Step D: every set cell gets the label of its region, counting from 1 in scan order.
void LabelRegions(TexMask& mask, const aurel::ImageSurface& bitmap, std::vector<TexRegion>& regions) {
    const int width = bitmap.Width();
    const int height = bitmap.Height();
    for (int y = 0; y < height; ++y) {
        const std::uint32_t* row = bitmap.Row(y);
        std::uint32_t* cells = mask.cells.data() + static_cast<std::size_t>(y) * width;
        for (int x = 0; x < width; ++x) {
            cells[x] = (row[x] >> 24) != 0 ? kCellUnfilled : 0;
        }
    }
    regions.clear();
    std::uint32_t label = 1;
    for (int y = 0; y < height; ++y) {
        const std::uint32_t* cells = mask.cells.data() + static_cast<std::size_t>(y) * width;
        for (int x = 0; x < width; ++x) {
            if (cells[x] > 0xFFFFFFu) {
                TexRegion rect;
                FloodRegion(mask.cells.data(), static_cast<int>(mask.stride), x, y, 0, 0, width - 1,
                            height - 1, label, &rect, kFloodDiagonals);
                rect.label = static_cast<std::int32_t>(label);
                rect.right += 1;
                rect.bottom += 1;
                regions.push_back(rect);
                ++label;
            }
        }
    }
}

bool Covers(const TexRegion& outer, const TexRegion& inner) {
    return outer.left <= inner.left && outer.right >= inner.right && outer.bottom >= inner.bottom &&
           outer.top <= inner.top;
}

void UpdateImageMarks(WirrelTexImage& image, const std::vector<WirrelTexture>& textures, int imageIndex) {
    for (std::size_t i = 0; i < textures.size(); ++i) {
        const WirrelTexture& t = textures[i];
        if (t.imageIndex == imageIndex) {
            image.UpdateMarks(static_cast<std::int32_t>(i), t.x, t.y, t.width, t.height);
        }
    }
}

bool SkinUsesAny(const Wirrel& wirrel, const std::set<int>& textures) {
    return std::any_of(wirrel.skins.begin(), wirrel.skins.end(),
                       [&](const WirrelSkin& skin) { return textures.contains(skin.texture); });
}

}  // namespace

void FilterRegions(std::vector<TexRegion>& regions) {
    std::erase_if(regions, [](const TexRegion& r) { return r.right - r.left < 4 || r.bottom - r.top < 4; });
    for (std::size_t i = 0; i < regions.size(); ++i) {
        std::size_t j = i + 1;
        while (j < regions.size()) {
            if (Covers(regions[j], regions[i])) {
                regions.erase(regions.begin() + static_cast<std::ptrdiff_t>(i));
                j = i + 1;
            } else if (Covers(regions[i], regions[j])) {
                regions.erase(regions.begin() + static_cast<std::ptrdiff_t>(j));
            } else {
                ++j;
            }
        }
    }
}

void FloodRegion(std::uint32_t* cells, int strideBytes, int x, int y, int minX, int minY, int maxX, int maxY,
                 std::uint32_t label, TexRegion* rect, int mode) {
    const std::size_t stride = static_cast<std::size_t>(strideBytes) / sizeof(std::uint32_t);
    auto row = [&](int at) { return cells + stride * static_cast<std::size_t>(at); };
    if (rect != nullptr) {
        rect->left = rect->right = x;
        rect->top = rect->bottom = y;
    }
    std::deque<std::pair<int, int>> queue;
    queue.emplace_back(x, y);
    while (!queue.empty()) {
        const auto [px, py] = queue.front();
        queue.pop_front();
        std::uint32_t* line = row(py);
        if (!Fillable(line[px], label)) {
            continue;
        }
        std::uint32_t* above = py > minY ? row(py - 1) : nullptr;
        std::uint32_t* below = py < maxY ? row(py + 1) : nullptr;
        bool up = false;
        bool down = false;
        if (above != nullptr && Fillable(above[px], label)) {
            queue.emplace_back(px, py - 1);
            up = true;
        }
        if (below != nullptr && Fillable(below[px], label)) {
            queue.emplace_back(px, py + 1);
            down = true;
        }
        line[px] = label;
        if (rect != nullptr) {
            rect->top = std::min(rect->top, py);
            rect->bottom = std::max(rect->bottom, py);
        }
        // One side of the run: the rows above and below are queued once per stretch of fillable cells.
        // In diagonal mode the neighbours of the cell that ends the run are looked at too.
        auto walk = [&](int from, int step, int limit) {
            bool upFlag = up;
            bool downFlag = down;
            int last = px;
            for (int cx = from; step < 0 ? cx >= limit : cx <= limit; cx += step) {
                if (mode == kFloodEdges && !Fillable(line[cx], label)) {
                    break;
                }
                if (above != nullptr) {
                    if (!Fillable(above[cx], label)) {
                        upFlag = false;
                    } else if (!upFlag) {
                        queue.emplace_back(cx, py - 1);
                        upFlag = true;
                    }
                }
                if (below != nullptr) {
                    if (!Fillable(below[cx], label)) {
                        downFlag = false;
                    } else if (!downFlag) {
                        queue.emplace_back(cx, py + 1);
                        downFlag = true;
                    }
                }
                if (!Fillable(line[cx], label)) {
                    break;
                }
                line[cx] = label;
                last = cx;
            }
            return last;
        };
        const int left = walk(px - 1, -1, minX);
        const int right = walk(px + 1, 1, maxX);
        if (rect != nullptr) {
            rect->left = std::min(rect->left, left);
            rect->right = std::max(rect->right, right);
        }
    }
}

std::uint32_t BorderKey(const aurel::ImageSurface& bitmap) {
    if (bitmap.IsEmpty()) {
        return 0;
    }
    const int width = bitmap.Width();
    const int height = bitmap.Height();
    std::map<std::uint32_t, int> census;
    for (int x = 0; x < width; ++x) {
        ++census[bitmap.Row(0)[x]];
    }
    for (int x = 0; x < width; ++x) {
        ++census[bitmap.Row(height - 1)[x]];
    }
    for (int y = 0; y < height; ++y) {
        ++census[bitmap.Row(y)[0]];
    }
    for (int y = 0; y < height; ++y) {
        ++census[bitmap.Row(y)[width - 1]];
    }
    std::uint32_t key = 0;
    int best = 0;
    for (const auto& [word, count] : census) {
        if (count > best) {
            best = count;
            key = word;
        }
    }
    return key;
}

void ConvertColorKey(aurel::ImageSurface& bitmap, std::uint32_t key) {
    for (int y = 0; y < bitmap.Height(); ++y) {
        std::uint32_t* row = bitmap.Row(y);
        for (int x = 0; x < bitmap.Width(); ++x) {
            const std::uint32_t colour = row[x] & 0x00FFFFFFu;
            row[x] = colour == key ? colour : colour | 0xFF000000u;
        }
    }
}

void DetectRegions(std::vector<TexRegion>& regions, WirrelTexImage& image, aurel::Prompt& window,
                   int& keyChoice, SelectionTracker& imageSelection, int imageIndex) {
    const int width = image.surface.Width();
    const int height = image.surface.Height();
    image.mask.width = static_cast<std::uint32_t>(width);
    image.mask.height = static_cast<std::uint32_t>(height);
    image.mask.stride = image.mask.width * 4;
    image.mask.cells.assign(static_cast<std::size_t>(width) * height, 0);
    DecideColorKey(image, window, keyChoice, imageSelection, imageIndex);
    LabelRegions(image.mask, image.surface, regions);
}

bool ApplyDetection(bool keepTextures, WirrelTexImage& image, int imageIndex, WirrelDoc& document,
                    aurel::Prompt& window, SelectionTracker& textureSelection, int& keyChoice,
                    SelectionTracker& imageSelection) {
    Wirrel& wirrel = document.Wirrel();
    const std::size_t oldCount = wirrel.textures.size();
    if (!keepTextures) {
        std::set<int> onImage;
        for (std::size_t i = 0; i < wirrel.textures.size(); ++i) {
            if (wirrel.textures[i].imageIndex == imageIndex) {
                onImage.insert(static_cast<int>(i));
            }
        }
        if (SkinUsesAny(wirrel, onImage)) {
            const int answer = window.Ask({"Warning",
                                           "WARNING! Skins using this texture will be reset.",
                                           aurel::PromptButtons::OkCancel,
                                           aurel::PromptIcon::Warning,
                                           {}});
            if (answer == aurel::kAnswerCancel) {
                return false;
            }
        }
        textureSelection.SetCurrent(-1, textureSelection.currentPart);
        RemoveTextures(document, onImage);
    }
    image.ClearMarks();
    // A new scan starts from the file's pixels, so that the colour key can be asked for again.
    if (!image.unkeyed.IsEmpty()) {
        image.surface = image.unkeyed;
        image.unkeyed.Reset();
    }
    std::vector<TexRegion> regions;
    DetectRegions(regions, image, window, keyChoice, imageSelection, imageIndex);
    if (keepTextures) {
        UpdateImageMarks(image, wirrel.textures, imageIndex);
        return true;
    }
    FilterRegions(regions);
    for (const TexRegion& r : regions) {
        wirrel.textures.push_back({imageIndex, r.left, r.top, r.right - r.left, r.bottom - r.top});
        image.UpdateMarks(static_cast<std::int32_t>(wirrel.textures.size() - 1), r.left, r.top,
                          r.right - r.left, r.bottom - r.top);
    }
    if (wirrel.textures.empty()) {
        textureSelection.SetCurrent(-1, textureSelection.currentPart);
    } else if (oldCount < wirrel.textures.size()) {
        textureSelection.SetCurrent(static_cast<int>(oldCount), textureSelection.currentPart);
    }
    return true;
}

}  // namespace kovra
