#include "textures/document_images.h"

#include <memory>
#include <string>

#include "settings/lang.h"
#include "settings/path_info.h"
#include "textures/image_commands.h"

namespace kovra {

namespace {

void TellMissing(aurel::Prompt& window, const std::string& path) {
    std::string text = aurel::Lang("MESSAGES", "ErrorPath").Utf8();
    for (std::size_t at = text.find("%1"); at != std::string::npos; at = text.find("%1", at + path.size())) {
        text.replace(at, 2, path);
    }
    window.Tell(aurel::Lang("MESSAGES", "FileFound"), text);
}

// Loads the record's file as the next slot; false when it could not be read, and then nothing was added.
bool LoadSlot(WirrelDoc& document, const WirrelImageRecord& record, aurel::Prompt& window,
              SelectionTracker& textureSelection, SelectionTracker& imageSelection) {
    const CommandImgLoad load(document, {record.path}, window, textureSelection, imageSelection, kImgLoadOpen,
                              record.colorKey != 0);
    if (!load.succeeded) {
        return false;
    }
    document.images.back()->colorKey = record.colorKey;
    return true;
}

}  // namespace

void LoadDocumentImages(WirrelDoc& document, const std::vector<WirrelImageRecord>& records,
                        aurel::Prompt& window, SelectionTracker& textureSelection,
                        SelectionTracker& imageSelection) {
    for (const WirrelImageRecord& record : records) {
        const int slot = static_cast<int>(document.images.size());
        if (record.path.empty()) {
            document.SetImage(-1, nullptr);
            continue;
        }
        if (!aurel::PathInfo(record.path).Exists()) {
            TellMissing(window, record.path.Utf8());
            document.SetImage(-1, std::make_shared<WirrelTexImage>(record.path, record.colorKey));
        } else if (!LoadSlot(document, record, window, textureSelection, imageSelection)) {
            document.SetImage(-1, std::make_shared<WirrelTexImage>(record.path, record.colorKey));
        }
        WirrelTexImage& image = *document.images[slot];
        const std::vector<WirrelTexture>& textures = document.Wirrel().textures;
        for (std::size_t i = 0; i < textures.size(); ++i) {
            const WirrelTexture& t = textures[i];
            if (t.imageIndex == slot) {
                image.UpdateMarks(static_cast<std::int32_t>(i), t.x, t.y, t.width, t.height);
            }
        }
    }
}

}  // namespace kovra
