#pragma once
// The list of recently used files, newest first, kept in the "MRU" key of section "App" of the user's
// settings. It is read when the list is made and written back when it goes away.

#include <vector>

#include "base/dual_string.h"
#include "settings/settings_store.h"

namespace aurel {

class MruList {
public:
    MruList(SettingsStore& store, std::size_t capacity);
    ~MruList();
    MruList(const MruList&) = delete;
    MruList& operator=(const MruList&) = delete;

    // Moves `path` to the front, dropping the oldest entry when the list is over capacity.
    void Add(const DualString& path);
    void Remove(const DualString& path);

    const std::vector<DualString>& Paths() const { return paths_; }

private:
    SettingsStore& store_;
    std::size_t capacity_;
    std::vector<DualString> paths_;
};

}  // namespace aurel
