#pragma once
// The frame clock: folds the time between reads into an accumulator while it runs, so that each frame
// can take the time elapsed since the previous one. Time comes from a millisecond source given at
// construction, the steady clock of the system by default.

#include <functional>

namespace aurel {

class Clock {
public:
    using Source = std::function<double()>;  // milliseconds

    Clock();
    explicit Clock(Source now) : now_(std::move(now)) {}

    void Pause() {
        Fold();
        paused_ = true;
    }
    void Resume() {
        paused_ = false;
        last_ = now_();
    }
    // Takes the milliseconds accumulated since the last take.
    double Take();
    // Drops what has accumulated.
    void Reset();

private:
    void Fold();

    Source now_;
    double last_ = 0.0;
    bool paused_ = true;
    double accumulated_ = 0.0;
};

}  // namespace aurel
