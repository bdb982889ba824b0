#pragma once
// A list of items that the program draws itself: each row an ItemInfo (its text, an id and a value of
// the owner's), one selected, one under the mouse. A click selects and is told to the change listeners
// once per new selection; setting the selection from the program tells nothing. An editable list opens
// an edit box over a row on a double click; the typed name is checked (unique, not too long, and the
// owner's validators) and, when it passes, stored and told to the edit listeners. The Delete key goes
// to the key listeners, down and up.

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/prompt.h"
#include "gui/gui_edit.h"
#include "gui/i_gui_custom_control.h"

namespace kestrel2::win {

struct ItemInfo {
    aurel::DualString text;
    int id = 0;
    std::intptr_t value = 0;
};

// A check of a name typed over the item: the refusal's text, or nothing when the name may stand.
using ItemValidator = std::function<std::optional<std::string>(int index, const aurel::DualString& text)>;

class GuiListBox : public IGuiCustomControl {
public:
    static constexpr int kItemEditId = 1;
    static constexpr int kItemHeight = 18;

    explicit GuiListBox(aurel::Prompt& window);

    // Appends; answers the new item's index.
    int AddItem(const aurel::DualString& text, int id, std::intptr_t value = 0);
    void InsertItem(int index, const aurel::DualString& text, int id, std::intptr_t value = 0);
    void RemoveItem(int index);
    void Clear();
    int GetCount() const { return static_cast<int>(items_.size()); }
    const ItemInfo& Item(int index) const { return *items_.at(static_cast<std::size_t>(index)); }
    // The selected index, -1 for none.
    int GetSel() const { return selection_; }
    void SetSel(int index);
    int HotItem() const { return hot_; }
    // The item under a client point, or -1.
    int ItemAt(int x, int y) const;

    void SetEditable(bool editable) { editable_ = editable; }
    // The longest name the in-place edit accepts; 0 for no limit.
    void SetMaxLength(int characters) { maxLength_ = characters; }
    void AddValidator(ItemValidator validator) { validators_.push_back(std::move(validator)); }
    // Opens the edit over the item, as a double click on it does.
    void BeginEdit(int index);
    // Ends the edit as losing the focus does: checked, then stored or refused.
    void EndEdit();
    int EditIndex() const { return editIndex_; }
    std::shared_ptr<GuiEdit> itemEdit;

    aurel::ListenerList<int, int, const aurel::DualString&> editListeners;  // id, index, new name
    aurel::ListenerList<int, int, bool> keyListeners;                       // id, virtual key, down

    void OnPaint(aurel::ImageSurface& target) override;
    void OnInput(InputEvent& event) override;
    void OnCreated() override;

private:
    std::optional<std::string> Check(int index, const aurel::DualString& text) const;
    void ScrollTo(int index);
    void OnEditChanged(int id);
    void OnEditKey(int id, int key);
    void CloseEdit();

    aurel::Prompt& window_;
    std::vector<std::shared_ptr<ItemInfo>> items_;
    std::vector<ItemValidator> validators_;
    int selection_ = -1;
    int hot_ = -1;
    int top_ = 0;  // the first item shown
    bool editable_ = false;
    int maxLength_ = 0;
    int editIndex_ = -1;
};

}  // namespace kestrel2::win
