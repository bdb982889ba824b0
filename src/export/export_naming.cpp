#include "export/export_naming.h"

#include <cctype>

#include "settings/path_info.h"

namespace kovra {

namespace {

constexpr const char* kSheetNumber = "<sheetnumber>";
constexpr const char* kAnimName = "<animname>";
constexpr const char* kAnimNumber = "<animnumber>";
constexpr const char* kFrameNumber = "<framenumber>";

void ReplaceAll(std::string& text, const std::string& wildcard, const std::string& value) {
    for (std::size_t at = text.find(wildcard); at != std::string::npos;
         at = text.find(wildcard, at + value.size())) {
        text.replace(at, wildcard.size(), value);
    }
}

// Drops every character from a "<" up to and including the next ">"; an unclosed "<" drops the rest.
std::string DropBracketed(const std::string& text) {
    std::string kept;
    bool inside = false;
    for (const char c : text) {
        if (inside) {
            inside = c != '>';
        } else if (c == '<') {
            inside = true;
        } else {
            kept += c;
        }
    }
    return kept;
}

std::string Lower(std::string text) {
    for (char& c : text) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return text;
}

}  // namespace

std::vector<std::string> ExportFileFormats(ExportOutput output) {
    if (output == ExportOutput::Animations) {
        return {"GIF"};
    }
    return {"PNG", "TGA", "PSD", "JPG", "BMP", "PCT", "PNM"};
}

std::vector<std::string> ExportWildcards(ExportOutput output) {
    std::vector<std::string> list = {"Wildcards"};
    if (output == ExportOutput::Sheets) {
        list.emplace_back(kSheetNumber);
        return list;
    }
    list.emplace_back(kAnimName);
    list.emplace_back(kAnimNumber);
    if (output == ExportOutput::ImageSequence) {
        list.emplace_back(kFrameNumber);
    }
    return list;
}

std::string ExpandExportName(const std::string& fileName, ExportOutput output, const std::string& format,
                             const ExportItem& item) {
    std::string name = fileName;
    if (output == ExportOutput::Sheets && item.sheet != -1) {
        ReplaceAll(name, kSheetNumber, std::to_string(item.sheet + 1));
    }
    if (output != ExportOutput::Sheets && item.anim != -1) {
        ReplaceAll(name, kAnimName, item.animName);
        ReplaceAll(name, kAnimNumber, std::to_string(item.anim + 1));
    }
    if (output == ExportOutput::ImageSequence && item.frame != -1) {
        ReplaceAll(name, kFrameNumber, std::to_string(item.frame + 1));
    }
    const bool image = item.sheet != -1 || item.anim != -1 || item.frame != -1;
    return DropBracketed(name) + (image ? "." + Lower(format) : ".xml");
}

std::string ExportNamePreview(const std::string& fileName, ExportOutput output, const std::string& format,
                              const std::string& firstAnimName) {
    return ExpandExportName(fileName, output, format, {}) + ", " +
           ExpandExportName(fileName, output, format, {0, 0, firstAnimName, 0});
}

ExportStartNames ExportStart(const aurel::DualString& documentPath, const std::string& workingFolder) {
    std::string path = documentPath.Utf8();
    if (path.empty()) {
        path = workingFolder;
        if (!path.empty() && path.back() != '/' && path.back() != '\\') {
            path += '/';
        }
        path += "Untitled";
    }
    const aurel::PathInfo info{aurel::DualString(path)};
    return {info.Folder(true).Utf8(), info.Name(false).Utf8() + kSheetNumber};
}

}  // namespace kovra
