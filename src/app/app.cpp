#include "app/app.h"

#include "settings/atomic_file.h"
#include "settings/bin_stream.h"
#include "settings/folders.h"

namespace aurel {

namespace {

void ReadStore(SettingsStore& store, const std::string& path) {
    FileStream stream;
    if (OpenRegularFile(stream, DualString(path))) {
        store.Load(stream);
    }
}

}  // namespace

App::App(const std::string& name, const std::string& settingsFileName)
    : appName_(name), hasSettingsFile_(!settingsFileName.empty()), settingsFileName_(settingsFileName) {
    if (hasSettingsFile_) {
        ReadStore(lastState_, SettingsFilePath(name, settingsFileName));
    }
}

void App::Run(AppLaunch& launch) {
    if (!launch.settingsFile.empty()) {
        ReadStore(config_, SettingsFilePath(appName_.Utf8(), launch.settingsFile));
    }
    readyFlag_ = true;
    sys_ = launch.sys;
    sys_->Init(*this);
    libs_ = launch.libs;
    for (IExternalLib* lib : libs_) {
        lib->Init(*this);
    }

    stack_.push_back(launch.firstState);
    current_ = launch.firstState;
    current_->Attach(*this);
    current_->Init();
    sys_->receivers.AddUnique(this, &App::OnSysEvent);

    while (sys_->Frame()) {
        elapsed_ += sys_->FrameSeconds();
        current_->Update();
        for (IExternalLib* lib : libs_) {
            lib->Update(sys_->FrameSeconds());
        }
        ApplyPending();
        if (!current_) {
            return;  // the last state was popped and the program has shut down
        }
    }
    stack_.pop_back();
    sys_->receivers.Remove(this, &App::OnSysEvent);
    current_->Shutdown();
    ShutdownAll();
}

void App::PushState(std::shared_ptr<IState> state) {
    pendingOp_ = kPush;
    pending_ = std::move(state);
}

void App::ReplaceState(std::shared_ptr<IState> state) {
    pendingOp_ = kReplace;
    pending_ = std::move(state);
}

void App::PopState() {
    pendingOp_ = kPop;
    pending_.reset();
}

void App::OnSysEvent(const SysEvent& event) {
    if (current_) {
        current_->OnEvent(event);
    }
}

void App::MakeCurrent(std::shared_ptr<IState> state) {
    current_ = std::move(state);
    current_->Init();
    sys_->receivers.AddUnique(this, &App::OnSysEvent);
}

void App::ApplyPending() {
    const int op = pendingOp_;
    pendingOp_ = kNone;
    switch (op) {
        case kPop:
            stack_.pop_back();
            sys_->receivers.Remove(this, &App::OnSysEvent);
            current_->Shutdown();
            if (stack_.empty()) {
                ShutdownAll();
                return;
            }
            MakeCurrent(stack_.back());
            break;
        case kPush:
            stack_.emplace_back();
            [[fallthrough]];
        case kReplace:
            stack_.back() = pending_;
            sys_->receivers.Remove(this, &App::OnSysEvent);
            current_->Shutdown();
            pending_->Attach(*this);
            MakeCurrent(std::move(pending_));
            break;
        default:
            break;
    }
}

void App::ShutdownAll() {
    for (IExternalLib* lib : libs_) {
        lib->Shutdown();
    }
    stack_.clear();
    current_.reset();
    sys_->Shutdown(*this);
    if (hasSettingsFile_) {
        const std::string folder = SettingsFolder(appName_.Utf8());
        if (EnsureFolder(folder)) {
            WriteFileAtomically(SettingsFilePath(appName_.Utf8(), settingsFileName_.Utf8()),
                                [this](BinStream& stream) { return lastState_.Save(stream); });
        }
    }
}

}  // namespace aurel
