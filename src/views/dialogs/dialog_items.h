#pragma once
// Dialog items placed in dialog units, the measure the dialogs are designed in: a quarter of the
// dialog font's average character width across and an eighth of its height down, here for a font six
// pixels wide and thirteen high. The toolkit scales the pixels with the screen.

#include <memory>
#include <string>

#include "gui/i_gui_window.h"

namespace kovra {

constexpr int DluX(int units) {
    return units * 3 / 2;
}
constexpr int DluY(int units) {
    return units * 13 / 8;
}

// Makes the item at the place and size in dialog units, with its text, and adds it to the dialog.
template <class T, class... Args>
std::shared_ptr<T> MakeItem(kestrel2::win::IGuiWindow& dialog, int id, int x, int y, int width, int height,
                            const std::string& text, Args&&... args) {
    auto item = kestrel2::win::MakeChild<T>(dialog, id, DluX(x), DluY(y), DluX(width), DluY(height),
                                            std::forward<Args>(args)...);
    if (!text.empty()) {
        item->SetText(aurel::DualString(text));
    }
    return item;
}

}  // namespace kovra
