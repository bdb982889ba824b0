// The editor's entry: builds the platform object, the two libraries and the editor state, and runs the
// App. A failure has already shown its message box when its exception was made; here it only ends the
// program.

#include <QApplication>

#include "app/app.h"
#include "app/editor_window.h"
#include "app/ext_vyl.h"
#include "app/ext_win.h"
#include "app/sys_win.h"
#include "base/kestrel_exception.h"
#include "settings/folders.h"
#include "state/state_title.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    aurel::SysWin sys{aurel::SysWinConfig{}};
    aurel::ExtWin extWin;
    aurel::ExtVyl extVyl;
    aurel::EditorWindow window;
    // The command line holds at most one document to open.
    const aurel::DualString file = argc > 1 ? aurel::DualString(argv[1]) : aurel::DualString();
    auto state = std::make_shared<kovra::StateTitle>(window, aurel::ProgramFolder(), file);
    aurel::AppLaunch launch{state, {&extWin, &extVyl}, &sys, ""};
    try {
        aurel::App app("Kovra", "laststate.cfg");
        app.Run(launch);
    } catch (const aurel::KestrelException&) {
    } catch (...) {
    }
    return 0;
}
