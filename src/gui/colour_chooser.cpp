#include "gui/colour_chooser.h"

#include <QColorDialog>

#include "gui/i_gui_window.h"

namespace kestrel2::win {

bool ChooseColour(IGuiWindow* owner, aurel::Color32& colour) {
    const QColor chosen =
        QColorDialog::getColor(QColor(colour.R(), colour.G(), colour.B()), DialogOwner(owner));
    if (!chosen.isValid()) {
        return false;
    }
    colour =
        aurel::Color32(static_cast<std::uint8_t>(chosen.red()), static_cast<std::uint8_t>(chosen.green()),
                       static_cast<std::uint8_t>(chosen.blue()), colour.A());
    return true;
}

}  // namespace kestrel2::win
