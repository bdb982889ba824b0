#pragma once
// The words of the user interface, looked up by section and key in the global language store, which is
// loaded from a file of Lang/. A missing word shows as "[MISSING STRING]", visibly and on purpose.

#include <string>

#include "base/dual_string.h"
#include "base/listener_list.h"
#include "settings/settings_store.h"

namespace aurel {

SettingsStore& LanguageStore();

// Replaces the language store by the contents of the file; false, with nothing changed, when it can't
// be opened.
bool LoadLanguageFile(const DualString& path);

// Called after each successful LoadLanguage, so that menus and controls read their words again.
ListenerList<>& LanguageListeners();

// Loads the file as LoadLanguageFile does; then stores `name` as "Language" in section "App" of
// `settings`, remembers the path and calls the listeners. False, with nothing changed, when the file
// can't be opened.
bool LoadLanguage(const DualString& path, const std::string& name, SettingsStore& settings);

// The path of the language file that LoadLanguage loaded last, empty before the first.
const DualString& LoadedLanguagePath();

// The key's first string with each two-character "\n" made a line feed, or "[MISSING STRING]".
DualString Lang(const std::string& section, const std::string& key);

}  // namespace aurel
