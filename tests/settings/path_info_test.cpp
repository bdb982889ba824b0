#include "settings/path_info.h"

#include <gtest/gtest.h>

namespace aurel {
namespace {

TEST(PathInfo, SplitsAndJoins) {
    struct Case {
        const char* path;
        const char* root;
        const char* folder;
        const char* name;
        const char* extension;
    };
    const std::vector<Case> cases = {
        {"/home/u/doc.ske", "/", "home/u/", "doc", "ske"},
        {"C:\\Art\\hero.v2.png", "C:\\", "Art\\", "hero.v2", "png"},
        {"./tex/a.png", "", "./tex/", "a", "png"},
        {"notes", "", "", "notes", ""},
        {"/a/.hidden", "/", "a/", ".hidden", ""},
        {"d:x.png", "d:", "", "x", "png"},
        {"/a/b.", "/", "a/", "b", ""},
    };
    for (const Case& c : cases) {
        const PathInfo info(c.path);
        EXPECT_EQ(info.root, c.root) << c.path;
        EXPECT_EQ(info.folder, c.folder) << c.path;
        EXPECT_EQ(info.name, c.name) << c.path;
        EXPECT_EQ(info.Extension().Utf8(), c.extension) << c.path;
        EXPECT_EQ(info.Full().Utf8(), c.path);
        EXPECT_EQ(info.Folder(true).Utf8(), std::string(c.root) + c.folder);
    }
}

TEST(PathInfo, OnlyDotsMakeAPathRelative) {
    for (const char* path : {"./a", ".\\a", "../a", "..\\a", "../../a"}) {
        EXPECT_TRUE(IsRelative(path)) << path;
    }
    for (const char* path : {"a/b", "/a", ".a", ".../a", ".", "..", "", "C:\\a"}) {
        EXPECT_FALSE(IsRelative(path)) << path;
    }
}

TEST(PathInfo, Normalise) {
    for (const auto& [path, expected] :
         std::vector<std::pair<const char*, const char*>>{{"/a/b/./../c.png", "/a/c.png"},
                                                          {"/x/y/..\\img\\a.png", "/x/img/a.png"},
                                                          {"/a/../../b", "/b"},
                                                          {"../a/../../b", "../../b"},
                                                          {"./a.png", "a.png"},
                                                          {"C:\\a\\.\\b\\", "C:/a/b/"},
                                                          {"/a//b", "/a/b"}}) {
        EXPECT_EQ(Normalise(path).Utf8(), expected) << path;
    }
}

TEST(PathInfo, RelativePath) {
    for (const auto& [file, base, expected] : std::vector<std::tuple<const char*, const char*, const char*>>{
             {"/home/u/doc/a.png", "/home/u/doc/x.ske", "./a.png"},
             {"/home/u/doc/img/a.png", "/home/u/doc/x.ske", "./img/a.png"},
             {"/home/u/pics/a.png", "/home/u/doc/x.ske", "../pics/a.png"},
             {"/a.png", "/home/u/doc/x.ske", "../../../a.png"},
             {"/HOME/U/Doc/a.png", "/home/u/doc/x.ske", "./a.png"},
             {"C:\\art\\a.png", "c:/art/x.ske", "./a.png"},
             {"D:\\art\\a.png", "C:\\art\\x.ske", nullptr},
             {"C:\\a.png", "/home/x.ske", nullptr}}) {
        DualString out;
        EXPECT_EQ(RelativePath(file, base, out), expected != nullptr) << file;
        if (expected) {
            EXPECT_EQ(out.Utf8(), expected) << file;
        }
    }
}

}  // namespace
}  // namespace aurel
