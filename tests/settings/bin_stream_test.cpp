#include "settings/bin_stream.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "support/temp_dir.h"

using aurel::DualString;
using aurel::FileStream;

TEST(BinStream, OpenModes) {
    kovra::test::TempDir dir;
    const std::string path = dir.File("f.bin");
    FileStream stream;

    EXPECT_FALSE(OpenBinStream(stream, path, 2));  // reading needs the file
    ASSERT_TRUE(OpenBinStream(stream, path, 1));   // created when missing
    ASSERT_TRUE(stream.Write(5, "hello"));
    ASSERT_TRUE(CloseBinStream(stream));

    ASSERT_TRUE(OpenBinStream(stream, path, 1));  // kept when present
    ASSERT_TRUE(stream.Seek(0, aurel::kSeekEnd));
    EXPECT_EQ(stream.Tell(), 5);
    ASSERT_TRUE(stream.Seek(-2, aurel::kSeekCurrent));
    char tail[2];
    ASSERT_TRUE(stream.Read(2, tail));
    EXPECT_EQ(std::string(tail, 2), "lo");
    EXPECT_FALSE(stream.Read(1, tail));
    CloseBinStream(stream);

    ASSERT_TRUE(OpenBinStream(stream, path, 0));  // truncated
    ASSERT_TRUE(stream.Seek(0, aurel::kSeekEnd));
    EXPECT_EQ(stream.Tell(), 0);
    CloseBinStream(stream);

    ASSERT_TRUE(OpenBinStream(stream, path, 2));
    EXPECT_FALSE(stream.Write(1, "x"));  // read only
}

TEST(BinStream, ReaderOpensOnlyRegularFilesOnce) {
    kovra::test::TempDir dir;
    FileStream stream;
    const std::string path = dir.File("r.bin");
    std::ofstream(path) << "xyz";
    std::string why;
    ASSERT_TRUE(OpenBinReader(stream, path, &why));
    EXPECT_EQ(stream.Size(), 3);
    ASSERT_EQ(mkfifo(dir.File("pipe").c_str(), 0600), 0);
    // Reading a pipe without a writer would wait forever; it is refused at once.
    for (const auto& [refused, reason] : std::vector<std::pair<std::string, std::string>>{
             {dir.File("missing"), "No such file or directory"},
             {dir.Path().string(), "it is a folder, not a file"},
             {dir.File("pipe"), "it is a named pipe, not a file"},
             {"/dev/null", "it is a device, not a file"},
             {std::string(2049, 'a'), "the path is longer than the 2048 characters a path may have"}}) {
        SCOPED_TRACE(refused);
        EXPECT_FALSE(OpenBinReader(stream, refused, &why));
        EXPECT_EQ(why, reason);
        EXPECT_FALSE(stream.IsOpen());
    }
}
