#include "views/dialogs/pack_session.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "settings/path_info.h"
#include "textures/pack_command.h"

namespace kovra {

namespace {

std::string FileNameOf(const aurel::DualString& path) {
    return aurel::PathInfo(path).Name(true).Utf8();
}

}  // namespace

std::vector<aurel::DualString> PackPageFiles(const aurel::DualString& chosen, int pages) {
    if (pages == 1) {
        return {chosen};
    }
    const std::filesystem::path path(chosen.Utf8());
    std::vector<aurel::DualString> files;
    for (int page = 0; page < pages; ++page) {
        const std::string name = path.stem().string() + std::to_string(page) + path.extension().string();
        files.emplace_back((path.parent_path() / name).string());
    }
    return files;
}

PackSession::PackSession(WirrelDoc& document) : document_(document) {
    for (const auto& image : document.images) {
        rows_.push_back({image ? FileNameOf(image->path) : std::string(), true});
    }
    Refresh();
}

int PackSession::Header() const {
    const auto checked =
        std::count_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.checked; });
    if (checked == 0) {
        return kUnchecked;
    }
    return checked == static_cast<std::ptrdiff_t>(rows_.size()) ? kChecked : kMixed;
}

int PackSession::PageWidth() const {
    return std::atoi(width_.c_str());
}

int PackSession::PageHeight() const {
    return std::atoi(height_.c_str());
}

void PackSession::ClickHeader() {
    const bool check = Header() != kChecked;
    for (Row& row : rows_) {
        row.checked = check;
    }
    Refresh();
}

void PackSession::SetRowChecked(int row, bool checked) {
    rows_[static_cast<std::size_t>(row)].checked = checked;
    Refresh();
}

void PackSession::EditWidth(const std::string& text) {
    EditSize(width_, text);
}

void PackSession::EditHeight(const std::string& text) {
    EditSize(height_, text);
}

void PackSession::EditSize(std::string& side, const std::string& text) {
    if (text == side) {
        return;
    }
    side = text;
    auto_ = false;
    Refresh();
}

void PackSession::ClickAuto() {
    auto_ = !auto_;
    if (auto_) {
        Refresh();
    }
}

std::vector<int> PackSession::Checked() const {
    std::vector<int> checked;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        if (rows_[row].checked) {
            checked.push_back(static_cast<int>(row));
        }
    }
    return checked;
}

void PackSession::Refresh() {
    if (!auto_) {
        trial_ = RunPackTrial(document_.Wirrel(), Checked(), PageWidth(), PageHeight());
        return;
    }
    if (!rows_.empty()) {
        selected_ = 0;
    }
    PackSize size = AutoPackSize(document_, Checked(), PageWidth(), PageHeight());
    width_ = std::to_string(size.width);
    height_ = std::to_string(size.height);
    trial_ = std::move(size.trial);
}

std::shared_ptr<ICommand> PackSession::Pack(const aurel::DualString& chosen,
                                            SelectionTracker& imageSelection) {
    const int width = PageWidth();
    const int height = PageHeight();
    const std::vector<aurel::DualString> files = PackPageFiles(chosen, trial_.pages);
    std::vector<aurel::ImageSurface> pages = ComposePages(document_, trial_, width, height);
    for (std::size_t page = 0; page < pages.size(); ++page) {
        WirrelTexImage written;
        written.surface = std::move(pages[page]);
        written.Save(files[page]);
    }
    const std::vector<int> checked = Checked();
    auto command = std::make_shared<CommandTexPack>(checked, files, imageSelection, document_, width, height);
    for (auto row = checked.rbegin(); row != checked.rend(); ++row) {
        rows_.erase(rows_.begin() + *row);
    }
    for (const aurel::DualString& file : files) {
        rows_.push_back({FileNameOf(file), false});
    }
    selected_ = std::min(selected_, RowCount() - 1);
    Refresh();
    return command;
}

}  // namespace kovra
