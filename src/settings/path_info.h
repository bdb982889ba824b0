#pragma once
// Paths as the document format sees them. PathInfo splits a path into its root (a drive such as "C:\"
// or a leading separator), its folder (with a trailing separator), its name and its extension, and
// joins them back. Both "/" and "\" are separators everywhere, and paths are compared without regard
// to case on every platform, since documents carry paths written on other systems.

#include <cstdint>
#include <string>

#include "base/dual_string.h"

namespace aurel {

class PathInfo {
public:
    explicit PathInfo(const DualString& path);

    DualString Folder(bool withRoot) const;
    DualString Name(bool withExtension) const;
    DualString Extension() const { return DualString(extension); }
    DualString Full() const { return DualString(root + folder + Name(true).Utf8()); }
    bool Exists() const;
    // Seconds since the epoch of the last change, 0 when the file can't be found.
    std::int64_t ModificationTime() const;

    std::string root;
    std::string folder;
    std::string name;
    std::string extension;

private:
    bool dotted_ = false;  // whether a "." stood before the extension, even an empty one
};

// True exactly when the path begins with "./", ".\", "../" or "..\". Anything else, even a path that
// begins with a plain folder name, counts as absolute.
bool IsRelative(const DualString& path);

// Removes the "." and ".." parts of the path and joins what is left with "/". A ".." that would climb
// above the root is dropped; above the start of a path without a root it is kept.
DualString Normalise(const DualString& path);

// The path of `file` relative to the folder of the file `base`: "./" and the rest when `file` lies in
// that folder or below it, else one "../" for each folder to climb. False when the roots differ.
bool RelativePath(const DualString& file, const DualString& base, DualString& out);

}  // namespace aurel
