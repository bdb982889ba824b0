#pragma once
// The file commands of the editor: new, open, save, save as, and the question whether to save a changed
// document. The menu reaches them only through this interface.

#include "base/dual_string.h"

namespace kovra {

class DocumentWorkflow {
public:
    virtual ~DocumentWorkflow() = default;

    // Closes the document, asking first whether to save it, and begins an empty one.
    virtual bool New() = 0;
    // Lets the user choose a document and opens it.
    virtual bool OpenDialog() = 0;
    // Opens a document; an example opened as a template keeps no path and stays out of the recent list.
    virtual bool Open(const aurel::DualString& path, bool asTemplate) = 0;
    // Saves to the document's path, or asks for one when it has none.
    virtual bool Save() = 0;
    virtual bool SaveAs() = 0;
    // Asks whether to save a changed document; false when the user cancelled.
    virtual bool ConfirmSave() = 0;
};

}  // namespace kovra
