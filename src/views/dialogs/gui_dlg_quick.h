#pragma once
// The context help: a modeless page of QuickHelp.nfo that follows what the editor hands it, usually the
// page of the edit mode. A key without a page leaves the text as it was.

#include <memory>
#include <string>

#include "views/dialogs/modeless_dialog.h"
#include "views/dialogs/quick_help.h"

namespace kestrel2::win {
class GuiEdit;
}

namespace kovra {

class GuiDlgQuick : public ModelessDialog {
public:
    static constexpr int kText = 40015;

    // Reads the help file; the first page shown is the texture mode's.
    GuiDlgQuick(const std::string& helpFile, aurel::SettingsStore& settings);

    void ShowPage(const std::string& key);
    const std::string& Text() const { return text_; }

protected:
    void OnInitDialog() override;
    void OnCommand(int id) override;

private:
    QuickHelp help_;
    std::string text_;
    std::shared_ptr<kestrel2::win::GuiEdit> view_;
};

}  // namespace kovra
