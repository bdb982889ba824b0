#include "views/dialogs/quick_help.h"

#include <fstream>
#include <sstream>

#include "doc/editor_hub.h"

namespace kovra {

std::string QuickHelpKey(int editMode, int skinTool, bool inverseKinematics) {
    switch (editMode) {
        case kModeAnimate:
            return inverseKinematics ? "ANIMIK" : "ANIMFK";
        case kModeBuild:
            return skinTool == kToolRectangle ? "BUILDAABB" : skinTool == kToolTile ? "BUILDTILE" : "BUILD";
        case kModeTextures:
            return "TEXTURE";
        default:
            return "BG";
    }
}

void QuickHelp::Load(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream text;
    if (stream) {
        text << stream.rdbuf();
    }
    text_ = text.str();
}

std::optional<std::string> QuickHelp::Page(const std::string& key) const {
    const std::size_t at = text_.find("[" + key + "]");
    if (at == std::string::npos) {
        return std::nullopt;
    }
    const std::size_t lineFeed = text_.find('\n', at);
    if (lineFeed == std::string::npos) {
        return std::string();
    }
    const std::size_t start = lineFeed + 1;
    const std::size_t end = text_.find('[', start);
    std::string page = text_.substr(start, end == std::string::npos ? std::string::npos : end - start);
    // A file saved with carriage returns gives the same page as one without.
    std::erase(page, '\r');
    return page;
}

}  // namespace kovra
