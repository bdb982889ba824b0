#pragma once
// The platform object: owns the main window and the clock, and pumps the platform's events once a frame.

#include "app/sys_event.h"
#include "base/listener_list.h"

namespace aurel {

class App;

class ISys {
public:
    virtual ~ISys() = default;
    virtual void Init(App& app) = 0;
    virtual void Shutdown(App& app) = 0;
    // Pumps events, blocking while idle; false when the program is to end.
    virtual bool Frame() = 0;
    // Seconds elapsed in the last frame.
    virtual float FrameSeconds() = 0;
    // Forgets the time since the last frame, so that a long blocking action doesn't count as elapsed.
    virtual void ResetClock() = 0;

    ListenerList<const SysEvent&> receivers;
};

}  // namespace aurel
