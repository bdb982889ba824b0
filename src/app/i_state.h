#pragma once
// An application state. Attach is called once when the state is first pushed, Init each time it becomes
// current, Update once a frame, Shutdown each time it stops being current.

#include "app/sys_event.h"

namespace aurel {

class App;

class IState {
public:
    virtual ~IState() = default;
    virtual void Attach(App& app) = 0;
    virtual void Update() = 0;
    virtual void Init() = 0;
    virtual void Shutdown() = 0;
    // Events of the platform while the state is current.
    virtual void OnEvent(const SysEvent&) {}
};

}  // namespace aurel
