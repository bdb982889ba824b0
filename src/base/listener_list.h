#pragma once
// A list of (object, member function) pairs, called in the order they were added. Two entries are the
// same when both the object and the member function are the same, so a pair can be removed by naming
// it again. Callbacks may read anything but must not add or remove listeners while the list runs.

#include <array>
#include <cstring>
#include <functional>
#include <vector>

namespace aurel {

template <class... Args>
class ListenerList {
public:
    // Appends the pair, even when it is already there.
    template <class T>
    void Add(T* object, void (T::*method)(Args...)) {
        entries_.push_back(MakeEntry(object, method));
    }

    // Appends the pair unless it is already there.
    template <class T>
    void AddUnique(T* object, void (T::*method)(Args...)) {
        if (!Contains(object, method)) {
            Add(object, method);
        }
    }

    // Removes every entry of the pair.
    template <class T>
    void Remove(T* object, void (T::*method)(Args...)) {
        const Key key = KeyOf(object, method);
        std::erase_if(entries_, [&](const Entry& e) { return e.key == key; });
    }

    template <class T>
    bool Contains(T* object, void (T::*method)(Args...)) const {
        const Key key = KeyOf(object, method);
        for (const Entry& e : entries_) {
            if (e.key == key) {
                return true;
            }
        }
        return false;
    }

    void Call(Args... args) const {
        for (std::size_t i = 0; i < entries_.size(); ++i) {
            entries_[i].call(args...);
        }
    }

    std::size_t size() const { return entries_.size(); }
    bool empty() const { return entries_.empty(); }
    void Clear() { entries_.clear(); }

private:
    struct Dummy {};
    // The identity of a pair: the object's address followed by the bytes of the member pointer.
    using Key = std::array<unsigned char, sizeof(void*) + sizeof(void (Dummy::*)())>;
    struct Entry {
        Key key;
        std::function<void(Args...)> call;
    };

    template <class T>
    static Key KeyOf(T* object, void (T::*method)(Args...)) {
        static_assert(sizeof(method) == sizeof(void (Dummy::*)()), "unexpected member pointer size");
        Key key{};
        const void* address = object;
        std::memcpy(key.data(), &address, sizeof(address));
        std::memcpy(key.data() + sizeof(address), &method, sizeof(method));
        return key;
    }

    template <class T>
    static Entry MakeEntry(T* object, void (T::*method)(Args...)) {
        return Entry{KeyOf(object, method), [object, method](Args... args) { (object->*method)(args...); }};
    }

    std::vector<Entry> entries_;
};

}  // namespace aurel
