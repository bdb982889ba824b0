#include "gui/message_box.h"

#include <QMessageBox>

#include "gui/main_window.h"

namespace kestrel2::win {

void ShowExceptionBox(const char* message, const char* title, bool withOwner) {
    MainWindow* window = withOwner ? GlobalMainWindow() : nullptr;
    QMessageBox::critical(window ? static_cast<QWidget*>(window->NativeWidget()) : nullptr,
                          QString::fromUtf8(title), QString::fromUtf8(message));
}

}  // namespace kestrel2::win
