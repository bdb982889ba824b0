#pragma once
// The sprite sheets of the example documents, drawn by code: each body part is a few round strokes
// with a dark outline, laid out in its own cell of the sheet.

#include <string>
#include <vector>

#include "bitmap/image_surface.h"

namespace kovra::examples {

// One stroke of a part: discs swept from one centre and radius to another.
struct Stroke {
    float x0, y0, r0;
    float x1, y1, r1;
    aurel::Color32 colour;
};

// A dark-outlined body part: its strokes, then its details drawn on top without outline.
struct PartArt {
    std::string name;
    int x, y, width, height;  // the cell in the sheet, which becomes the part's texture
    std::vector<Stroke> body;
    std::vector<Stroke> details;
};

// Draws every part into a transparent sheet of the given size.
aurel::ImageSurface DrawSheet(int width, int height, const std::vector<PartArt>& parts);

// The parts of the cat and of the crane arm; their cells do not overlap.
std::vector<PartArt> CatParts();
std::vector<PartArt> CraneParts();

}  // namespace kovra::examples
