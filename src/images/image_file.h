#pragma once
// A picture file opened for reading: only a regular file is accepted (a folder, a pipe or a device is
// refused without waiting on it), and the file is opened once, so what is checked is what is read.

#include <cstdio>

#include "base/dual_string.h"
#include "settings/bin_stream.h"

namespace kovra {

class ImageFileReader : public aurel::BinStream {
public:
    ImageFileReader() = default;
    ~ImageFileReader() override;
    ImageFileReader(const ImageFileReader&) = delete;
    ImageFileReader& operator=(const ImageFileReader&) = delete;

    // False when the path can't be opened for reading or isn't a regular file.
    bool Open(const aurel::DualString& path);

    bool Read(std::size_t size, void* buffer) override;
    bool Write(std::size_t, const void*) override { return false; }
    bool Seek(std::int64_t offset, int mode) override;
    std::int64_t Tell() override;

private:
    std::FILE* file_ = nullptr;
};

}  // namespace kovra
