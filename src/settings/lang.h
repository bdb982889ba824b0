#pragma once
// The words of the user interface, looked up by section and key in the global language store, which is
// loaded from a file of Lang/. A missing word shows as "[MISSING STRING]", visibly and on purpose.

#include <string>

#include "base/dual_string.h"
#include "settings/settings_store.h"

namespace aurel {

SettingsStore& LanguageStore();

// Replaces the language store by the contents of the file; false, with nothing changed, when it can't
// be opened.
bool LoadLanguageFile(const DualString& path);

// The key's first string with each two-character "\n" made a line feed, or "[MISSING STRING]".
DualString Lang(const std::string& section, const std::string& key);

}  // namespace aurel
