#pragma once
// Writes a file so that it is never left half-written: everything goes to a temporary file beside the
// target, which replaces the target by a rename only when all of it was written and flushed. On any
// failure the temporary file is removed and the earlier file stays as it was.

#include <functional>

#include "base/dual_string.h"
#include "settings/bin_stream.h"

namespace aurel {

// Calls `write` with a stream open on the temporary file; its false answer abandons the write.
bool WriteFileAtomically(const DualString& path, const std::function<bool(BinStream&)>& write);

}  // namespace aurel
