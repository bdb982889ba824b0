#pragma once
// Keeps a recovery copy of the document while it has unsaved changes, so that a crash loses at most two
// minutes of work. The editor ticks it from its window timer; every two minutes the copy is written
// again when the document is dirty and removed when it is not. A save or a clean close removes it.

#include <chrono>
#include <string>

#include "base/prompt.h"
#include "doc/recovery_store.h"
#include "doc/wirrel_doc.h"

namespace kovra {

class CrashRecovery {
public:
    using Clock = std::chrono::steady_clock;
    static constexpr Clock::duration kInterval = std::chrono::minutes(2);

    explicit CrashRecovery(std::string folder = RecoveryFolder());

    // Writes or removes the copy when the interval has passed since the last time it did.
    void Tick(Clock::time_point now, const WirrelDoc& doc, bool dirty);
    // Writes the copy at once, whatever the time.
    void WriteNow(const WirrelDoc& doc);
    // The document was saved or closed cleanly: no copy is needed any more.
    void Clear();

    RecoveryStore& Store() { return store_; }

private:
    RecoveryStore store_;
    // A copy is written without ever asking the user anything.
    aurel::SilentPrompt silent_;
    Clock::time_point last_;
};

}  // namespace kovra
