#pragma once
// The editor's one document: the Wirrel tables with everything the editor keeps around them, the loaded
// images, the play cursor, the background picture, the notes, the file path, and the lists of listeners
// that views subscribe to. New and Open reset it in place.

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "base/dual_string.h"
#include "base/listener_list.h"
#include "base/prompt.h"
#include "bitmap/image_surface.h"
#include "doc/play_cursor.h"
#include "doc/wirrel.h"
#include "doc/wirrel_file.h"
#include "images/wirrel_tex_image.h"

namespace kovra {

// The reference picture behind the workspace.
struct WirrelBackground {
    aurel::ImageSurface bitmap;
    aurel::DualString path;  // absolute in memory, relative to the document in its file
    float scale = 1.0f;
    float offsetX = 0.0f;
    float offsetY = 0.0f;
    std::uint8_t alpha = 128;
};

// Positions in WirrelDoc::viewFlags: what the workspace shows, and two posing options.
enum ViewFlag : std::size_t {
    kViewLabels = 0,
    kViewRotateChildren = 1,
    kViewBones = 2,
    kViewSkins = 3,
    kViewCollision = 4,
    kViewBackground = 5,
    kViewIk = 6,
};

// AddAnim modes: what the new animation starts from.
enum AddAnimMode : int {
    kAnimFromCurrentKey = 0,  // one key frame, a copy of the current key frame's pins
    kAnimFromFirstKey = 1,    // one key frame, a copy of the current animation's first key frame's pins
    kAnimCopy = 2,            // a copy of the whole current animation
    kAnimEmpty = -1,          // one key frame without pins
};

class WirrelDoc {
public:
    WirrelDoc();

    aurel::ListenerList<> onChanged;                      // after any change of content or selection
    aurel::ListenerList<int> onAnimAdded;                 // index of the inserted animation
    aurel::ListenerList<int> onAnimRemoved;               // index it had
    aurel::ListenerList<std::string_view> onAnimRenamed;  // the new name of the current animation
    aurel::ListenerList<int> onImageSet;                  // slot filled or replaced
    aurel::ListenerList<int> onImageRemoved;              // slot removed
    aurel::ListenerList<int, int> onFrameChanged;         // key frame left, key frame entered

    kovra::Wirrel& Wirrel() { return *wirrel_; }
    const kovra::Wirrel& Wirrel() const { return *wirrel_; }
    // Replaces the tables as a whole.
    void SetWirrel(const kovra::Wirrel& tables) { *wirrel_ = tables; }

    void Reset(bool withDefaultAnim);

    // True when the cursor names one of the animations.
    bool HasCurrentAnim() const {
        return cursor.animIndex >= 0 && cursor.animIndex < static_cast<int>(wirrel_->anims.size());
    }
    WirrelAnim& CurrentAnim() { return wirrel_->anims[cursor.animIndex]; }
    WirrelKey& CurrentKey() { return CurrentAnim().keys[cursor.frameIndex]; }
    // The key frame after the current one, wrapping to the first.
    WirrelKey& NextKey();

    // Index of the first animation of that name, -1 if none.
    int FindAnim(std::string_view name) const;
    // Inserts an animation at `position` (-1: at the end) and makes it current.
    void AddAnim(std::string_view name, int mode, int position);
    void RemoveAnim(std::string_view name);
    void RenameCurrentAnim(std::string_view name);

    // Slot -1 appends; a slot past the end grows the list with empty slots.
    void SetImage(int slot, std::shared_ptr<WirrelTexImage> image);
    void RemoveImage(int slot);
    std::shared_ptr<WirrelTexImage> Image(int index) const;

    std::size_t FrameCount() const;
    std::size_t PinCount() const { return wirrel_->pinNames.size(); }

    // Adds a pin to every key frame of the current animation, hidden in all but the current one, which
    // shows it. `parent` -1 makes a Root. Answers its position in the current key frame.
    int AddPin(float angle, float length, int parent, std::string_view name);

    // Replaces the document by the file's. Image paths stored relative to the file come back absolute in
    // `imagesOut`, whose pictures the caller loads; the background path stays as the file holds it. An
    // example opened as a template keeps no path. False when the file can't be read; the document is
    // then to be reset by the caller.
    bool Load(const aurel::DualString& file, aurel::Prompt& window, std::vector<WirrelImageRecord>& imagesOut,
              bool asTemplate);
    // Writes the document to `file` with its image paths made relative to it, asking through `window`
    // what to do with an image that can't be reached relatively. The file is replaced only when all of
    // it was written: on false the earlier file is untouched. `isSke` tells whether the name ends in
    // ".ske"; it is remembered as fileWith and changes nothing in the bytes.
    bool Save(const aurel::DualString& file, bool isSke, aurel::Prompt& window);

    void SetFrame(std::uint32_t index);
    void SetSnapFrames(std::uint32_t n) { snapFrames = n; }
    void SetNotes(const aurel::DualString& text) { notes = text; }

    PlayCursor cursor;
    WirrelBackground background;
    std::vector<std::shared_ptr<WirrelTexImage>> images;
    aurel::ImageSurface missingTextureImage;  // drawn for a skin whose image is missing
    // View and tool switches of the panels, by ViewFlag.
    std::array<bool, 7> viewFlags{false, true, true, true, true, true, true};
    bool hasPath = false;
    bool fileWith = true;  // whether the last Save As chose the ".ske" extension
    aurel::DualString path;
    bool spareFlag = false;
    std::uint32_t snapFrames = 4;
    float spareScale = 1.0f;
    aurel::DualString notes;
    aurel::ImageSurface notesImage;
    std::vector<std::uint8_t> notesImageData;  // the notes picture as the file holds it
    std::int32_t selectedCollisionType = 0;

private:
    void DrawMissingTextureImage();

    std::shared_ptr<kovra::Wirrel> wirrel_;
};

}  // namespace kovra
