#include "app/editor_window.h"

#include <gtest/gtest.h>
#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QShortcut>
#include <QUrl>
#include <QWidget>

#include "gui/main_window.h"

namespace aurel {
namespace {

using kestrel2::win::MenuNode;

class RecordingHandler : public kovra::ShellHandler {
public:
    void OnMenuCommand(int id) override { commands.push_back(id); }
    void OnKey(int) override {}
    void OnDrop(const DualString& path) override { drops.push_back(path.Utf8()); }
    void OnTimer() override {}
    bool OnCloseRequest() override { return allowClose; }

    std::vector<int> commands;
    std::vector<std::string> drops;
    bool allowClose = false;
};

MenuNode Entry(int id, const char* text) {
    MenuNode node;
    node.id = id;
    node.text = DualString(text);
    return node;
}

class EditorWindowTest : public ::testing::Test {
protected:
    EditorWindowTest() {
        main.Create(kestrel2::win::Placement{0, 0, 400, 300, false}, true);
        window.Attach(handler, 500);
        qtWindow = static_cast<QMainWindow*>(main.NativeWidget());
    }
    ~EditorWindowTest() override { window.Detach(); }

    QList<QAction*> FileActions() { return qtWindow->menuBar()->actions()[0]->menu()->actions(); }

    kestrel2::win::MainWindow main;
    RecordingHandler handler;
    EditorWindow window;
    QMainWindow* qtWindow = nullptr;
};

TEST_F(EditorWindowTest, TheMenuBarShowsTheTreeAndChangesOnlyWhatDiffers) {
    MenuNode file = Entry(0, "&File");
    MenuNode sub = Entry(0, "Open Example");
    sub.enabled = false;
    MenuNode language = Entry(368, "English");
    language.checked = true;
    file.children = {Entry(1868, "&New\tCtrl+N"), Entry(MenuNode::kSeparator, ""), sub, language};
    std::vector<MenuNode> menus{file};
    window.ShowMenu(menus);

    QList<QAction*> actions = FileActions();
    ASSERT_EQ(actions.size(), 4);
    EXPECT_EQ(qtWindow->menuBar()->actions()[0]->text(), "&File");
    EXPECT_EQ(actions[0]->text(), "&New\tCtrl+N");
    EXPECT_TRUE(actions[1]->isSeparator());
    EXPECT_FALSE(actions[2]->isEnabled());
    EXPECT_NE(actions[2]->menu(), nullptr);
    EXPECT_TRUE(actions[3]->isChecked());
    EXPECT_FALSE(actions[0]->isCheckable());

    actions[0]->trigger();
    actions[3]->trigger();
    EXPECT_EQ(handler.commands, (std::vector<int>{1868, 368}));

    menus[0].children[0].enabled = false;
    menus[0].children[0].text = DualString("&Neu\tCtrl+N");
    window.ShowMenu(menus);
    EXPECT_EQ(FileActions()[0], actions[0]) << "no rebuild for a change of text or enabling";
    EXPECT_EQ(actions[0]->text(), "&Neu\tCtrl+N");
    EXPECT_FALSE(actions[0]->isEnabled());
    EXPECT_TRUE(actions[3]->isChecked()) << "the tree, not the click, decides the check mark";

    menus[0].children.push_back(Entry(1875, "E&xit"));
    window.ShowMenu(menus);
    EXPECT_EQ(FileActions().size(), 5);
}

TEST_F(EditorWindowTest, AcceleratorsDropsAndTheCloseQuestionReachTheHandler) {
    window.AddAccelerator("Ctrl+Shift+S", 40003);
    QShortcut* shortcut = qtWindow->findChild<QShortcut*>();
    ASSERT_NE(shortcut, nullptr);
    EXPECT_EQ(shortcut->key(), QKeySequence("Ctrl+Shift+S"));
    emit shortcut->activated();
    EXPECT_EQ(handler.commands, std::vector<int>{40003});

    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/art/walk.ske")});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(main.RootGui().window.handle(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(main.RootGui().window.handle(), &drop);
    EXPECT_EQ(handler.drops, std::vector<std::string>{"/art/walk.ske"});

    qtWindow->close();
    EXPECT_FALSE(main.CloseRequested());
    handler.allowClose = true;
    qtWindow->close();
    EXPECT_TRUE(main.CloseRequested());
}

}  // namespace
}  // namespace aurel
