#include "images/image_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kovra {

ImageFileReader::~ImageFileReader() {
    if (file_) {
        std::fclose(file_);
    }
}

bool ImageFileReader::Open(const aurel::DualString& path) {
    // Without O_NONBLOCK the open of a pipe would wait for a writer.
    const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd < 0) {
        return false;
    }
    struct stat info {};
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode) ||
        ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK) != 0) {
        ::close(fd);
        return false;
    }
    file_ = ::fdopen(fd, "rb");
    if (!file_) {
        ::close(fd);
    }
    return file_ != nullptr;
}

bool ImageFileReader::Read(std::size_t size, void* buffer) {
    return file_ && std::fread(buffer, 1, size, file_) == size;
}

bool ImageFileReader::Seek(std::int64_t offset, int mode) {
    static constexpr int kWhence[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    return file_ && mode >= 0 && mode <= 2 && fseeko(file_, offset, kWhence[mode]) == 0;
}

std::int64_t ImageFileReader::Tell() {
    return file_ ? ftello(file_) : -1;
}

}  // namespace kovra
