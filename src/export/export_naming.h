#pragma once
// The naming rules of sprite export: which file formats and wildcards each output kind offers, how a
// file name with wildcards expands for a sheet, an animation and a frame, and where the folder and
// file name edits start. Nothing here writes a file: the names are all that export produces so far.

#include <array>
#include <string>
#include <vector>

#include "base/dual_string.h"

namespace kovra {

// The three output radios.
enum class ExportOutput { Sheets, ImageSequence, Animations };

// The metadata formats offered, in list order; they are names only.
inline constexpr std::array<const char*, 4> kMetadataFormats = {"Kovra XML", "Kovra JSON", "Kovra LUA",
                                                                "Kovra Binary"};

// "Edit" serves only entries beyond the fixed formats.
inline bool MetadataEditEnabled(int index) {
    return index >= static_cast<int>(kMetadataFormats.size());
}

// The file formats for the output kind: GIF alone for animations, else the still-image formats.
std::vector<std::string> ExportFileFormats(ExportOutput output);

// The wildcard list: its title first, then the wildcards that apply to the output kind.
std::vector<std::string> ExportWildcards(ExportOutput output);

// What a name expands for: a zero-based sheet, animation and frame, -1 for none.
struct ExportItem {
    int sheet = -1;
    int anim = -1;
    std::string animName;
    int frame = -1;
};

// The file name with its wildcards replaced where they apply, everything else in angle brackets
// dropped, and the extension: the format's, lower-cased, for an image; ".xml" for the metadata file,
// which is the item without any number.
std::string ExpandExportName(const std::string& fileName, ExportOutput output, const std::string& format,
                             const ExportItem& item);

// The preview line: the metadata file's name, ", ", then the first image's name.
std::string ExportNamePreview(const std::string& fileName, ExportOutput output, const std::string& format,
                              const std::string& firstAnimName);

struct ExportStartNames {
    std::string folder;
    std::string fileName;
};

// The folder and the file name that the edits start with: those of the document's path, or of
// "Untitled" in the working folder for a document never saved.
ExportStartNames ExportStart(const aurel::DualString& documentPath, const std::string& workingFolder);

}  // namespace kovra
