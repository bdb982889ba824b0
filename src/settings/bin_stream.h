#pragma once
// The byte streams through which all document and settings input and output goes. A reader can read,
// seek and tell; a stream can also write. FileStream wraps a C file; MemoryStream holds its bytes in
// memory, for documents carried in memory and for tests.

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "base/dual_string.h"

namespace aurel {

enum SeekMode : int { kSeekStart = 0, kSeekCurrent = 1, kSeekEnd = 2 };

class BinReader {
public:
    virtual ~BinReader() = default;
    // True when all `size` bytes came.
    virtual bool Read(std::size_t size, void* buffer) = 0;
    virtual bool Seek(std::int64_t offset, int mode) = 0;
    virtual std::int64_t Tell() = 0;
};

class BinStream : public BinReader {
public:
    virtual bool Write(std::size_t size, const void* buffer) = 0;
};

class FileStream : public BinStream {
public:
    FileStream() = default;
    ~FileStream() override;
    FileStream(const FileStream&) = delete;
    FileStream& operator=(const FileStream&) = delete;

    bool Read(std::size_t size, void* buffer) override;
    bool Write(std::size_t size, const void* buffer) override;
    bool Seek(std::int64_t offset, int mode) override;
    std::int64_t Tell() override;

    bool IsOpen() const { return file_ != nullptr; }
    // The size of the open file in bytes, -1 when it can't be told.
    std::int64_t Size() const;
    // Flushes to the disk; false when the data may not have reached it.
    bool Sync();

private:
    friend bool OpenBinStream(FileStream&, const DualString&, int);
    friend bool OpenRegularFile(FileStream&, const DualString&, std::string*);
    friend bool CloseBinStream(FileStream&);
    std::FILE* file_ = nullptr;
};

class MemoryStream : public BinStream {
public:
    MemoryStream() = default;
    explicit MemoryStream(std::vector<std::uint8_t> bytes) : bytes_(std::move(bytes)) {}

    bool Read(std::size_t size, void* buffer) override;
    bool Write(std::size_t size, const void* buffer) override;
    bool Seek(std::int64_t offset, int mode) override;
    std::int64_t Tell() override { return static_cast<std::int64_t>(pos_); }

    const std::vector<std::uint8_t>& Bytes() const { return bytes_; }

private:
    std::vector<std::uint8_t> bytes_;
    std::size_t pos_ = 0;
};

// Opens `path`: mode 0 creates or truncates it for reading and writing, mode 1 opens it for reading and
// writing and creates it when missing, mode 2 opens it for reading only. False when it can't be opened.
bool OpenBinStream(FileStream& stream, const DualString& path, int mode);

// The longest path a file may be read or written at, in UTF-16 units.
constexpr std::size_t kPathLimit = 2048;

// The reason a path over kPathLimit is refused.
std::string PathLimitMessage();

// Opens `path` for reading when it names a regular file: a directory, a pipe or a device is refused
// without waiting on it. The file is opened once, so what is checked is what is read. On false, `why`
// (when given) gets the reason in a few words.
bool OpenRegularFile(FileStream& stream, const DualString& path, std::string* why = nullptr);

// OpenRegularFile, refusing paths of more than kPathLimit UTF-16 units.
bool OpenBinReader(FileStream& stream, const DualString& path, std::string* why = nullptr);

// Closes the file; false when buffered data could not be written.
bool CloseBinStream(FileStream& stream);

}  // namespace aurel
