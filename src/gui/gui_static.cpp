#include "gui/gui_static.h"

#include <QGroupBox>
#include <QLabel>

namespace kestrel2::win {

void GuiStatic::OnCreate() {
    if (style_ == StaticStyle::Group) {
        window = Window(new QGroupBox(ParentWidget()), true);
        return;
    }
    auto* label = new QLabel(ParentWidget());
    label->setWordWrap(style_ == StaticStyle::WrappedLabel);
    label->setAlignment(Qt::AlignLeft |
                        (style_ == StaticStyle::WrappedLabel ? Qt::AlignTop : Qt::AlignVCenter));
    window = Window(label, true);
}

}  // namespace kestrel2::win
