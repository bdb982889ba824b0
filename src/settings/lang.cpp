#include "settings/lang.h"

namespace aurel {

SettingsStore& LanguageStore() {
    static SettingsStore store;
    return store;
}

bool LoadLanguageFile(const DualString& path) {
    FileStream stream;
    if (!OpenBinStream(stream, path, 2)) {
        return false;
    }
    LanguageStore().Clear();
    LanguageStore().Load(stream);
    return true;
}

ListenerList<>& LanguageListeners() {
    static ListenerList<> listeners;
    return listeners;
}

namespace {

DualString& LanguagePath() {
    static DualString path;
    return path;
}

}  // namespace

const DualString& LoadedLanguagePath() {
    return LanguagePath();
}

bool LoadLanguage(const DualString& path, const std::string& name, SettingsStore& settings) {
    if (!LoadLanguageFile(path)) {
        return false;
    }
    settings.Select("App");
    settings.SetString("Language", DualString(name));
    LanguagePath() = path;
    LanguageListeners().Call();
    return true;
}

DualString Lang(const std::string& section, const std::string& key) {
    static const DualString missing("[MISSING STRING]");
    SettingsStore& store = LanguageStore();
    store.Select(section);
    const std::vector<DualString> strings = store.GetStrings(key);
    if (strings.empty()) {
        return missing;
    }
    std::string text = strings.front().Utf8();
    for (std::size_t at = text.find("\\n"); at != std::string::npos; at = text.find("\\n", at + 1)) {
        text.replace(at, 2, 1, '\n');
    }
    return DualString(std::move(text));
}

}  // namespace aurel
