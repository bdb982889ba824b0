#include "export/export_options.h"

#include <algorithm>

namespace kovra {

ExportOptions::ExportOptions(std::vector<std::string> animNames, ExportStartNames start)
    : animNames_(std::move(animNames)),
      animChecked_(animNames_.size(), true),
      folder_(std::move(start.folder)),
      fileName_(std::move(start.fileName)) {}

int ExportOptions::AnimHeader() const {
    const auto checked = std::count(animChecked_.begin(), animChecked_.end(), true);
    if (checked == 0) {
        return kUnchecked;
    }
    return checked == static_cast<std::ptrdiff_t>(animChecked_.size()) ? kChecked : kMixed;
}

void ExportOptions::ClickAnimHeader() {
    const bool check = AnimHeader() != kChecked;
    std::fill(animChecked_.begin(), animChecked_.end(), check);
}

void ExportOptions::SetAnimChecked(std::size_t row, bool checked) {
    animChecked_[row] = checked;
}

// Key frames and a fixed step may both be on, and one of them always is.
void ExportOptions::ClickKeyFrames() {
    keyFrames_ = keyFrames_ == kChecked ? kUnchecked : kChecked;
    if (keyFrames_ == kUnchecked) {
        every_ = kChecked;
    }
}

void ExportOptions::ClickEvery() {
    every_ = every_ == kChecked ? kUnchecked : kChecked;
    if (every_ == kUnchecked) {
        keyFrames_ = kChecked;
    }
}

void ExportOptions::SetOutput(ExportOutput output) {
    output_ = output;
}

void ExportOptions::SelectFormat(int index) {
    (output_ == ExportOutput::Animations ? animationFormat_ : stillFormat_) = index;
}

int ExportOptions::FormatSelection() const {
    return output_ == ExportOutput::Animations ? animationFormat_ : stillFormat_;
}

void ExportOptions::SelectMetadata(int index) {
    metadata_ = index;
}

void ExportOptions::SetFileName(const std::string& text) {
    fileName_ = text;
}

void ExportOptions::ChooseWildcard(int index) {
    const std::vector<std::string> list = Wildcards();
    if (index > 0 && index < static_cast<int>(list.size())) {
        fileName_ += list[static_cast<std::size_t>(index)];
    }
}

std::string ExportOptions::Preview() const {
    const std::vector<std::string> formats = Formats();
    const int row = std::clamp(FormatSelection(), 0, static_cast<int>(formats.size()) - 1);
    return ExportNamePreview(fileName_, output_, formats[static_cast<std::size_t>(row)],
                             animNames_.empty() ? std::string() : animNames_.front());
}

}  // namespace kovra
