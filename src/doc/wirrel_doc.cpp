#include "doc/wirrel_doc.h"

#include "bitmap/text.h"
#include "doc/relative_path.h"
#include "doc/wirrel_reader.h"
#include "doc/wirrel_writer.h"
#include "settings/atomic_file.h"
#include "settings/lang.h"
#include "settings/path_info.h"

namespace kovra {

namespace {

constexpr const char* kSupportAddress = "support@kovra.app";

void WarnAbsolute(aurel::Prompt& window, const std::string& what, const aurel::DualString& path) {
    window.Tell("WARNING",
                what + " " + path.Utf8() +
                    " is stored as an absolute path instead of a relative path. For maximum portability, the "
                    "next time you save your document it will be saved as a relative path. This is now a "
                    "requirement of the Kovra format.",
                aurel::PromptIcon::Warning);
}

// Files of early versions have no ids: all are 0, and a pin's id is its position.
void GiveEarlyIds(Wirrel& wirrel) {
    for (WirrelAnim& anim : wirrel.anims) {
        for (WirrelKey& key : anim.keys) {
            std::int64_t sum = 0;
            for (const WirrelPin& pin : key.pins) {
                sum += pin.id;
            }
            if (sum != 0) {
                continue;
            }
            for (std::size_t i = 0; i < key.pins.size(); ++i) {
                key.pins[i].id = static_cast<std::int32_t>(i);
            }
        }
    }
}

}  // namespace

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
    missingTextureImage.DrawText(aurel::Lang("MESSAGES", "TxMissLn2").Utf8(), 0, 20, 112, 92, 0xFFC00000,
                                 font, centred);
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
    notesImageData.clear();
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
    const bool hasCurrent = HasCurrentAnim();

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

    const int index =
        position < 0 || position > static_cast<int>(anims.size()) ? static_cast<int>(anims.size()) : position;
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
    return HasCurrentAnim() ? wirrel_->anims[cursor.animIndex].keys.size() : 0;
}

int WirrelDoc::AddPin(float angle, float length, int parent, std::string_view name) {
    WirrelPin pin;
    pin.angle = angle;
    pin.length = length;
    pin.flags = parent >= 0 ? kPinHidden : kPinHidden | Root;
    pin.parent = parent;
    pin.id = static_cast<std::int32_t>(wirrel_->pinNames.size());
    wirrel_->pinNames.push_back(MakeName(name));
    if (cursor.animIndex < 0 || cursor.animIndex >= static_cast<int>(wirrel_->anims.size())) {
        return -1;
    }
    for (WirrelKey& key : CurrentAnim().keys) {
        key.pins.push_back(pin);
    }
    std::vector<WirrelPin>& pins = CurrentKey().pins;
    pins.back().flags &= ~kPinHidden;
    return static_cast<int>(pins.size() - 1);
}

