#include "doc/relative_path.h"

#include <filesystem>
#include <string>
#include <vector>

#include "doc/wirrel_file.h"
#include "settings/lang.h"
#include "settings/path_info.h"

namespace kovra {

namespace {

// Choices of the question about a file already beside the document, in the order of their buttons.
enum OverwriteChoice : int { kOverwrite = 0, kUseExisting = 1 };

// The language string with each "%1" to "%9" replaced by the argument of that number.
std::string Filled(const std::string& section, const std::string& key, const std::vector<std::string>& args) {
    const std::string pattern = aurel::Lang(section, key).Utf8();
    std::string text;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const int arg = i + 1 < pattern.size() ? pattern[i + 1] - '1' : -1;
        if (pattern[i] == '%' && arg >= 0 && arg < static_cast<int>(args.size())) {
            text += args[arg];
            ++i;
        } else {
            text += pattern[i];
        }
    }
    return text;
}

// Copies the image into the document's folder, asking first when a file of its name is there already.
bool CopyBeside(const std::string& image, const std::string& copy, aurel::Prompt& window) {
    std::error_code error;
    if (std::filesystem::exists(copy, error)) {
        const int choice = window.Ask({aurel::Lang("COMMON", "Overwrite?"),
                                       Filled("MESSAGES", "FileOverwrite", {copy}),
                                       aurel::PromptButtons::Custom,
                                       aurel::PromptIcon::Question,
                                       {aurel::Lang("COMMON", "Overwrite"), aurel::Lang("COMMON", "Use"),
                                        aurel::Lang("COMMON", "Cancel")}});
        if (choice == kUseExisting) {
            return true;
        }
        if (choice != kOverwrite) {
            return false;
        }
    }
    std::filesystem::copy_file(image, copy, std::filesystem::copy_options::overwrite_existing, error);
    if (error) {
        window.Tell(aurel::Lang("MESSAGES", "Error"), aurel::Lang("MESSAGES", "ErrorCopy"),
                    aurel::PromptIcon::Warning);
        return false;
    }
    return true;
}

}  // namespace

bool MakeRelative(const aurel::DualString& path, const aurel::DualString& target,
                  const aurel::DualString& label, aurel::DualString& out, aurel::Prompt& window) {
    out = aurel::DualString();
    if (path.empty()) {
        return true;
    }
    if (!aurel::RelativePath(path, target, out)) {
        // Another drive: no relative path leads there, but a copy beside the document would do.
        const std::string name = aurel::PathInfo(path).Name(true).Utf8();
        const std::string folder = aurel::PathInfo(target).Folder(true).Utf8();
        const int answer = window.Ask(
            {aurel::Lang("MESSAGES", "Error"),
             Filled("MESSAGES", "ErrorRelative", {target.Utf8(), label.Utf8(), path.Utf8(), name, folder}),
             aurel::PromptButtons::YesNo,
             aurel::PromptIcon::Question,
             {}});
        if (answer != aurel::kAnswerYes || !CopyBeside(path.Utf8(), folder + name, window)) {
            return false;
        }
        aurel::RelativePath(folder + name, target, out);
    }
    if (out.size() + 1 > ske::kPathLimit) {
        window.Tell(aurel::Lang("MESSAGES", "Error"),
                    Filled("MESSAGES", "ErrorPathTooLong",
                           {label.Utf8(), out.Utf8(), std::to_string(ske::kPathLimit)}));
        return false;
    }
    return true;
}

}  // namespace kovra
