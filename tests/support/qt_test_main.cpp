// Entry of test programs that need the toolkit: one QApplication for the whole run, on the offscreen
// platform unless the caller chose another, so that no test needs a display.

#include <QApplication>
#include <QDir>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    // The editor state's recovery copies stay out of the user's own folder.
    if (qEnvironmentVariableIsEmpty("XDG_STATE_HOME")) {
        qputenv("XDG_STATE_HOME", QDir::tempPath().toUtf8() + "/kovra-test-state");
    }
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
