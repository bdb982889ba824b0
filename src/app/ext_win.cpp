#include "app/ext_win.h"

#include "base/kestrel_exception.h"

namespace aurel {

bool ExtWin::Init(App&) {
    SetExceptionBox(&kestrel2::win::ShowExceptionBox);
    return true;
}

void ExtWin::Shutdown() { SetExceptionBox(nullptr); }

}  // namespace aurel
