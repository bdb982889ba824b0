#include <gtest/gtest.h>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMainWindow>

#include "gui/gui.h"
#include "gui/gui_edit.h"
#include "gui/main_window.h"

namespace {

using namespace kestrel2::win;

TEST(MainWindow, TheRootGuiFillsTheClientAndAnchorsItsChildren) {
    MainWindow main;
    ASSERT_TRUE(
        main.Create(Placement{MainWindow::kDefaultPosition, MainWindow::kDefaultPosition, 640, 480}, true));
    Gui& root = main.RootGui();
    ASSERT_NE(root.window.handle(), nullptr);
    const int width = root.width;
    const int height = root.height;
    EXPECT_GT(width, 600);
    // A timeline along the bottom edge, stretched from side to side.
    auto timeline = MakeChild<GuiEdit>(root, 1, 0, height - 120, width, 120);
    timeline->SetAnchors(true, false, true, true);
    static_cast<QMainWindow*>(main.NativeWidget())->resize(800, 600);
    EXPECT_EQ(root.width, width + 160);
    EXPECT_EQ(timeline->width, width + 160);
    EXPECT_EQ(timeline->y, root.height - 120);
    EXPECT_EQ(timeline->height, 120);
}

class Focused : public testing::Test {
protected:
    void SetUp() override {
        host.resize(300, 100);
        root.SetWindow(Window(&host, false));
        edit = MakeChild<GuiEdit>(root, 4, 10, 10, 200, 24);
        host.show();
        QApplication::setActiveWindow(&host);
        edit->SetFocus();
    }

    QWidget host;
    Gui root;
    std::shared_ptr<GuiEdit> edit;
};

TEST_F(Focused, TheFocusedTextBoxTakesTheEditCommands) {
    EXPECT_EQ(FocusedWindow(), edit.get());
    ASSERT_TRUE(FocusedWindow()->IsTextBox());
    EXPECT_FALSE(root.IsTextBox());
    edit->SetText("bone");
    edit->SelectAll();
    EXPECT_TRUE(FocusedWindow()->OnEditCommand(EditCommand::Cut));
    EXPECT_EQ(edit->GetText().Utf8(), "");
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "bone");
    EXPECT_TRUE(edit->OnEditCommand(EditCommand::Paste));
    EXPECT_TRUE(edit->OnEditCommand(EditCommand::Paste));
    EXPECT_EQ(edit->GetText().Utf8(), "bonebone");
    EXPECT_TRUE(edit->OnEditCommand(EditCommand::Undo));
    EXPECT_EQ(edit->GetText().Utf8(), "bone");
    EXPECT_FALSE(root.OnEditCommand(EditCommand::Copy));
}

TEST_F(Focused, ControlColorsReachTheNativeControls) {
    root.SetControlColors(ControlColors{0xFF102030, 0xFFF0E0D0, 0xFF405060, 0xFFC0C0C0});
    const QPalette palette = edit->window.handle()->palette();
    EXPECT_EQ(palette.color(QPalette::Text), QColor(0x10, 0x20, 0x30));
    EXPECT_EQ(palette.color(QPalette::Base), QColor(0xF0, 0xE0, 0xD0));
    EXPECT_EQ(palette.color(QPalette::WindowText), QColor(0x40, 0x50, 0x60));
    EXPECT_EQ(palette.color(QPalette::Window), QColor(0xC0, 0xC0, 0xC0));
}

}  // namespace
