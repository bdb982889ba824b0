#include "app/clock.h"

#include <chrono>

namespace aurel {

Clock::Clock()
    : Clock([] {
          using namespace std::chrono;
          return duration<double, std::milli>(steady_clock::now().time_since_epoch()).count();
      }) {}

void Clock::Fold() {
    if (!paused_) {
        const double now = now_();
        accumulated_ += now - last_;
        last_ = now;
    }
}

double Clock::Take() {
    Fold();
    const double taken = accumulated_;
    accumulated_ = 0.0;
    return taken;
}

void Clock::Reset() {
    accumulated_ = 0.0;
    if (!paused_) {
        last_ = now_();
    }
}

}  // namespace aurel
