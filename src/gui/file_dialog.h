#pragma once
// The file dialogs: open (one file or several) and save, with a list of filters of which one is
// preselected. Filter indexes count from 1, the first filter, as the platform's dialogs count them.

#include <string>
#include <vector>

#include "base/dual_string.h"

namespace kestrel2::win {

class IGuiWindow;

struct FileFilter {
    aurel::DualString description;  // "Png Files"
    std::string patterns;           // "*.png", or several as "*.bmp;*.png"
};

class FileDialog {
public:
    // Throws KestrelUsageException "Invalid default filter index %d" for an index outside 1 to the
    // number of filters.
    FileDialog(std::vector<FileFilter> filters, int defaultIndex);

    // The chosen files, empty when the dialog was cancelled. `owner` may be null: the main window then.
    std::vector<aurel::DualString> Open(IGuiWindow* owner, const aurel::DualString& title, bool multiple);
    // The chosen name, empty when cancelled. A name typed without an extension gets the one of the chosen
    // filter when that filter names one.
    aurel::DualString Save(IGuiWindow* owner, const aurel::DualString& title, const aurel::DualString& name);
    // The filter in use when the dialog closed, from 1.
    int FilterIndex() const { return index_; }

    // The filters as the toolkit shows them: "Png Files (*.png)".
    std::vector<std::string> NameFilters() const;

private:
    std::vector<FileFilter> filters_;
    int index_;
};

// The path with the extension of the first pattern ("*.ske" gives ".ske") when it has none; unchanged
// when it has one or the pattern names none.
std::string WithExtension(const std::string& path, const std::string& patterns);

}  // namespace kestrel2::win
