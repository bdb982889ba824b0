#include "gui/theme_palette.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

namespace kestrel2::win {

namespace {

QColor ToQColor(aurel::Color32 c) {
    return QColor(c.R(), c.G(), c.B());
}

// Greyed text for disabled widgets: halfway between the text and what it stands on.
QColor Halfway(aurel::Color32 text, aurel::Color32 back) {
    return QColor((text.R() + back.R()) / 2, (text.G() + back.G()) / 2, (text.B() + back.B()) / 2);
}

}  // namespace

void ApplyThemePalette(const aurel::Theme& theme) {
    // The platform's own style may ignore the palette; Fusion draws every widget from it.
    if (QApplication::style()->name().compare("fusion", Qt::CaseInsensitive) != 0) {
        QApplication::setStyle(QStyleFactory::create("Fusion"));
    }
    const aurel::ThemeUi& ui = theme.ui;
    QPalette palette;
    palette.setColor(QPalette::Window, ToQColor(ui.dialogBg));
    palette.setColor(QPalette::WindowText, ToQColor(ui.labelFontColor));
    palette.setColor(QPalette::Base, ToQColor(ui.editBg));
    palette.setColor(QPalette::AlternateBase, ToQColor(ui.panelGrad2));
    palette.setColor(QPalette::Text, ToQColor(ui.editFontColor));
    palette.setColor(QPalette::Button, ToQColor(ui.panelBarColor));
    palette.setColor(QPalette::ButtonText, ToQColor(ui.panelBarFontColor));
    palette.setColor(QPalette::Highlight, ToQColor(ui.listSel));
    palette.setColor(QPalette::HighlightedText, ToQColor(ui.listFontSelColor));
    palette.setColor(QPalette::ToolTipBase, ToQColor(ui.dialogBg));
    palette.setColor(QPalette::ToolTipText, ToQColor(ui.labelFontColor));
    palette.setColor(QPalette::PlaceholderText, ToQColor(ui.propsNameFontColor));
    palette.setColor(QPalette::Light, ToQColor(ui.panelBarColorHot));
    palette.setColor(QPalette::Mid, ToQColor(ui.panelOutline));
    palette.setColor(QPalette::Dark, ToQColor(ui.panelBarOutline));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, Halfway(ui.labelFontColor, ui.dialogBg));
    palette.setColor(QPalette::Disabled, QPalette::Text, Halfway(ui.editFontColor, ui.editBg));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText,
                     Halfway(ui.panelBarFontColor, ui.panelBarColor));
    QApplication::setPalette(palette);
}

}  // namespace kestrel2::win
