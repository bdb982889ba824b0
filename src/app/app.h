#pragma once
// Ties the platform object, the external libraries and the stack of application states together and
// runs the frame loop. It also owns the user's settings store, read when the App is made and written
// when the loop ends. State changes are recorded and applied at the end of the frame.

#include <memory>
#include <string>
#include <vector>

#include "app/i_external_lib.h"
#include "app/i_state.h"
#include "app/i_sys.h"
#include "base/dual_string.h"
#include "settings/settings_store.h"

namespace aurel {

struct AppLaunch {
    std::shared_ptr<IState> firstState;
    std::vector<IExternalLib*> libs;  // started in this order, not owned
    ISys* sys = nullptr;
    std::string settingsFile;  // an optional read-only configuration file in the settings folder
};

class App {
public:
    // `settingsFileName` names the user's state file in the settings folder; empty means none.
    App(const std::string& name, const std::string& settingsFileName);

    void Run(AppLaunch& launch);

    void PushState(std::shared_ptr<IState> state);
    void ReplaceState(std::shared_ptr<IState> state);
    void PopState();

    SettingsStore& Settings() { return lastState_; }
    SettingsStore& ConfigStore() { return config_; }
    float Elapsed() const { return elapsed_; }
    const DualString& Name() const { return appName_; }

private:
    enum PendingOp { kNone = 0, kPop = 1, kPush = 2, kReplace = 3 };

    void OnSysEvent(const SysEvent& event);
    void ApplyPending();
    void MakeCurrent(std::shared_ptr<IState> state);
    void ShutdownAll();

    std::vector<IExternalLib*> libs_;
    ISys* sys_ = nullptr;
    std::vector<std::shared_ptr<IState>> stack_;
    std::shared_ptr<IState> current_;
    int pendingOp_ = kNone;
    std::shared_ptr<IState> pending_;
    float elapsed_ = 0.0f;
    DualString appName_;
    bool hasSettingsFile_ = false;
    bool readyFlag_ = false;
    SettingsStore lastState_;
    SettingsStore config_;
    DualString settingsFileName_;
};

}  // namespace aurel
