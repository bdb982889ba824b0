#pragma once
// The exceptions of the platform layer. Each fills a message and a title and, while the global switch
// showExceptionBoxes is set, shows them in a message box already in its constructor, before it is thrown:
// the entry point only swallows the exception and ends. How the box is shown is the platform's business,
// installed with SetExceptionBox; without it nothing is shown.

#include <exception>

namespace aurel {

extern bool showExceptionBoxes;

// Shows a message box; withOwner is false when the box must not be owned by the main window.
using ExceptionBoxFunction = void (*)(const char* message, const char* title, bool withOwner);
void SetExceptionBox(ExceptionBoxFunction show);

class KestrelException : public std::exception {
public:
    KestrelException(const char* title, const char* message);
    const char* what() const noexcept override { return message; }

    char message[2048];
    char title[2048];

protected:
    KestrelException() = default;
    void Fill(const char* titleText, const char* messageText);
    void Show(bool withOwner) const;
};

class KestrelWindowsException : public KestrelException {
public:
    // Text of the last system error.
    KestrelWindowsException();
    explicit KestrelWindowsException(const char* format, ...) __attribute__((format(printf, 2, 3)));
};

class KestrelUsageException : public KestrelException {
public:
    explicit KestrelUsageException(const char* format, ...) __attribute__((format(printf, 2, 3)));
};

}  // namespace aurel