bool WirrelDoc::Load(const aurel::DualString& file, aurel::Prompt& window,
                     std::vector<WirrelImageRecord>& imagesOut, bool asTemplate, std::string* why) {
    Reset(false);
    imagesOut.clear();
    std::vector<std::uint8_t> bytes;
    if (!ReadDocumentFile(file, bytes, why)) {
        return false;
    }
    const int version = WirrelVersion(bytes);
    if (version == 0) {
        return false;
    }
    if (!asTemplate) {
        hasPath = true;
        path = file;
    }
    *wirrel_ = kovra::Wirrel{};
    if (version == 1) {
        window.Tell(
            "Format deprecated",
            std::string("This version of the ske file format is deprecated. It was thought that no files "
                        "in this format existed in the wild. If you need a conversion to the new format, "
                        "please leave a message at ") +
                kSupportAddress + " and I will help you.");
        return false;
    }
    kovra::Wirrel read;
    if (!ReadWirrel(read, imagesOut, bytes)) {
        return false;
    }
    GiveEarlyIds(read);

    const std::string folder = aurel::PathInfo(file).Folder(true).Utf8();
    for (WirrelImageRecord& image : imagesOut) {
        if (image.path.empty()) {
            continue;
        }
        if (aurel::IsRelative(image.path)) {
            image.path = aurel::Normalise(folder + image.path.Utf8());
        } else {
            WarnAbsolute(window, "The texture", image.path);
        }
    }

    // The animations are added one by one, so that the views hear of each.
    std::vector<WirrelAnim> anims = std::move(read.anims);
    read.anims.clear();
    *wirrel_ = std::move(read);
    for (WirrelAnim& anim : anims) {
        AddAnim(NameOf(anim.name), kAnimEmpty, -1);
        CurrentAnim().keys = std::move(anim.keys);
        CurrentAnim().speed = anim.speed;
    }
    if (!wirrel_->anims.empty()) {
        cursor.animIndex = 0;
        cursor.animName = wirrel_->anims.front().name;
        SetFrame(0);
    }

    WirrelEditorData editor;
    const bool complete = ReadEditorData(bytes, editor);
    if (!editor.backgroundPath.empty() && !aurel::IsRelative(editor.backgroundPath)) {
        WarnAbsolute(window, "The background image", editor.backgroundPath);
    }
    background.path = editor.backgroundPath;
    background.alpha = editor.backgroundAlpha;
    background.offsetX = editor.backgroundOffsetX;
    background.offsetY = editor.backgroundOffsetY;
    background.scale = editor.backgroundScale;
    snapFrames = editor.snapFrames;
    spareScale = editor.spareScale;
    spareFlag = editor.spareFlag;
    notes = editor.notes;
    notesImageData = std::move(editor.notesImage);
    return complete;
}

bool WirrelDoc::Save(const aurel::DualString& file, bool isSke, aurel::Prompt& window, std::string* why) {
    if (!SaveCopy(file, window, why)) {
        return false;
    }
    hasPath = true;
    fileWith = isSke;
    path = file;
    return true;
}

bool WirrelDoc::SaveCopy(const aurel::DualString& file, aurel::Prompt& window, std::string* why) const {
    // A background path is kept as the file held it, relative to the file the document came from.
    aurel::DualString backgroundPath = background.path;
    if (hasPath && aurel::IsRelative(backgroundPath)) {
        backgroundPath = aurel::Normalise(aurel::PathInfo(path).Folder(true).Utf8() + backgroundPath.Utf8());
    }
    WirrelEditorData editor{.backgroundPath = {},
                            .backgroundAlpha = background.alpha,
                            .backgroundOffsetX = background.offsetX,
                            .backgroundOffsetY = background.offsetY,
                            .backgroundScale = background.scale,
                            .snapFrames = snapFrames,
                            .spareScale = spareScale,
                            .spareFlag = spareFlag,
                            .notes = notes,
                            .notesImage = notesImageData};
    if (!MakeRelative(backgroundPath, file, aurel::Lang("MESSAGES", "BgImage"), editor.backgroundPath,
                      window)) {
        return false;
    }
    std::vector<WirrelImageRecord> records(images.size());
    for (std::size_t i = 0; i < images.size(); ++i) {
        const aurel::DualString source = images[i] ? images[i]->path : aurel::DualString();
        records[i].index = static_cast<std::int32_t>(i);
        records[i].colorKey = images[i] ? images[i]->colorKey : 0;
        if (!MakeRelative(source, file, aurel::Lang("MESSAGES", "TxImage"), records[i].path, window)) {
            return false;
        }
    }

    const std::vector<std::uint8_t> bytes = WriteWirrel(*wirrel_, records, editor);
    return aurel::WriteFileAtomically(
        file, [&bytes](aurel::BinStream& stream) { return stream.Write(bytes.size(), bytes.data()); }, why);
}

void WirrelDoc::SetFrame(std::uint32_t index) {
    cursor.frameIndex = index;
    cursor.framePos = static_cast<float>(index);
}

}  // namespace kovra
