#include "app/ext_win.h"

#include "base/kestrel_exception.h"
#include "gui/main_window.h"

namespace aurel {

bool ExtWin::Init(App&) {
    SetExceptionBox(&kestrel2::win::ShowExceptionBox);
    return true;
}

void ExtWin::Shutdown() {
    SetExceptionBox(nullptr);
}

void ExtWin::Update(float) {
    if (kestrel2::win::MainWindow* window = kestrel2::win::GlobalMainWindow()) {
        window->RootGui().Update();
    }
}

}  // namespace aurel
