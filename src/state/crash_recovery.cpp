#include "state/crash_recovery.h"

namespace kovra {

CrashRecovery::CrashRecovery(std::string folder) : store_(std::move(folder)), last_(Clock::now()) {}

void CrashRecovery::Tick(Clock::time_point now, const WirrelDoc& doc, bool dirty) {
    if (now - last_ < kInterval) {
        return;
    }
    last_ = now;
    if (dirty) {
        store_.Write(doc, silent_);
    } else {
        store_.Remove();
    }
}

void CrashRecovery::WriteNow(const WirrelDoc& doc) {
    store_.Write(doc, silent_);
}

void CrashRecovery::Clear() {
    store_.Remove();
}

}  // namespace kovra
