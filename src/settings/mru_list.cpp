#include "settings/mru_list.h"

#include <algorithm>

namespace aurel {

MruList::MruList(SettingsStore& store, std::size_t capacity) : store_(store), capacity_(capacity) {
    store_.Select("App");
    paths_ = store_.GetStrings("MRU");
    if (paths_.size() > capacity_) {
        paths_.resize(capacity_);
    }
}

MruList::~MruList() {
    if (!paths_.empty()) {
        store_.Select("App");
        store_.SetStrings("MRU", paths_);
    }
}

void MruList::Add(const DualString& path) {
    Remove(path);
    paths_.insert(paths_.begin(), path);
    if (paths_.size() > capacity_) {
        paths_.pop_back();
    }
}

void MruList::Remove(const DualString& path) { std::erase(paths_, path); }

}  // namespace aurel
