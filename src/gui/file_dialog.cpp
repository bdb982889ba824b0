#include "gui/file_dialog.h"

#include <QFileDialog>
#include <QStringList>

#include <algorithm>
#include <filesystem>

#include "base/kestrel_exception.h"
#include "gui/i_gui_window.h"

namespace kestrel2::win {

namespace {

// A dialog with the filters, the preselected one chosen.
void Prepare(QFileDialog& dialog, const std::vector<std::string>& filters, int index) {
    QStringList names;
    for (const std::string& filter : filters) {
        names << QString::fromStdString(filter);
    }
    dialog.setNameFilters(names);
    dialog.selectNameFilter(names[index - 1]);
}

int ChosenIndex(const QFileDialog& dialog) {
    return static_cast<int>(dialog.nameFilters().indexOf(dialog.selectedNameFilter())) + 1;
}

}  // namespace

FileDialog::FileDialog(std::vector<FileFilter> filters, int defaultIndex)
    : filters_(std::move(filters)), index_(defaultIndex) {
    if (defaultIndex < 1 || defaultIndex > static_cast<int>(filters_.size())) {
        throw aurel::KestrelUsageException("Invalid default filter index %d", defaultIndex);
    }
}

std::vector<std::string> FileDialog::NameFilters() const {
    std::vector<std::string> names;
    for (const FileFilter& filter : filters_) {
        std::string patterns = filter.patterns;
        std::replace(patterns.begin(), patterns.end(), ';', ' ');
        names.push_back(filter.description.Utf8() + " (" + patterns + ")");
    }
    return names;
}

std::vector<aurel::DualString> FileDialog::Open(IGuiWindow* owner, const aurel::DualString& title,
                                                bool multiple) {
    QFileDialog dialog(DialogOwner(owner), QString::fromUtf8(title.Utf8()));
    Prepare(dialog, NameFilters(), index_);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(multiple ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    std::vector<aurel::DualString> chosen;
    if (dialog.exec() == QDialog::Accepted) {
        index_ = ChosenIndex(dialog);
        for (const QString& file : dialog.selectedFiles()) {
            chosen.emplace_back(file.toStdString());
        }
    }
    return chosen;
}

aurel::DualString FileDialog::Save(IGuiWindow* owner, const aurel::DualString& title,
                                   const aurel::DualString& name) {
    QFileDialog dialog(DialogOwner(owner), QString::fromUtf8(title.Utf8()));
    Prepare(dialog, NameFilters(), index_);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(QString::fromUtf8(name.Utf8()));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return {};
    }
    index_ = ChosenIndex(dialog);
    return aurel::DualString(
        WithExtension(dialog.selectedFiles().front().toStdString(), filters_[index_ - 1].patterns));
}

std::string WithExtension(const std::string& path, const std::string& patterns) {
    if (std::filesystem::path(path).has_extension()) {
        return path;
    }
    const std::string first = patterns.substr(0, patterns.find(';'));
    if (first.size() < 3 || first.compare(0, 2, "*.") != 0 || first.find('*', 1) != std::string::npos) {
        return path;
    }
    return path + first.substr(1);
}

}  // namespace kestrel2::win
