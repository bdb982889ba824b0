#include "gui/gui_list_box.h"

#include <algorithm>
#include <cmath>

#include "gui/virtual_keys.h"
#include "settings/theme.h"

namespace kestrel2::win {

GuiListBox::GuiListBox(aurel::Prompt& window) : window_(window) {}

void GuiListBox::OnCreated() {
    itemEdit = MakeChild<GuiEdit>(*this, kItemEditId, 0, 0, 10, 10);
    itemEdit->SetFont(font);
    itemEdit->Show(false);
    itemEdit->changeListeners.Add(this, &GuiListBox::OnEditChanged);
    itemEdit->keyListeners.Add(this, &GuiListBox::OnEditKey);
}

int GuiListBox::AddItem(const aurel::DualString& text, int id, std::intptr_t value) {
    InsertItem(GetCount(), text, id, value);
    return GetCount() - 1;
}

void GuiListBox::InsertItem(int index, const aurel::DualString& text, int id, std::intptr_t value) {
    index = std::clamp(index, 0, GetCount());
    items_.insert(items_.begin() + index, std::make_shared<ItemInfo>(ItemInfo{text, id, value}));
    if (selection_ >= index) {
        ++selection_;
    }
    Redraw();
}

void GuiListBox::RemoveItem(int index) {
    if (index < 0 || index >= GetCount()) {
        return;
    }
    CloseEdit();
    items_.erase(items_.begin() + index);
    if (selection_ == index) {
        selection_ = -1;
    } else if (selection_ > index) {
        --selection_;
    }
    hot_ = -1;
    top_ = std::clamp(top_, 0, std::max(0, GetCount() - 1));
    Redraw();
}

void GuiListBox::Clear() {
    CloseEdit();
    items_.clear();
    selection_ = hot_ = -1;
    top_ = 0;
    Redraw();
}

void GuiListBox::SetSel(int index) {
    selection_ = index >= 0 && index < GetCount() ? index : -1;
    if (selection_ >= 0) {
        ScrollTo(selection_);
    }
    Redraw();
}

void GuiListBox::ScrollTo(int index) {
    const int rows = std::max(1, (ClientHeight() - Scaled(2)) / Scaled(kItemHeight));
    if (index < top_) {
        top_ = index;
    } else if (index >= top_ + rows) {
        top_ = index - rows + 1;
    }
}

int GuiListBox::ItemAt(int x, int y) const {
    if (x < 0 || x >= ClientWidth() || y < Scaled(1)) {
        return -1;
    }
    const int index = top_ + (y - Scaled(1)) / Scaled(kItemHeight);
    return index < GetCount() ? index : -1;
}

void GuiListBox::OnInput(InputEvent& event) {
    switch (event.type) {
        case kInputMouseMove: {
            const int hot = ItemAt(event.x, event.y);
            if (hot != hot_) {
                hot_ = hot;
                Redraw();
            }
            break;
        }
        case kInputMouseLeft:
            if (hot_ >= 0) {
                hot_ = -1;
                Redraw();
            }
            break;
        case kInputButtonDown: {
            const int index = ItemAt(event.x, event.y);
            if (event.button == kButtonLeft && index >= 0 && index != selection_) {
                selection_ = index;
                Redraw();
                Notify();
            }
            break;
        }
        case kInputDoubleClick: {
            const int index = ItemAt(event.x, event.y);
            if (editable_ && event.button == kButtonLeft && index >= 0) {
                BeginEdit(index);
            }
            break;
        }
        case kInputWheel: {
            const int step = event.dy > 0 ? 1 : event.dy < 0 ? -1 : 0;
            const int rows = std::max(1, (ClientHeight() - Scaled(2)) / Scaled(kItemHeight));
            const int top = std::clamp(top_ + step, 0, std::max(0, GetCount() - rows));
            if (top != top_) {
                top_ = top;
                Redraw();
            }
            break;
        }
        case kInputKeyDown:
        case kInputKeyUp:
            if (event.key == kVkDelete) {
                keyListeners.Call(Id(), event.key, event.type == kInputKeyDown);
            }
            break;
        default:
            break;
    }
}

void GuiListBox::BeginEdit(int index) {
    if (!itemEdit || index < 0 || index >= GetCount()) {
        return;
    }
    ScrollTo(index);
    editIndex_ = index;
    const double ratio = PixelRatio();
    const int top = static_cast<int>(std::lround((Scaled(1) + (index - top_) * Scaled(kItemHeight)) / ratio));
    itemEdit->SetPos(1, top, width - 2, kItemHeight);
    itemEdit->SetText(Item(index).text);
    itemEdit->Show(true);
    itemEdit->SetFocus();
    itemEdit->SelectAll();
}

std::optional<std::string> GuiListBox::Check(int index, const aurel::DualString& text) const {
    for (int i = 0; i < GetCount(); ++i) {
        if (i != index && Item(i).text == text) {
            return "There is already an item named \"" + text.Utf8() + "\"";
        }
    }
    if (maxLength_ > 0 && static_cast<int>(text.Utf16().size()) > maxLength_) {
        return "This string can be no more than " + std::to_string(maxLength_) + " characters long.";
    }
    for (const ItemValidator& validator : validators_) {
        if (auto refusal = validator(index, text)) {
            return refusal;
        }
    }
    return std::nullopt;
}

void GuiListBox::EndEdit() {
    if (editIndex_ < 0 || !itemEdit) {
        return;
    }
    const int index = editIndex_;
    const aurel::DualString text = itemEdit->GetText();
    CloseEdit();
    if (index >= GetCount() || text == Item(index).text) {
        return;
    }
    if (const auto refusal = Check(index, text)) {
        window_.Tell("Invalid Input", *refusal);
        return;
    }
    items_[static_cast<std::size_t>(index)]->text = text;
    Redraw();
    editListeners.Call(Id(), index, text);
}

void GuiListBox::CloseEdit() {
    editIndex_ = -1;
    if (itemEdit) {
        itemEdit->Show(false);
    }
}

void GuiListBox::OnEditChanged(int) {
    EndEdit();
}

void GuiListBox::OnEditKey(int, int key) {
    if (key == kVkReturn) {
        EndEdit();
    } else if (key == kVkEscape) {
        CloseEdit();
    }
}

void GuiListBox::OnPaint(aurel::ImageSurface& target) {
    const aurel::ThemeUi& ui = aurel::CurrentTheme().ui;
    const int w = target.Width();
    const int h = target.Height();
    target.Clear(ui.listBg);
    aurel::TextFont face = font.ToTextFont();
    face.size = Scaled(font.size);
    aurel::TextStyle style;
    style.vertical = aurel::TextAlign::Centre;
    const int rowHeight = Scaled(kItemHeight);
    for (int index = top_, y = Scaled(1); index < GetCount() && y < h; ++index, y += rowHeight) {
        const bool selected = index == selection_;
        if (selected) {
            target.FillRect(Scaled(1), y, w - Scaled(1) - 1, y + rowHeight - 1, ui.listSel);
        } else if (index == hot_) {
            target.FillRect(Scaled(1), y, w - Scaled(1) - 1, y + rowHeight - 1,
                            aurel::Color32(ui.listSel.R(), ui.listSel.G(), ui.listSel.B(), 40));
        }
        target.DrawText(Item(index).text.Utf8(), Scaled(5), y, w - Scaled(10), rowHeight,
                        selected ? ui.listFontSelColor : ui.listFontColor, face, style);
    }
    target.DrawRect(0, 0, w - 2, h - 2, ui.listBorder);
}

}  // namespace kestrel2::win
