#pragma once
// The pack dialog's preview picture: the pages of a trial laid out in the grid of rows and columns that
// shows them largest, each page on white with a black outline, scaled into its cell.

#include <vector>

#include "bitmap/image_surface.h"

namespace kovra {

struct PreviewBox {
    int left = 0, top = 0, right = 0, bottom = 0;
};

// A box of width by height fitted into (0, 0, intoWidth, intoHeight), proportions kept, centred.
PreviewBox FitBox(int width, int height, int intoWidth, int intoHeight);

struct PreviewGrid {
    int rows = 0;
    int columns = 0;
    PreviewBox box;
};

// The row count from 1 to `pages` that gives each page the largest fitted area; the first on a tie.
PreviewGrid ChoosePreviewGrid(int pages, int pageWidth, int pageHeight, int intoWidth, int intoHeight);

// The cell of page `page`: pages run down a column, then on to the next.
PreviewBox PreviewCell(const PreviewGrid& grid, int page);

// The preview of the pages at the size of the view, cleared to 0 where no page stands.
aurel::ImageSurface ComposePackPreview(const std::vector<aurel::ImageSurface>& pages, int pageWidth,
                                       int pageHeight, int width, int height);

}  // namespace kovra
