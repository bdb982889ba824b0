#include "views/dialogs/pack_preview.h"

namespace kovra {

PreviewBox FitBox(int width, int height, int intoWidth, int intoHeight) {
    if (width <= 0 || height <= 0) {
        return {};
    }
    int fittedWidth = intoWidth;
    int fittedHeight = static_cast<int>(static_cast<long long>(height) * intoWidth / width);
    if (fittedHeight > intoHeight) {
        fittedHeight = intoHeight;
        fittedWidth = static_cast<int>(static_cast<long long>(width) * intoHeight / height);
    }
    const int left = (intoWidth - fittedWidth) / 2;
    const int top = (intoHeight - fittedHeight) / 2;
    return {left, top, left + fittedWidth, top + fittedHeight};
}

PreviewGrid ChoosePreviewGrid(int pages, int pageWidth, int pageHeight, int intoWidth, int intoHeight) {
    PreviewGrid best;
    long long bestScore = -1;
    for (int rows = 1; rows <= pages; ++rows) {
        const int columns = (pages + rows - 1) / rows;
        const PreviewBox box = FitBox(columns * pageWidth, rows * pageHeight, intoWidth, intoHeight);
        const long long score =
            static_cast<long long>((box.bottom - box.top) / rows) * ((box.right - box.left) / columns);
        if (score > bestScore) {
            bestScore = score;
            best = {rows, columns, box};
        }
    }
    return best;
}

PreviewBox PreviewCell(const PreviewGrid& grid, int page) {
    const int column = page / grid.rows;
    const int row = page % grid.rows;
    const int spanX = grid.box.right - grid.box.left - 3;
    const int spanY = grid.box.bottom - grid.box.top - 3;
    return {grid.box.left + 3 + column * spanX / grid.columns, grid.box.top + 3 + row * spanY / grid.rows,
            grid.box.left - 1 + (column + 1) * spanX / grid.columns,
            grid.box.top - 1 + (row + 1) * spanY / grid.rows};
}

aurel::ImageSurface ComposePackPreview(const std::vector<aurel::ImageSurface>& pages, int pageWidth,
                                       int pageHeight, int width, int height) {
    aurel::ImageSurface preview;
    preview.Resize(width, height);
    preview.Clear(0);
    const int count = static_cast<int>(pages.size());
    if (count == 0) {
        return preview;
    }
    const PreviewGrid grid = ChoosePreviewGrid(count, pageWidth, pageHeight, width, height);
    for (int page = 0; page < count; ++page) {
        const PreviewBox cell = PreviewCell(grid, page);
        preview.FillRect(cell.left, cell.top, cell.right, cell.bottom, 0xFFFFFFFF);
        preview.DrawRect(cell.left, cell.top, cell.right, cell.bottom, 0xFF000000);
        pages[static_cast<std::size_t>(page)].Blit(
            0.0f, 0.0f, static_cast<float>(pageWidth), static_cast<float>(pageHeight), preview, cell.left,
            cell.top, cell.right - cell.left + 1, cell.bottom - cell.top + 1, 1.0f, true);
    }
    return preview;
}

}  // namespace kovra
