#pragma once
// A fresh folder under the system's temporary folder, removed with everything in it at the end of scope.

#include <filesystem>
#include <string>

namespace kovra::test {

class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    std::string File(const std::string& name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

}  // namespace kovra::test
