#include "base/kestrel_exception.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace aurel {

bool showExceptionBoxes = true;

namespace {
ExceptionBoxFunction exceptionBox = nullptr;
}

void SetExceptionBox(ExceptionBoxFunction show) { exceptionBox = show; }

KestrelException::KestrelException(const char* titleText, const char* messageText) {
    Fill(titleText, messageText);
    Show(true);
}

void KestrelException::Fill(const char* titleText, const char* messageText) {
    std::snprintf(title, sizeof title, "%s", titleText);
    std::snprintf(message, sizeof message, "%s", messageText);
}

void KestrelException::Show(bool withOwner) const {
    if (showExceptionBoxes && exceptionBox) {
        exceptionBox(message, title, withOwner);
    }
}

KestrelWindowsException::KestrelWindowsException() {
    Fill("Windows Error", std::strerror(errno));
    Show(false);
}

KestrelWindowsException::KestrelWindowsException(const char* format, ...) {
    std::snprintf(title, sizeof title, "%s", "Windows Error");
    va_list args;
    va_start(args, format);
    std::vsnprintf(message, sizeof message, format, args);
    va_end(args);
    Show(true);
}

KestrelUsageException::KestrelUsageException(const char* format, ...) {
    std::snprintf(title, sizeof title, "%s", "Usage Exception");
    va_list args;
    va_start(args, format);
    std::vsnprintf(message, sizeof message, format, args);
    va_end(args);
    Show(true);
}

}  // namespace aurel
