#pragma once
// The native drop-down list. Items are plain texts or language entries, which ApplyLanguage reads again.
// Each choice by the user is one notification, to the change listeners with the id, then the parent's
// command listeners; SetSel from the program reports nothing.

#include <string>
#include <vector>

#include "gui/i_gui_control.h"

namespace kestrel2::win {

class GuiComboBox : public IGuiControl {
public:
    void AddString(const aurel::DualString& text);
    // An item whose text is the language entry, in the control's language section.
    void AddLangString(const std::string& key);
    void Clear();
    int GetCount() const { return static_cast<int>(items_.size()); }
    // The index of the current item, -1 for none.
    int GetSel() const { return selection_; }
    void SetSel(int index);
    aurel::DualString GetItemText(int index) const;

    void ApplyLanguage() override;

protected:
    void OnCreate() override;

private:
    struct Item {
        aurel::DualString text;
        std::string key;  // empty for a plain text
    };

    void Fill();

    std::vector<Item> items_;
    int selection_ = -1;
};

}  // namespace kestrel2::win
