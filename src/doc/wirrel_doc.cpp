#include "doc/wirrel_doc.h"

#include "bitmap/text.h"
#include "settings/lang.h"

namespace kovra {

WirrelDoc::WirrelDoc() {
    Reset(true);
    DrawMissingTextureImage();
}

void WirrelDoc::DrawMissingTextureImage() {
    missingTextureImage.Resize(112, 112);
    missingTextureImage.FillRect(0, 0, 111, 111, 0xFF404040);
    missingTextureImage.DrawRect(0, 0, 111, 111, 0xFF000000);
    missingTextureImage.DrawRect(1, 1, 110, 110, 0xFF000000);
    const aurel::TextFont font{.size = 20};
    aurel::TextStyle centred;
    centred.horizontal = aurel::TextAlign::Centre;
    centred.vertical = aurel::TextAlign::Centre;
    missingTextureImage.DrawText(aurel::Lang("MESSAGES", "TxMissLn1").Utf8(), 0, 0, 112, 92, 0xFFC00000, font,
                                 centred);
    missingTextureImage.DrawText(aurel::Lang("MESSAGES", "TxMissLn2").Utf8(), 0, 20, 112, 92, 0xFFC00000, font,
                                 centred);
}

void WirrelDoc::Reset(bool withDefaultAnim) {
    images.clear();
    cursor = PlayCursor{};
    wirrel_ = std::make_shared<kovra::Wirrel>();
    if (withDefaultAnim) {
        AddAnim(aurel::Lang("COMMON", "Default").Utf8(), kAnimEmpty, -1);
    }
    background = WirrelBackground{};
    hasPath = false;
    fileWith = true;
    snapFrames = 4;
    spareScale = 1.0f;
    notes = aurel::DualString();
    notesImage.Reset();
    wirrel_->eventNames.push_back(MakeName(aurel::Lang("COMMON", "PlaySound").Utf8()));
}

WirrelKey& WirrelDoc::NextKey() {
    WirrelAnim& anim = CurrentAnim();
    return anim.keys[(cursor.frameIndex + 1) % anim.keys.size()];
}

int WirrelDoc::FindAnim(std::string_view name) const {
    const std::vector<WirrelAnim>& anims = wirrel_->anims;
    for (std::size_t i = 0; i < anims.size(); ++i) {
        if (NameOf(anims[i].name) == name) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

void WirrelDoc::AddAnim(std::string_view name, int mode, int position) {
    std::vector<WirrelAnim>& anims = wirrel_->anims;
    const bool hasCurrent = cursor.animIndex >= 0 && cursor.animIndex < static_cast<int>(anims.size());

    // Take the source before the insertion moves the animations.
    WirrelAnim added;
    SetName(added.name, name);
    WirrelKey key;
    if (hasCurrent && mode == kAnimCopy) {
        added.keys = CurrentAnim().keys;
        added.speed = CurrentAnim().speed;
    } else {
        if (hasCurrent && mode == kAnimFromCurrentKey) {
            key.pins = CurrentKey().pins;
        } else if (hasCurrent && mode == kAnimFromFirstKey) {
            key.pins = CurrentAnim().keys.front().pins;
        }
        added.keys.push_back(std::move(key));
    }

    const int index = position < 0 || position > static_cast<int>(anims.size()) ? static_cast<int>(anims.size())
                                                                                : position;
    anims.insert(anims.begin() + index, std::move(added));
    cursor.animIndex = index;
    cursor.animName = anims[index].name;
    cursor.frameIndex = 0;
    cursor.framePos = 0.0f;
    onAnimAdded.Call(index);
}

void WirrelDoc::RemoveAnim(std::string_view name) {
    const int index = FindAnim(name);
    if (index < 0) {
        return;
    }
    wirrel_->anims.erase(wirrel_->anims.begin() + index);
    onAnimRemoved.Call(index);
}

void WirrelDoc::RenameCurrentAnim(std::string_view name) {
    const Name32 newName = MakeName(name);
    if (newName == cursor.animName) {
        return;
    }
    CurrentAnim().name = newName;
    cursor.animName = newName;
    onAnimRenamed.Call(NameOf(cursor.animName));
}

void WirrelDoc::SetImage(int slot, std::shared_ptr<WirrelTexImage> image) {
    if (slot < 0) {
        slot = static_cast<int>(images.size());
    }
    if (slot >= static_cast<int>(images.size())) {
        images.resize(slot + 1);
    }
    images[slot] = std::move(image);
    onImageSet.Call(slot);
}

void WirrelDoc::RemoveImage(int slot) {
    if (slot < 0 || slot >= static_cast<int>(images.size())) {
        return;
    }
    images.erase(images.begin() + slot);
    onImageRemoved.Call(slot);
}

std::shared_ptr<WirrelTexImage> WirrelDoc::Image(int index) const {
    return index >= 0 && index < static_cast<int>(images.size()) ? images[index] : nullptr;
}

std::size_t WirrelDoc::FrameCount() const {
    const std::vector<WirrelAnim>& anims = wirrel_->anims;
    return cursor.animIndex >= 0 && cursor.animIndex < static_cast<int>(anims.size())
               ? anims[cursor.animIndex].keys.size()
               : 0;
}

void WirrelDoc::SetFrame(std::uint32_t index) {
    cursor.frameIndex = index;
    cursor.framePos = static_cast<float>(index);
}

}  // namespace kovra
