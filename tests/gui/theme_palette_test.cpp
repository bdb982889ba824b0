#include "gui/theme_palette.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QMenuBar>
#include <QStyle>

namespace {

// A dark theme must reach the toolkit's widgets, the menu bar among them, and a light one must bring them
// back: a theme switch repaints the whole window, not only the views.
TEST(ThemePalette, WidgetsFollowTheTheme) {
    aurel::Theme dark;
    dark.ui.dialogBg = aurel::Color32(44, 47, 54);
    dark.ui.labelFontColor = aurel::Color32(200, 206, 218);
    dark.ui.editBg = aurel::Color32(30, 33, 39);
    kestrel2::win::ApplyThemePalette(dark);
    QMenuBar bar;
    EXPECT_EQ(bar.palette().color(QPalette::Window), QColor(44, 47, 54));
    EXPECT_EQ(bar.palette().color(QPalette::WindowText), QColor(200, 206, 218));
    EXPECT_EQ(bar.palette().color(QPalette::Base), QColor(30, 33, 39));
    EXPECT_EQ(bar.palette().color(QPalette::Disabled, QPalette::WindowText), QColor(122, 126, 136));
    EXPECT_EQ(QApplication::style()->name().toLower(), "fusion");

    const aurel::Theme light;
    kestrel2::win::ApplyThemePalette(light);
    QApplication::processEvents();
    EXPECT_EQ(bar.palette().color(QPalette::Window), QColor(238, 240, 243));
}

}  // namespace
