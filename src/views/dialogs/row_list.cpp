#include "views/dialogs/row_list.h"

#include <algorithm>

#include "gui/text_drawer.h"
#include "settings/theme.h"

namespace kovra {

using kestrel2::win::InputEvent;

void RowList::SetRows(std::vector<ListRow> rows) {
    rows_ = std::move(rows);
    selection_ = std::min(selection_, static_cast<int>(rows_.size()) - 1);
    ScrollBy(0);
    Redraw();
}

void RowList::SetSel(int row) {
    selection_ = row;
    if (row >= 0 && row < top_) {
        top_ = row;
    } else if (row >= top_ + VisibleRows()) {
        top_ = row - VisibleRows() + 1;
    }
    Redraw();
}

int RowList::VisibleRows() const {
    return std::max(1, (ClientHeight() - 2) / RowHeight());
}

void RowList::ScrollBy(int rows) {
    const int last = std::max(0, static_cast<int>(rows_.size()) - VisibleRows());
    top_ = std::clamp(top_ + rows, 0, last);
}

int RowList::RowAt(int y) const {
    const int row = top_ + (y - 1) / RowHeight();
    return y >= 1 && row < static_cast<int>(rows_.size()) ? row : -1;
}

void RowList::OnPaint(aurel::ImageSurface& target) {
    const aurel::ThemeUi& ui = aurel::CurrentTheme().ui;
    const int width = ClientWidth();
    const int height = ClientHeight();
    target.Clear(ui.listBg);
    kestrel2::win::TextDrawer text(target);
    text.vertical = aurel::TextAlign::Centre;
    kestrel2::win::Font rowFont = font;
    rowFont.size = Scaled(font.size);
    const int rowHeight = RowHeight();
    const int box = Scaled(11);
    for (int row = top_; row < static_cast<int>(rows_.size()); ++row) {
        const int y = 1 + (row - top_) * rowHeight;
        if (y >= height - 1) {
            break;
        }
        const ListRow& item = rows_[static_cast<std::size_t>(row)];
        const bool selected = row == selection_;
        if (selected) {
            target.FillRect(1, y, width - 2, y + rowHeight - 1, ui.listSel);
        }
        int x = Scaled(4);
        if (checkBoxes_) {
            const int boxTop = y + (rowHeight - box) / 2;
            target.FillRect(x, boxTop, x + box - 1, boxTop + box - 1, 0xFFFFFFFF);
            target.DrawRect(x, boxTop, x + box - 1, boxTop + box - 1, ui.listBorder);
            if (item.checked) {
                target.DrawLineF(static_cast<float>(x + box / 5), static_cast<float>(boxTop + box / 2),
                                 static_cast<float>(x + box * 2 / 5),
                                 static_cast<float>(boxTop + box * 4 / 5), ui.listFontColor, 1.0f, true);
                target.DrawLineF(static_cast<float>(x + box * 2 / 5),
                                 static_cast<float>(boxTop + box * 4 / 5),
                                 static_cast<float>(x + box * 4 / 5), static_cast<float>(boxTop + box / 5),
                                 ui.listFontColor, 1.0f, true);
            }
            x += box + Scaled(5);
        }
        text.color = selected ? ui.listFontSelColor : (item.colour != 0 ? item.colour : ui.listFontColor);
        text.DrawText(item.text, x, y, width - x - 2, rowHeight, rowFont);
    }
    target.DrawRect(0, 0, width - 2, height - 2, ui.listBorder);
}

void RowList::OnInput(InputEvent& event) {
    if (event.type == kestrel2::win::kInputWheel) {
        ScrollBy(event.dy > 0 ? 3 : -3);
        Redraw();
        return;
    }
    if (event.type != kestrel2::win::kInputButtonDown || event.button != kestrel2::win::kButtonLeft) {
        return;
    }
    const int row = RowAt(event.y);
    if (row < 0) {
        return;
    }
    if (checkBoxes_ && event.x < Scaled(4) + Scaled(11) + Scaled(3)) {
        ListRow& item = rows_[static_cast<std::size_t>(row)];
        item.checked = !item.checked;
        Redraw();
        checkListeners.Call(row);
        return;
    }
    SetSel(row);
    selectListeners.Call(row);
}

}  // namespace kovra
