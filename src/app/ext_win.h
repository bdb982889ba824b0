#pragma once
// The window layer as an external library of the App: while it runs, the message boxes of platform
// exceptions are shown as dialogs owned by the main window, and each frame runs the gui tree's Update.

#include "app/i_external_lib.h"
#include "gui/message_box.h"

namespace aurel {

class ExtWin : public IExternalLib {
public:
    bool Init(App& app) override;
    void Shutdown() override;
    void Update(float seconds) override;
};

}  // namespace aurel
