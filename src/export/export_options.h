#pragma once
// Every option of the sprite export dialog and the rules that tie them together, without a window: the
// dialog shows this state and hands each click to it. Check states count as the toolkit does: 0 checked,
// 1 unchecked, 2 mixed.

#include <string>
#include <vector>

#include "export/export_naming.h"

namespace kovra {

class ExportOptions {
public:
    static constexpr int kChecked = 0;
    static constexpr int kUnchecked = 1;
    static constexpr int kMixed = 2;

    // The animations by name, all checked, and the folder and file name the edits start with.
    ExportOptions(std::vector<std::string> animNames, ExportStartNames start);

    void ClickAnimHeader();
    void SetAnimChecked(std::size_t row, bool checked);
    void ClickKeyFrames();
    void ClickEvery();
    void SetOutput(ExportOutput output);
    // The row chosen in the file format list; it is remembered for the output kind.
    void SelectFormat(int index);
    void SelectMetadata(int index);
    void SetFileName(const std::string& text);
    // Appends the wildcard list's entry to the file name; the title entry adds nothing.
    void ChooseWildcard(int index);

    const std::vector<std::string>& AnimNames() const { return animNames_; }
    bool AnimChecked(std::size_t row) const { return animChecked_[row]; }
    int AnimHeader() const;
    int KeyFrames() const { return keyFrames_; }
    int Every() const { return every_; }
    bool EveryEditEnabled() const { return every_ == kChecked; }
    ExportOutput Output() const { return output_; }
    bool SheetSizeEnabled() const { return output_ == ExportOutput::Sheets; }
    std::vector<std::string> Formats() const { return ExportFileFormats(output_); }
    int FormatSelection() const;
    std::vector<std::string> Wildcards() const { return ExportWildcards(output_); }
    int Metadata() const { return metadata_; }
    bool MetadataEditEnabled() const { return kovra::MetadataEditEnabled(metadata_); }
    const std::string& Folder() const { return folder_; }
    const std::string& FileName() const { return fileName_; }
    bool OkEnabled() const { return !animNames_.empty() && !fileName_.empty(); }
    std::string Preview() const;

private:
    std::vector<std::string> animNames_;
    std::vector<bool> animChecked_;
    int keyFrames_ = kChecked;
    int every_ = kUnchecked;
    ExportOutput output_ = ExportOutput::Sheets;
    int stillFormat_ = 0;      // the format row while the output is not animations
    int animationFormat_ = 0;  // the format row while it is
    int metadata_ = 0;
    std::string folder_;
    std::string fileName_;
};

}  // namespace kovra
