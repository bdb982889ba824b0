#include "base/kestrel_exception.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Shown {
    std::string message, title;
    bool withOwner;
};
std::vector<Shown> shown;

void Record(const char* message, const char* title, bool withOwner) {
    shown.push_back({message, title, withOwner});
}

}  // namespace

TEST(KestrelException, ShowsItsBoxInTheConstructorUnlessSwitchedOff) {
    shown.clear();
    aurel::SetExceptionBox(&Record);
    try {
        throw aurel::KestrelWindowsException("Unknown error creating window at %d x %d.", 800, 670);
    } catch (const aurel::KestrelException& e) {
        ASSERT_EQ(shown.size(), 1u);  // shown before it was caught
        EXPECT_EQ(shown[0].message, "Unknown error creating window at 800 x 670.");
        EXPECT_EQ(shown[0].title, "Windows Error");
        EXPECT_STREQ(e.what(), "Unknown error creating window at 800 x 670.");
    }

    aurel::KestrelUsageException usage("bad %s", "call");
    EXPECT_EQ(shown.back().title, "Usage Exception");

    aurel::KestrelWindowsException lastError;
    EXPECT_FALSE(shown.back().withOwner);

    aurel::showExceptionBoxes = false;
    aurel::KestrelUsageException quiet("not shown");
    aurel::showExceptionBoxes = true;
    EXPECT_EQ(shown.size(), 3u);
    aurel::SetExceptionBox(nullptr);
}
