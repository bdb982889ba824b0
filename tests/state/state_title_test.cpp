#include "state/state_title.h"

#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

#include <cstdlib>

#include "app/app.h"
#include "app/sys_win.h"
#include "gui/main_window.h"
#include "support/temp_dir.h"

namespace {

// Runs the editor state for one frame inside the real loop, notes the window title, then closes the
// window as a user would.
class OneFrame : public aurel::IState {
public:
    void Attach(aurel::App& app) override { editor.Attach(app); }
    void Init() override { editor.Init(); }
    void Shutdown() override { editor.Shutdown(); }
    void Update() override {
        editor.Update();
        title = kestrel2::win::GlobalMainWindow()->Title().Utf8();
        QTimer::singleShot(0, [] {
            static_cast<QWidget*>(kestrel2::win::GlobalMainWindow()->NativeWidget())->close();
        });
    }

    kovra::StateTitle editor;
    std::string title;
};

}  // namespace

TEST(StateTitle, ANewDocumentIsUntitled) {
    kovra::test::TempDir dir;
    setenv("XDG_CONFIG_HOME", dir.Path().c_str(), 1);
    aurel::SysWin sys{aurel::SysWinConfig{}};
    auto state = std::make_shared<OneFrame>();
    aurel::AppLaunch launch{state, {}, &sys, ""};
    aurel::App app("Kovra", "laststate.cfg");
    app.Run(launch);
    unsetenv("XDG_CONFIG_HOME");

    EXPECT_EQ(state->title, "Untitled - Kovra");
    EXPECT_EQ(state->editor.Document().Wirrel().anims.size(), 1u);
}
