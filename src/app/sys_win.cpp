#include "app/sys_win.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QGuiApplication>
#include <QScreen>
#include <QSocketNotifier>
#include <QWidget>

#include <unistd.h>
#include <algorithm>
#include <csignal>

#include "app/app.h"
#include "base/kestrel_exception.h"
#include "gui/main_window.h"

namespace aurel {

namespace {

constexpr int kPumpBudgetMs = 100;  // a flood of events can't hold a frame off for longer

// An interrupt or termination signal closes the main window as the user would, so that the program
// ends through its ordinary shutdown and keeps its settings. The handler only writes a byte to a pipe,
// which wakes the event pump.
int signalPipe[2] = {-1, -1};

void OnSignal(int) {
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = write(signalPipe[1], &byte, 1);
}

}  // namespace

struct SysWin::SignalWatch {
    explicit SignalWatch(kestrel2::win::MainWindow& window) {
        if (pipe(signalPipe) != 0) {
            return;
        }
        notifier = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
        QObject::connect(notifier.get(), &QSocketNotifier::activated, [&window] {
            char byte;
            [[maybe_unused]] const ssize_t read = ::read(signalPipe[0], &byte, 1);
            static_cast<QWidget*>(window.NativeWidget())->close();
        });
        std::signal(SIGINT, OnSignal);
        std::signal(SIGTERM, OnSignal);
    }
    ~SignalWatch() {
        std::signal(SIGINT, SIG_DFL);
        std::signal(SIGTERM, SIG_DFL);
        notifier.reset();
        close(signalPipe[0]);
        close(signalPipe[1]);
    }
    std::unique_ptr<QSocketNotifier> notifier;
};

void ClampToArea(SysWinConfig& config, const ScreenArea& area) {
    if (area.width <= 0 || area.height <= 0) {
        return;  // no screen to measure by
    }
    const SysWinConfig defaults;
    const auto fit = [](std::int32_t size, std::int32_t fallback, std::int32_t room) {
        return std::max<std::int32_t>(1, std::min(size > 0 ? size : fallback, room));
    };
    config.width = fit(config.width, defaults.width, area.width);
    config.height = fit(config.height, defaults.height, area.height);
    const auto place = [](std::int32_t at, std::int32_t size, std::int32_t start, std::int32_t room) {
        if (at == SysWinConfig::kDefaultPosition) {
            return at;
        }
        const std::int64_t last = std::int64_t{start} + room - size;
        return static_cast<std::int32_t>(
            std::clamp<std::int64_t>(at, start, std::max<std::int64_t>(start, last)));
    };
    config.x = place(config.x, config.width, area.x, area.width);
    config.y = place(config.y, config.height, area.y, area.height);
}

SysWin::SysWin(const SysWinConfig& config) : config_(config) {}

SysWin::~SysWin() = default;

void SysWin::Init(App& app) {
    SettingsStore& settings = app.Settings();
    settings.Select("App");
    settings.GetInt("DefaultX", config_.x);
    settings.GetInt("DefaultY", config_.y);
    settings.GetInt("DefaultWidth", config_.width);
    settings.GetInt("DefaultHeight", config_.height);
    std::int32_t maximised = config_.maximised ? 1 : 0;
    settings.GetInt("DefaultFullscreen", maximised);
    config_.maximised = maximised != 0;
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        const QRect area = screen->availableGeometry();
        ClampToArea(config_, ScreenArea{area.x(), area.y(), area.width(), area.height()});
    }

    window_ = std::make_unique<kestrel2::win::MainWindow>();
    const kestrel2::win::Placement placement{config_.x, config_.y, config_.width, config_.height,
                                             config_.maximised};
    if (!window_->Create(placement, config_.resizable)) {
        throw KestrelWindowsException("Unknown error creating window at %d x %d.", config_.width,
                                      config_.height);
    }
    window_->onSize.Add(this, &SysWin::OnSize);
    window_->onMove.Add(this, &SysWin::OnMove);
    signalWatch_ = std::make_unique<SignalWatch>(*window_);
    clock_.Resume();
}

void SysWin::OnSize(const kestrel2::win::Placement& placement) {
    config_.width = placement.width;
    config_.height = placement.height;
    config_.maximised = placement.maximised;
    receivers.Call(SysEvent{.kind = kEventSize, .width = placement.width, .height = placement.height});
}

void SysWin::OnMove(const kestrel2::win::Placement& placement) {
    config_.x = placement.x;
    config_.y = placement.y;
    receivers.Call(SysEvent{.kind = kEventMove, .x = placement.x, .y = placement.y});
}

void SysWin::Shutdown(App& app) {
    SettingsStore& settings = app.Settings();
    settings.Select("App");
    settings.SetInt("DefaultWidth", config_.width);
    settings.SetInt("DefaultHeight", config_.height);
    settings.SetInt("DefaultX", config_.x);
    settings.SetInt("DefaultY", config_.y);
    settings.SetInt("DefaultFullscreen", config_.maximised ? 1 : 0);
    signalWatch_.reset();
    window_.reset();
}

bool SysWin::Frame() {
    frameSeconds_ = static_cast<float>(clock_.Take() * 0.001);
    if (config_.waitForMessages) {
        // Blocks until something happens, so an idle editor uses no processor.
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    QCoreApplication::processEvents(QEventLoop::AllEvents, kPumpBudgetMs);
    return !window_->CloseRequested();
}

}  // namespace aurel
