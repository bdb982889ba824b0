#pragma once
// The platform object of the editor: the main window, the frame clock and the event pump. The window's
// restored rectangle and maximised state come from section "App" of the user's settings and go back
// there at shutdown.

#include <climits>
#include <cstdint>
#include <memory>

#include "app/clock.h"
#include "app/i_sys.h"

namespace kestrel2::win {
class MainWindow;
struct Placement;
}  // namespace kestrel2::win

namespace aurel {

struct SysWinConfig {
    static constexpr std::int32_t kDefaultPosition = INT32_MIN;  // let the platform place the window

    std::int32_t x = kDefaultPosition;
    std::int32_t y = kDefaultPosition;
    std::int32_t width = 800;
    std::int32_t height = 670;
    bool maximised = true;
    bool waitForMessages = true;
    bool resizable = true;
};

// The part of a screen that windows may take, without its panels and docks.
struct ScreenArea {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

// Brings a restored rectangle read from the settings onto `area`: a size under one pixel takes the
// default, one larger than the area shrinks to it, and a window with a position moves inside the area.
// An empty area changes nothing.
void ClampToArea(SysWinConfig& config, const ScreenArea& area);

class SysWin : public ISys {
public:
    explicit SysWin(const SysWinConfig& config);
    ~SysWin() override;

    void Init(App& app) override;
    void Shutdown(App& app) override;
    bool Frame() override;
    float FrameSeconds() override { return frameSeconds_; }
    void ResetClock() override { clock_.Reset(); }

private:
    void OnSize(const kestrel2::win::Placement& placement);
    void OnMove(const kestrel2::win::Placement& placement);

    struct SignalWatch;

    SysWinConfig config_;
    std::unique_ptr<kestrel2::win::MainWindow> window_;
    std::unique_ptr<SignalWatch> signalWatch_;
    Clock clock_;
    float frameSeconds_ = 0.0f;
};

}  // namespace aurel
