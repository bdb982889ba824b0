#pragma once
// The context help's text: one file of pages, each under a key in brackets. A page runs from the line
// after its key up to the next "[".

#include <optional>
#include <string>

namespace kovra {

// The page of the edit mode: animate by the inverse kinematics switch, build by its tool, textures,
// background.
std::string QuickHelpKey(int editMode, int skinTool, bool inverseKinematics);

class QuickHelp {
public:
    // Reads the whole file; a missing file leaves the help empty.
    void Load(const std::string& path);
    void SetText(std::string text) { text_ = std::move(text); }

    // The page of the key, or nothing when the help has no such key.
    std::optional<std::string> Page(const std::string& key) const;

private:
    std::string text_;
};

}  // namespace kovra
