#pragma once
// The undoable edits of the texture list: create, resize or move by a grip, delete, set a property, and
// auto-detect the textures of an image. Each does its work in its constructor; a drag of a grip makes
// one command per mouse move, merged into the first.

#include <cstdint>
#include <vector>

#include "base/prompt.h"
#include "commands/command.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"

namespace kovra {

// The parts of the tables that deleting textures changes, as a command keeps them for its undo.
struct TextureTables {
    explicit TextureTables(const Wirrel& wirrel)
        : textures(wirrel.textures), skins(wirrel.skins), anims(wirrel.anims) {}
    void Restore(Wirrel& wirrel) const {
        wirrel.textures = textures;
        wirrel.skins = skins;
        wirrel.anims = anims;
    }

    std::vector<WirrelTexture> textures;
    std::vector<WirrelSkin> skins;
    std::vector<WirrelAnim> anims;
};

// Recomputes the marks of texture `index` on its image, when the image is there.
void UpdateTextureMarks(WirrelDoc& document, int index);

// The grips of a texture rectangle; kGripMove and above drag the whole rectangle.
enum TexGrip : int {
    kGripTop = 0,
    kGripBottom = 1,
    kGripRight = 2,
    kGripLeft = 3,
    kGripTopLeft = 4,
    kGripTopRight = 5,
    kGripBottomLeft = 6,
    kGripBottomRight = 7,
    kGripMove = 8,
};

// A rectangle in image pixels; right and bottom are exclusive.
struct TexRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

// Appends a texture with the rectangle on the image and makes it current.
class CommandTexCreate : public WirrelCommand {
public:
    CommandTexCreate(int imageIndex, WirrelDoc& document, SelectionTracker& selection, TexRect rect);
    int GetType() const override { return kKindTexCreate; }
    void Undo() override;
    void Redo() override;

private:
    int imageIndex_;
    WirrelDoc& document_;
    SelectionTracker& selection_;
    TexRect rect_;
    SelectionTracker::Saved saved_;
};

// Drags a grip of the current texture by a total offset from the drag's starting rectangle, kept inside
// the image; an edge dragged past the opposite one flips the rectangle.
class CommandTexMove : public WirrelCommand {
public:
    CommandTexMove(WirrelDoc& document, SelectionTracker& selection, TexRect start, int grip, float offsetX,
                   float offsetY);
    int GetType() const override { return kKindTexMove; }
    void Undo() override;
    void Redo() override;
    bool Merge(ICommand& next) override;
    void OnFreeze() override;

    // The rectangle (x, y, w, h) that dragging `grip` of `start` by (dx, dy) gives on a width x height image.
    static WirrelTexture Moved(TexRect start, int grip, int dx, int dy, int width, int height);

private:
    std::vector<WirrelTexture> before_;
    WirrelDoc& document_;
    SelectionTracker& selection_;
    TexRect start_;
    int grip_;
    float offsetX_;
    float offsetY_;
};

// Deletes the selected textures with the skins that use them; the texture that then stands at the
// current place is selected.
class CommandTexDelete : public WirrelCommand {
public:
    CommandTexDelete(WirrelDoc& document, SelectionTracker& selection);
    int GetType() const override { return kKindTexDelete; }
    void Undo() override;
    void Redo() override;

private:
    TextureTables before_;
    SelectionTracker::Saved saved_;
    SelectionTracker& selection_;
    WirrelDoc& document_;
};

// Writes a whole record over the current texture; edits of one kind in a row make one step.
class CommandTexProperty : public WirrelCommand {
public:
    CommandTexProperty(WirrelDoc& document, SelectionTracker& selection, int kind, aurel::DualString text,
                       const WirrelTexture& record);
    int GetType() const override { return kind_; }
    void Undo() override;
    void Redo() override;
    bool Merge(ICommand& next) override;

private:
    std::vector<WirrelTexture> before_;
    WirrelDoc& document_;
    SelectionTracker& selection_;
    int kind_;
    WirrelTexture record_;
};

// Replaces the textures of the current image by the regions detection finds. The caller drops it when
// `succeeded` is false. Undo gives back textures, skins and animations, not what a colour-key conversion
// did to the image.
class CommandTexAutoDetect : public WirrelCommand {
public:
    CommandTexAutoDetect(WirrelDoc& document, aurel::Prompt& window, SelectionTracker& textureSelection,
                         SelectionTracker& imageSelection);
    int GetType() const override { return kKindTexAutoDetect; }
    void Undo() override;
    void Redo() override;

    bool succeeded = false;

private:
    WirrelDoc& document_;
    aurel::Prompt& window_;
    SelectionTracker& textureSelection_;
    SelectionTracker& imageSelection_;
    int keyChoice_ = -1;
    int imageIndex_;
    bool asked_ = false;
    SelectionTracker::Saved saved_;
    TextureTables before_;
};

}  // namespace kovra
