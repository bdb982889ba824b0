#include "views/dialogs/image_files.h"

#include "gui/file_dialog.h"

namespace kovra {

namespace {

std::vector<kestrel2::win::FileFilter> ImageFilters(bool open) {
    std::vector<kestrel2::win::FileFilter> filters;
    if (open) {
        filters.push_back({aurel::DualString("All Files"), "*.*"});
        filters.push_back(
            {aurel::DualString("All Supported Images"), "*.bmp;*.png;*.tga;*.jpg;*.jpeg;*.gif;*.pct;*.psd"});
    }
    for (const auto& [name, pattern] : {std::pair{"Bmp Files", "*.bmp"},
                                        {"Png Files", "*.png"},
                                        {"Tga Files", "*.tga"},
                                        {"Jpeg Files", "*.jpg"},
                                        {"Gif Files", "*.gif"},
                                        {"Pct Files", "*.pct"},
                                        {"Psd Files", "*.psd"}}) {
        filters.push_back({aurel::DualString(name), pattern});
    }
    return filters;
}

}  // namespace

aurel::DualString ChooseImageToOpen(kestrel2::win::IGuiWindow* owner, const aurel::DualString& title) {
    kestrel2::win::FileDialog dialog(ImageFilters(true), 1);
    const std::vector<aurel::DualString> chosen = dialog.Open(owner, title, false);
    return chosen.empty() ? aurel::DualString() : chosen.front();
}

aurel::DualString ChooseImageToSave(kestrel2::win::IGuiWindow* owner, const aurel::DualString& title) {
    kestrel2::win::FileDialog dialog(ImageFilters(false), 1);
    return dialog.Save(owner, title, aurel::DualString());
}

}  // namespace kovra
