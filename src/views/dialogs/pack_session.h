#pragma once
// What the pack dialog holds and decides, without a window: a row per document image with its check
// box, the header's state, the page size edits and Auto, and the trial that stands behind the preview.
// Every change runs Auto size (when on) and a trial at once. Pack writes the pages and makes the command;
// the packed rows then give way to a row per new page file, unchecked.

#include <memory>
#include <string>
#include <vector>

#include "commands/command.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "textures/pack_trial.h"

namespace kovra {

// The files of the pages: the chosen name for one page; for several, the page number between the
// chosen name's stem and its extension.
std::vector<aurel::DualString> PackPageFiles(const aurel::DualString& chosen, int pages);

class PackSession {
public:
    static constexpr int kChecked = 0;
    static constexpr int kUnchecked = 1;
    static constexpr int kMixed = 2;

    // A checked row per image of the document, the sizes at 1024, Auto on, and the first Auto size.
    explicit PackSession(WirrelDoc& document);

    int RowCount() const { return static_cast<int>(rows_.size()); }
    const std::string& RowText(int row) const { return rows_[static_cast<std::size_t>(row)].text; }
    bool RowChecked(int row) const { return rows_[static_cast<std::size_t>(row)].checked; }
    int Header() const;
    // The row whose image the image view shows, -1 for none.
    int Selected() const { return selected_; }
    const std::string& WidthText() const { return width_; }
    const std::string& HeightText() const { return height_; }
    bool Auto() const { return auto_; }
    const PackTrial& Trial() const { return trial_; }
    bool CanPack() const { return trial_.Stands(); }
    int PageWidth() const;
    int PageHeight() const;

    void Select(int row) { selected_ = row; }
    void ClickHeader();
    void SetRowChecked(int row, bool checked);
    // A size edit's text at the end of an edit: a changed text turns Auto off and runs a trial.
    void EditWidth(const std::string& text);
    void EditHeight(const std::string& text);
    void ClickAuto();

    // The checked images' indexes, ascending.
    std::vector<int> Checked() const;
    // Writes the standing trial's pages under the chosen name and answers the pack command, already
    // applied, for the stack; the rows follow the document's new images.
    std::shared_ptr<ICommand> Pack(const aurel::DualString& chosen, SelectionTracker& imageSelection);

private:
    struct Row {
        std::string text;
        bool checked;
    };

    void EditSize(std::string& side, const std::string& text);
    // Auto size when it is on, else a trial at the sizes in the edits.
    void Refresh();

    WirrelDoc& document_;
    std::vector<Row> rows_;
    int selected_ = -1;
    std::string width_ = "1024";
    std::string height_ = "1024";
    bool auto_ = true;
    PackTrial trial_;
};

}  // namespace kovra
