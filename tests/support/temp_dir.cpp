#include "support/temp_dir.h"

#include <stdlib.h>

#include <stdexcept>

namespace kovra::test {

TempDir::TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "kovra-test-XXXXXX").string();
    if (!mkdtemp(pattern.data())) {
        throw std::runtime_error("cannot create a temporary folder");
    }
    path_ = pattern;
}

TempDir::~TempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

}  // namespace kovra::test
