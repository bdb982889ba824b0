#include "settings/path_info.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <vector>

namespace aurel {

namespace {

bool IsSeparator(char c) {
    return c == '/' || c == '\\';
}

// Length of the root: a drive letter with its colon, and the separator after it if any.
std::size_t RootLength(const std::string& path) {
    std::size_t length = 0;
    if (path.size() >= 2 && path[1] == ':' &&
        ((path[0] >= 'A' && path[0] <= 'Z') || (path[0] >= 'a' && path[0] <= 'z'))) {
        length = 2;
    }
    if (length < path.size() && IsSeparator(path[length])) {
        ++length;
    }
    return length;
}

// The non-empty parts between separators.
std::vector<std::string> SplitParts(const std::string& text) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t stop = start;
        while (stop < text.size() && !IsSeparator(text[stop])) {
            ++stop;
        }
        if (stop > start) {
            parts.push_back(text.substr(start, stop - start));
        }
        start = stop + 1;
    }
    return parts;
}

// The form in which two path parts are compared: lower case, "/" for every separator.
std::string Folded(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        } else if (c == '\\') {
            c = '/';
        }
    }
    return text;
}

}  // namespace

PathInfo::PathInfo(const DualString& path) {
    const std::string& text = path.Utf8();
    const std::size_t rootLength = RootLength(text);
    root = text.substr(0, rootLength);
    const std::size_t lastSeparator = text.find_last_of("/\\");
    std::size_t nameStart = rootLength;
    if (lastSeparator != std::string::npos && lastSeparator >= rootLength) {
        folder = text.substr(rootLength, lastSeparator + 1 - rootLength);
        nameStart = lastSeparator + 1;
    }
    const std::string rest = text.substr(nameStart);
    const std::size_t dot = rest.rfind('.');
    if (dot != std::string::npos && dot > 0) {
        name = rest.substr(0, dot);
        extension = rest.substr(dot + 1);
        dotted_ = true;
    } else {
        name = rest;
    }
}

DualString PathInfo::Folder(bool withRoot) const {
    return DualString(withRoot ? root + folder : folder);
}

DualString PathInfo::Name(bool withExtension) const {
    return DualString(withExtension && dotted_ ? name + "." + extension : name);
}

bool PathInfo::Exists() const {
    std::error_code error;
    return std::filesystem::exists(Full().Utf8(), error);
}

std::int64_t PathInfo::ModificationTime() const {
    struct stat info;
    return stat(Full().c_str(), &info) == 0 ? static_cast<std::int64_t>(info.st_mtime) : 0;
}

bool IsRelative(const DualString& path) {
    const std::string& text = path.Utf8();
    const auto startsWith = [&](std::string_view dots) {
        return text.size() > dots.size() && text.compare(0, dots.size(), dots) == 0 &&
               IsSeparator(text[dots.size()]);
    };
    return startsWith(".") || startsWith("..");
}

DualString Normalise(const DualString& path) {
    const std::string& text = path.Utf8();
    const std::size_t rootLength = RootLength(text);
    std::vector<std::string> kept;
    for (const std::string& part : SplitParts(text.substr(rootLength))) {
        if (part == ".") {
            continue;
        }
        if (part != "..") {
            kept.push_back(part);
        } else if (!kept.empty() && kept.back() != "..") {
            kept.pop_back();
        } else if (rootLength == 0) {
            kept.push_back(part);
        }
    }
    std::string result = text.substr(0, rootLength);
    std::replace(result.begin(), result.end(), '\\', '/');
    for (std::size_t i = 0; i < kept.size(); ++i) {
        result += (i > 0 ? "/" : "") + kept[i];
    }
    if (!kept.empty() && rootLength < text.size() && IsSeparator(text.back())) {
        result += '/';
    }
    return DualString(result);
}

bool RelativePath(const DualString& file, const DualString& base, DualString& out) {
    const PathInfo target(file);
    const PathInfo from(base);
    if (Folded(target.root) != Folded(from.root)) {
        return false;
    }
    const std::vector<std::string> targetParts = SplitParts(target.folder);
    const std::vector<std::string> fromParts = SplitParts(from.folder);
    std::size_t common = 0;
    while (common < targetParts.size() && common < fromParts.size() &&
           Folded(targetParts[common]) == Folded(fromParts[common])) {
        ++common;
    }
    std::string text = fromParts.size() > common ? "" : "./";
    for (std::size_t i = common; i < fromParts.size(); ++i) {
        text += "../";
    }
    for (std::size_t i = common; i < targetParts.size(); ++i) {
        text += targetParts[i] + "/";
    }
    out = DualString(text + target.Name(true).Utf8());
    return true;
}

}  // namespace aurel
