#include "app/app.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "support/temp_dir.h"

namespace {

using Log = std::vector<std::string>;

// A platform that runs a fixed number of frames of 20 ms each; a frame hook lets a test act mid-run.
class ScriptedSys : public aurel::ISys {
public:
    ScriptedSys(Log& log, int frames) : log_(log), frames_(frames) {}
    void Init(aurel::App&) override { log_.push_back("sys.Init"); }
    void Shutdown(aurel::App& app) override {
        log_.push_back("sys.Shutdown");
        app.Settings().Select("App");
        app.Settings().SetInt("Frames", frame_);
    }
    bool Frame() override {
        if (frame_ == frames_) {
            return false;
        }
        ++frame_;
        if (onFrame) {
            onFrame(frame_);
        }
        return true;
    }
    float FrameSeconds() override { return 0.02f; }
    void ResetClock() override {}

    std::function<void(int)> onFrame;

private:
    Log& log_;
    int frames_;
    int frame_ = 0;
};

class RecordingState : public aurel::IState {
public:
    RecordingState(Log& log, std::string name) : log_(log), name_(std::move(name)) {}
    void Attach(aurel::App& app) override {
        app_ = &app;
        log_.push_back(name_ + ".Attach");
    }
    void Update() override {
        log_.push_back(name_ + ".Update");
        if (onUpdate) {
            onUpdate(*app_);
        }
    }
    void Init() override { log_.push_back(name_ + ".Init"); }
    void Shutdown() override { log_.push_back(name_ + ".Shutdown"); }

    std::function<void(aurel::App&)> onUpdate;

private:
    Log& log_;
    std::string name_;
    aurel::App* app_ = nullptr;
};

class RecordingLib : public aurel::IExternalLib {
public:
    RecordingLib(Log& log, std::string name) : log_(log), name_(std::move(name)) {}
    bool Init(aurel::App&) override {
        log_.push_back(name_ + ".Init");
        return true;
    }
    void Shutdown() override { log_.push_back(name_ + ".Shutdown"); }
    void Update(float) override { log_.push_back(name_ + ".Update"); }

private:
    Log& log_;
    std::string name_;
};

class AppTest : public testing::Test {
protected:
    void SetUp() override { setenv("XDG_CONFIG_HOME", dir.Path().c_str(), 1); }
    void TearDown() override { unsetenv("XDG_CONFIG_HOME"); }
    std::string SettingsText() {
        std::ifstream in(dir.File("Kovra/laststate.cfg"), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    kovra::test::TempDir dir;
    Log log;
};

}  // namespace

TEST_F(AppTest, StartsFramesAndShutsDownInOrderThenWritesSettings) {
    ScriptedSys sys(log, 2);
    RecordingLib a(log, "a"), b(log, "b");
    auto state = std::make_shared<RecordingState>(log, "s");
    aurel::AppLaunch launch{state, {&a, &b}, &sys, ""};
    {
        aurel::App app("Kovra", "laststate.cfg");
        app.Run(launch);
        EXPECT_FLOAT_EQ(app.Elapsed(), 0.04f);
    }
    EXPECT_EQ(log, (Log{"sys.Init", "a.Init", "b.Init", "s.Attach", "s.Init",         //
                        "s.Update", "a.Update", "b.Update", "s.Update", "a.Update",   //
                        "b.Update", "s.Shutdown", "a.Shutdown", "b.Shutdown", "sys.Shutdown"}));
    // The folder was made with its parents, and the store went out as text.
    EXPECT_EQ(SettingsText(), "[App]\r\nFrames = 2\r\n");
}

TEST_F(AppTest, StateChangesWaitForTheEndOfTheFrame) {
    ScriptedSys sys(log, 4);
    auto first = std::make_shared<RecordingState>(log, "first");
    auto second = std::make_shared<RecordingState>(log, "second");
    auto third = std::make_shared<RecordingState>(log, "third");
    sys.onFrame = [&](int frame) {
        first->onUpdate = nullptr;
        if (frame == 1) {
            first->onUpdate = [&](aurel::App& app) { app.PushState(second); };
        }
    };
    second->onUpdate = [&](aurel::App& app) { app.ReplaceState(third); };
    third->onUpdate = [&](aurel::App& app) { app.PopState(); };
    aurel::AppLaunch launch{first, {}, &sys, ""};
    aurel::App app("Kovra", "");
    app.Run(launch);
    EXPECT_EQ(log, (Log{"sys.Init", "first.Attach", "first.Init",                           //
                        "first.Update", "first.Shutdown", "second.Attach", "second.Init",    // push
                        "second.Update", "second.Shutdown", "third.Attach", "third.Init",    // replace
                        "third.Update", "third.Shutdown", "first.Init",                      // pop
                        "first.Update", "first.Shutdown", "sys.Shutdown"}));
}

TEST_F(AppTest, PoppingTheLastStateEndsTheProgram) {
    ScriptedSys sys(log, 10);
    auto only = std::make_shared<RecordingState>(log, "only");
    only->onUpdate = [](aurel::App& app) { app.PopState(); };
    aurel::AppLaunch launch{only, {}, &sys, ""};
    aurel::App app("Kovra", "laststate.cfg");
    app.Run(launch);
    EXPECT_EQ(log, (Log{"sys.Init", "only.Attach", "only.Init", "only.Update", "only.Shutdown", "sys.Shutdown"}));
    EXPECT_EQ(SettingsText(), "[App]\r\nFrames = 1\r\n");
}

TEST_F(AppTest, SettingsAreReadAtConstructionAndNotWrittenWithoutAFileName) {
    std::filesystem::create_directories(dir.Path() / "Kovra");
    std::ofstream(dir.File("Kovra/laststate.cfg")) << "[App]\nTheme = \"Dark\"\n";
    std::ofstream(dir.File("Kovra/extra.cfg")) << "[X]\nK = 3\n";
    {
        aurel::App app("Kovra", "laststate.cfg");
        app.Settings().Select("App");
        EXPECT_EQ(app.Settings().GetString("Theme", "").Utf8(), "Dark");
        ScriptedSys sys(log, 0);
        auto state = std::make_shared<RecordingState>(log, "s");
        aurel::AppLaunch launch{state, {}, &sys, "extra.cfg"};
        app.Run(launch);
        app.ConfigStore().Select("X");
        EXPECT_TRUE(app.ConfigStore().Exists("K"));
    }
    EXPECT_NE(SettingsText().find("Theme = \"Dark\""), std::string::npos);

    kovra::test::TempDir other;
    setenv("XDG_CONFIG_HOME", other.Path().c_str(), 1);
    ScriptedSys sys(log, 1);
    auto state = std::make_shared<RecordingState>(log, "s");
    aurel::AppLaunch launch{state, {}, &sys, ""};
    aurel::App app("Kovra", "");
    app.Run(launch);
    EXPECT_FALSE(std::filesystem::exists(other.Path() / "Kovra"));
}
