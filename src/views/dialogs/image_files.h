#pragma once
// The file dialogs for image files, with the filters every caller of the image library offers: all
// files and all supported images first when opening, then one filter per format.

#include "base/dual_string.h"

namespace kestrel2::win {
class IGuiWindow;
}

namespace kovra {

// The chosen image file, empty when cancelled.
aurel::DualString ChooseImageToOpen(kestrel2::win::IGuiWindow* owner, const aurel::DualString& title);
aurel::DualString ChooseImageToSave(kestrel2::win::IGuiWindow* owner, const aurel::DualString& title);

}  // namespace kovra
