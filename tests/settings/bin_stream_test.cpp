#include "settings/bin_stream.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "settings/atomic_file.h"
#include "support/temp_dir.h"

using aurel::DualString;
using aurel::FileStream;

namespace {

std::string Contents(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

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

TEST(BinStream, ReaderRefusesOverlongPaths) {
    kovra::test::TempDir dir;
    FileStream stream;
    std::string path = dir.File("r.bin");
    std::ofstream(path) << "x";
    EXPECT_TRUE(OpenBinReader(stream, path));
    EXPECT_FALSE(OpenBinReader(stream, std::string(2049, 'a')));
    EXPECT_FALSE(stream.IsOpen());
}

TEST(AtomicFile, FailureLeavesTheEarlierFileUntouched) {
    kovra::test::TempDir dir;
    const std::string path = dir.File("doc.txt");
    ASSERT_TRUE(aurel::WriteFileAtomically(path, [](aurel::BinStream& s) { return s.Write(3, "old"); }));
    EXPECT_EQ(Contents(path), "old");

    EXPECT_FALSE(aurel::WriteFileAtomically(path, [](aurel::BinStream& s) {
        s.Write(3, "new");
        return false;  // the writer gave up half way
    }));
    EXPECT_EQ(Contents(path), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.Path()), {}), 1);  // no temporary left

    EXPECT_FALSE(aurel::WriteFileAtomically(dir.File("missing/doc.txt"), [](aurel::BinStream&) { return true; }));
    ASSERT_TRUE(aurel::WriteFileAtomically(path, [](aurel::BinStream& s) { return s.Write(3, "new"); }));
    EXPECT_EQ(Contents(path), "new");
}
