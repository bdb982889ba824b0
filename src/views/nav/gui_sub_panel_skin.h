#pragma once
// The skin panel: a sub-panel that also shows the textures of the current image as a palette of
// thumbnails in three columns. A press on a thumbnail makes its texture current; a drag with the left
// button carries it out of the panel, offered to the workspace as the skin to drop, and the release
// says where it ended.

#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "gui/gui_sub_panel.h"

namespace kovra {

class GuiSubPanelSkin : public kestrel2::win::GuiSubPanel {
public:
    static constexpr int kPaletteTop = 60;
    static constexpr int kPaletteRows = 2;  // rows shown at once; the wheel scrolls through the others

    GuiSubPanelSkin(WirrelDoc& document, SelectionTracker& textureSelection,
                    SelectionTracker& imageSelection);

    // The textures of the current image, in the document's order.
    std::vector<int> PaletteTextures() const;
    // The side of a thumbnail's cell, and the bottom of the palette, in layout pixels.
    int CellSize() const { return (width - 38) / 3; }
    int PaletteBottom() const { return kPaletteTop + kPaletteRows * CellSize(); }
    // The texture whose thumbnail holds the client point, or -1.
    int TextureAt(int x, int y) const;

    void OnInput(kestrel2::win::InputEvent& event) override;

    aurel::ListenerList<int> offerListeners;           // the texture offered while a drag runs, -1 after
    aurel::ListenerList<int, int, int> dropListeners;  // texture, and where the drag ended in client pixels

protected:
    void OnPaintBody(aurel::ImageSurface& target) override;

private:
    void PaintMessage(aurel::ImageSurface& target, const std::string& first, const std::string& second);

    WirrelDoc& document_;
    SelectionTracker& textureSelection_;
    SelectionTracker& imageSelection_;
    int scroll_ = 0;  // pixels of the palette scrolled away
    int dragTexture_ = -1;
};

}  // namespace kovra
