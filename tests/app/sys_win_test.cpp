#include "app/sys_win.h"

#include <gtest/gtest.h>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWidget>

#include <cstdlib>
#include <fstream>

#include "app/app.h"
#include "gui/main_window.h"
#include "support/temp_dir.h"

namespace {

// Closes the main window from inside the event pump at its first update, as a user would.
class ClosingState : public aurel::IState {
public:
    void Attach(aurel::App&) override {}
    void Init() override {}
    void Shutdown() override {}
    void Update() override {
        ++updates;
        QTimer::singleShot(
            0, [] { static_cast<QWidget*>(kestrel2::win::GlobalMainWindow()->NativeWidget())->close(); });
    }
    int updates = 0;
};

class SysWinTest : public testing::Test {
protected:
    void SetUp() override { setenv("XDG_CONFIG_HOME", dir.Path().c_str(), 1); }
    void TearDown() override { unsetenv("XDG_CONFIG_HOME"); }

    // Runs the program until the window is closed; answers the settings it wrote.
    aurel::SettingsStore RunUntilClosed() {
        aurel::SysWin sys{aurel::SysWinConfig{}};
        auto state = std::make_shared<ClosingState>();
        aurel::AppLaunch launch{state, {}, &sys, ""};
        {
            aurel::App app("Kovra", "laststate.cfg");
            app.Run(launch);
        }
        EXPECT_GE(state->updates, 1);
        aurel::SettingsStore written;
        aurel::FileStream stream;
        EXPECT_TRUE(aurel::OpenBinStream(stream, dir.File("Kovra/laststate.cfg"), 2));
        written.Load(stream);
        written.Select("App");
        return written;
    }

    static std::int32_t Int(const aurel::SettingsStore& store, const char* key) {
        std::int32_t value = -1;
        EXPECT_TRUE(store.GetInt(key, value)) << key;
        return value;
    }

    kovra::test::TempDir dir;
};

}  // namespace

TEST_F(SysWinTest, FirstStartIsMaximisedAt800By670AndWritesTheSettingsFile) {
    const aurel::SettingsStore written = RunUntilClosed();
    EXPECT_EQ(Int(written, "DefaultWidth"), 800);
    EXPECT_EQ(Int(written, "DefaultHeight"), 670);
    EXPECT_EQ(Int(written, "DefaultFullscreen"), 1);
}

TEST_F(SysWinTest, ClosingMaximisedKeepsTheRestoredRectangle) {
    std::filesystem::create_directories(dir.Path() / "Kovra");
    std::ofstream(dir.File("Kovra/laststate.cfg")) << "[App]\nDefaultX = 40\nDefaultY = 30\nDefaultWidth = "
                                                      "640\nDefaultHeight = 400\nDefaultFullscreen = 1\n";
    const aurel::SettingsStore written = RunUntilClosed();
    EXPECT_EQ(Int(written, "DefaultWidth"), 640);
    EXPECT_EQ(Int(written, "DefaultHeight"), 400);
    EXPECT_EQ(Int(written, "DefaultX"), 40);
    EXPECT_EQ(Int(written, "DefaultY"), 30);
    EXPECT_EQ(Int(written, "DefaultFullscreen"), 1);
}

TEST_F(SysWinTest, ARestoredWindowReopensAsItWas) {
    std::filesystem::create_directories(dir.Path() / "Kovra");
    std::ofstream(dir.File("Kovra/laststate.cfg")) << "[App]\nDefaultX = 10\nDefaultY = 20\nDefaultWidth = "
                                                      "500\nDefaultHeight = 300\nDefaultFullscreen = 0\n";
    const aurel::SettingsStore written = RunUntilClosed();
    EXPECT_EQ(Int(written, "DefaultWidth"), 500);
    EXPECT_EQ(Int(written, "DefaultHeight"), 300);
    EXPECT_EQ(Int(written, "DefaultFullscreen"), 0);
}

TEST(ClampToArea, TheRestoredRectangleFitsTheScreen) {
    constexpr std::int32_t kFree = aurel::SysWinConfig::kDefaultPosition;
    const aurel::ScreenArea area{100, 20, 1000, 700};
    struct Case {
        aurel::SysWinConfig read;
        std::int32_t x, y, width, height;
    };
    for (const Case& c : {
             Case{{.x = 150, .y = 40, .width = 640, .height = 400}, 150, 40, 640, 400},
             Case{{.x = 2147483647, .y = -5, .width = 2147483647, .height = 400}, 100, 20, 1000, 400},
             Case{{.x = 900, .y = 600, .width = 300, .height = 200}, 800, 520, 300, 200},
             Case{{.x = kFree, .y = kFree, .width = 0, .height = -7}, kFree, kFree, 800, 670},
             Case{{.x = -2147483647, .y = 0, .width = 1, .height = 2000}, 100, 20, 1, 700},
         }) {
        aurel::SysWinConfig config = c.read;
        aurel::ClampToArea(config, area);
        EXPECT_EQ(std::vector<std::int32_t>({config.x, config.y, config.width, config.height}),
                  std::vector<std::int32_t>({c.x, c.y, c.width, c.height}));
    }
    aurel::SysWinConfig config{.width = 5000};
    aurel::ClampToArea(config, aurel::ScreenArea{});
    EXPECT_EQ(config.width, 5000);
}

TEST_F(SysWinTest, AbsurdSettingsComeBackWithinTheScreenAndWrongKindsAsDefaults) {
    std::filesystem::create_directories(dir.Path() / "Kovra");
    std::ofstream(dir.File("Kovra/laststate.cfg"))
        << "[App]\nDefaultX = \"left\"\nDefaultY = 99999999999\nDefaultWidth = 2147483647\n"
           "DefaultHeight = 1e9\nDefaultFullscreen = 0\n";
    const aurel::SettingsStore written = RunUntilClosed();
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(Int(written, "DefaultWidth"), area.width());
    EXPECT_EQ(Int(written, "DefaultHeight"), std::min(670, area.height()));
    EXPECT_LE(Int(written, "DefaultY") + Int(written, "DefaultHeight"), area.y() + area.height());
}
