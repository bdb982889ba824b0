#pragma once
// How the user names a document to open or to save to. The editor asks through the platform's file
// dialogs; tests answer from a script. Both offer the same filters, all files first and preselected.

#include <vector>

#include "base/dual_string.h"
#include "gui/file_dialog.h"

namespace kovra {

// The filters of the document dialogs, in their order: all files, ".ske", ".ski".
std::vector<kestrel2::win::FileFilter> DocumentFilters();
// The filter that the document dialogs begin with, counted from 1.
constexpr int kDocumentFilterIndex = 1;

class DocumentChooser {
public:
    virtual ~DocumentChooser() = default;
    // The document chosen to open, empty when the user cancelled.
    virtual aurel::DualString ChooseOpen() = 0;
    // The file chosen to save to, empty when the user cancelled.
    virtual aurel::DualString ChooseSave() = 0;
};

// The platform's open and save dialogs over the main window.
class DialogDocumentChooser : public DocumentChooser {
public:
    aurel::DualString ChooseOpen() override;
    aurel::DualString ChooseSave() override;
};

}  // namespace kovra
