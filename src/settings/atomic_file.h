#pragma once
// Writes a file so that it is never left half-written. Everything goes to a temporary file in the
// target's folder, which takes the target's name by a rename only when all of it was written and synced;
// the folder is then synced too, so that the new name survives a power loss. On any failure the earlier
// file stays as it was.
//
// The temporary file is unnamed (O_TMPFILE) where the file system allows, so that a process killed while
// writing leaves nothing behind; it gets a short hidden name only for the moment of the rename. Where
// unnamed files aren't available it has that hidden name from the start, and the next save in the same
// folder removes what a killed save left. A symbolic link is written through: its target gets the new
// contents and the link stays.

#include <functional>
#include <string>

#include "base/dual_string.h"
#include "settings/bin_stream.h"

namespace aurel {

enum class TempFiles { kUnnamedWherePossible, kNamed };

// Calls `write` with a stream open on the temporary file; its false answer abandons the write. On false,
// `why` (when given) gets the reason: the system's words for a failed call ("No space left on device",
// "Permission denied"), or the path limit.
bool WriteFileAtomically(const DualString& path, const std::function<bool(BinStream&)>& write,
                         std::string* why = nullptr, TempFiles temps = TempFiles::kUnnamedWherePossible);

// Whether `name` (without folder) is one of the hidden temporary names that saves use.
bool IsTemporaryName(const std::string& name);

}  // namespace aurel
