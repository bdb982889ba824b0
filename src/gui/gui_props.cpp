#include "gui/gui_props.h"

#include <cmath>
#include <utility>

#include "gui/colour_chooser.h"
#include "gui/gradient.h"
#include "gui/virtual_keys.h"
#include "settings/theme.h"

namespace kestrel2::win {

namespace {

constexpr aurel::Color32 kBorder = 0xFF808080;
constexpr aurel::Color32 kDisabledText = 0xFF909090;

bool IsValueRow(const PropRow& row) {
    return row.type != kPropSeparator && row.type != kPropTitle;
}

}  // namespace

GuiProps::GuiProps(aurel::Prompt& window) : window_(window) {
    chooseColour = [this](aurel::Color32& colour) { return ChooseColour(this, colour); };
}

void GuiProps::OnCreated() {
    overlayEdit = MakeChild<GuiEdit>(*this, kOverlayEditId, 0, 0, 10, 10);
    overlayEdit->SetFont(font);
    overlayEdit->Show(false);
    overlayEdit->changeListeners.Add(this, &GuiProps::OnEditChanged);
    overlayEdit->keyListeners.Add(this, &GuiProps::OnEditKey);
}

void GuiProps::AddRow(const aurel::DualString& name, int type, const aurel::DualString& value,
                      boost::any constraint) {
    PropRow row;
    row.name = name;
    row.type = type;
    row.value = type == kPropColor ? aurel::DualString(ColorText(boost::any_cast<aurel::Color32>(constraint)))
                                   : value;
    row.constraint = std::move(constraint);
    rows_.push_back(std::move(row));
    rects_ = LayOutPropRows(rows_, ClientWidth(), PixelRatio());
    Redraw();
}

void GuiProps::Clear(int count) {
    editRow_ = -1;
    HideEdit();
    hotRow_ = colourRow_ = activeColourRow_ = -1;
    rows_.clear();
    rects_.clear();
    if (count > 0) {
        rows_.reserve(static_cast<std::size_t>(count));
    }
    Redraw();
}

void GuiProps::SetValue(int row, const aurel::DualString& text) {
    rows_.at(static_cast<std::size_t>(row)).value = text;
    if (row == editRow_ && overlayEdit) {
        overlayEdit->SetText(text);
        overlayEdit->SelectAll();
    }
    Redraw();
}

aurel::DualString GuiProps::GetValue(int row) const {
    return Row(row).value;
}

void GuiProps::SetColor(int row, aurel::Color32 colour) {
    PropRow& entry = rows_.at(static_cast<std::size_t>(row));
    if (entry.type != kPropColor) {
        window_.Tell("Invalid input", "This is not a color property. Can't set color.");
        return;
    }
    entry.constraint = colour;
    entry.value = ColorText(colour);
    Redraw();
}

aurel::Color32 GuiProps::GetColor(int row) {
    const PropRow& entry = Row(row);
    if (entry.type != kPropColor) {
        window_.Tell("Error", "This is not a color property. Can't get color.");
        return aurel::Color32(0, 0, 0);
    }
    return boost::any_cast<aurel::Color32>(entry.constraint);
}

void GuiProps::SetEnabled(int row, bool enabled) {
    rows_.at(static_cast<std::size_t>(row)).enabled = enabled;
    if (!enabled && row == editRow_) {
        editRow_ = -1;
        HideEdit();
    }
    Redraw();
}

int GuiProps::HitRow(int x, int y) const {
    for (const PropRowRect& rect : rects_) {
        if (rect.row == editRow_) {
            continue;
        }
        if (x >= Scaled(1) && x < ClientWidth() - Scaled(1) && y >= rect.top && y <= rect.bottom) {
            return rect.row;
        }
    }
    return -1;
}

void GuiProps::OnInput(InputEvent& event) {
    if (event.type == kInputMouseMove) {
        const std::pair before{hotRow_, colourRow_};
        hotRow_ = colourRow_ = -1;
        const int row = HitRow(event.x, event.y);
        if (row >= 0 && Row(row).type == kPropColor) {
            colourRow_ = row;
        } else if (row >= 0) {
            hotRow_ = row;
            if (Row(row).enabled && IsValueRow(Row(row))) {
                BeginEdit(row);
            } else {
                EndEdit();
            }
        }
        if (before != std::pair{hotRow_, colourRow_}) {
            Redraw();
        }
    } else if (event.type == kInputMouseLeft) {
        if (colourRow_ >= 0) {
            colourRow_ = -1;
            Redraw();
        }
    } else if (event.type == kInputButtonDown && event.button == kButtonLeft) {
        const int row = HitRow(event.x, event.y);
        if (row < 0 || Row(row).type != kPropColor || !Row(row).enabled) {
            return;
        }
        EndEdit();
        activeColourRow_ = row;
        aurel::Color32 colour = GetColor(row);
        const aurel::Color32 before = colour;
        const bool chosen = chooseColour(colour);
        activeColourRow_ = -1;
        if (chosen && !(colour == before) && row < RowCount()) {
            SetColor(row, colour);
            rowListeners.Call(Id(), row, GetValue(row));
        }
    }
}

void GuiProps::BeginEdit(int row) {
    if (editRow_ == row) {
        return;
    }
    EndEdit();
    if (!overlayEdit) {
        return;
    }
    editRow_ = row;
    for (const PropRowRect& rect : rects_) {
        if (rect.row != row) {
            continue;
        }
        // The edit is a native window: its place is in layout pixels.
        const double ratio = PixelRatio();
        const int left = static_cast<int>(std::lround((rect.valueLeft + Scaled(3)) / ratio));
        const int top = static_cast<int>(std::lround((rect.top + Scaled(1)) / ratio));
        const int right = static_cast<int>(std::lround((rect.valueRight + 1) / ratio));
        const int bottom = static_cast<int>(std::lround((rect.bottom + 1) / ratio));
        overlayEdit->SetPos(left, top, right - left, bottom - top);
    }
    overlayEdit->SetText(Row(row).value);
    overlayEdit->Show(true);
    overlayEdit->SetFocus();
    overlayEdit->SelectAll();
    Redraw();
}

void GuiProps::EndEdit() {
    if (editRow_ < 0 || !overlayEdit) {
        return;
    }
    const int row = editRow_;
    editRow_ = -1;
    const aurel::DualString text = overlayEdit->GetText();
    HideEdit();
    Commit(row, text);
}

void GuiProps::Commit(int row, const aurel::DualString& text) {
    if (row >= RowCount() || text == Row(row).value) {
        return;
    }
    const PropRow& entry = Row(row);
    if (const auto refusal = ValidateProp(entry.type, entry.constraint, text.Utf8(), true)) {
        window_.Tell(refusal->title, refusal->text);
        if (overlayEdit) {
            overlayEdit->SetText(entry.value);
        }
        if (HasFocus() || (overlayEdit && overlayEdit->HasFocus())) {
            BeginEdit(row);
        }
        return;
    }
    rows_[static_cast<std::size_t>(row)].value = text;
    Redraw();
    rowListeners.Call(Id(), row, text);
}

void GuiProps::HideEdit() {
    if (overlayEdit) {
        overlayEdit->Show(false);
    }
}

void GuiProps::OnEditChanged(int) {
    EndEdit();
}

void GuiProps::OnEditKey(int, int key) {
    if (key == kVkReturn) {
        // The row stays in the edit, with what it now holds.
        const int row = editRow_;
        EndEdit();
        if (editRow_ < 0 && row >= 0 && row < RowCount() && Row(row).enabled) {
            BeginEdit(row);
        }
    } else if (key == kVkEscape && editRow_ >= 0 && overlayEdit) {
        overlayEdit->SetText(Row(editRow_).value);
        overlayEdit->SelectAll();
    }
}

void GuiProps::OnShow(bool shown) {
    if (!shown) {
        editRow_ = -1;
        HideEdit();
    }
}

void GuiProps::OnResize() {
    rects_ = LayOutPropRows(rows_, ClientWidth(), PixelRatio());
}

void GuiProps::OnPaint(aurel::ImageSurface& target) {
    const aurel::ThemeUi& ui = aurel::CurrentTheme().ui;
    const int w = target.Width();
    const int h = target.Height();
    FillGradientH(target, 0, 0, w - 1, h - 1, ui.propsGrad1, ui.propsGrad2);
    target.DrawRect(0, 0, w - 2, h - 2, kBorder);
    rects_ = LayOutPropRows(rows_, w, PixelRatio());
    for (const PropRowRect& rect : rects_) {
        PaintRow(target, rect);
    }
}

void GuiProps::PaintRow(aurel::ImageSurface& target, const PropRowRect& rect) {
    const aurel::ThemeUi& ui = aurel::CurrentTheme().ui;
    const PropRow& row = Row(rect.row);
    const int one = Scaled(1);
    target.FillRect(one, rect.top, target.Width() - 2 * one, rect.bottom,
                    row.enabled ? ui.editBg : ui.propsGrad2);
    aurel::TextFont face = font.ToTextFont();
    face.size = Scaled(font.size);
    aurel::TextStyle style;
    style.vertical = aurel::TextAlign::Centre;
    const int bandHeight = rect.bottom - rect.top + 1;
    if (row.type == kPropTitle) {
        face.bold = true;
        target.DrawText(row.name.Utf8(), Scaled(4), rect.top, target.Width() - Scaled(8), bandHeight,
                        ui.propsTitleFontColor, face, style);
        return;
    }
    target.DrawText(row.name.Utf8(), Scaled(4), rect.top, rect.valueLeft - Scaled(6), bandHeight,
                    row.enabled ? ui.propsNameFontColor : kDisabledText, face, style);
    if (row.type == kPropColor) {
        // A sample of the colour, opaque, over a stripe that runs from it to its darker half.
        const aurel::Color32 colour = boost::any_cast<aurel::Color32>(row.constraint);
        const aurel::Color32 solid(colour.R(), colour.G(), colour.B());
        const aurel::Color32 dark(colour.R() / 2, colour.G() / 2, colour.B() / 2);
        const int left = rect.valueLeft + Scaled(2);
        const int right = rect.valueRight - Scaled(2);
        const int stripe = rect.bottom - Scaled(5);
        target.FillRect(left, rect.top + Scaled(3), right, stripe - 1, solid);
        FillGradientH(target, left, stripe, right, rect.bottom - Scaled(3), solid, dark);
        const aurel::Color32 frame = rect.row == colourRow_ ? ui.propsTitleFontColor : kBorder;
        target.DrawRect(left - one, rect.top + Scaled(2), right, rect.bottom - Scaled(3), frame);
        return;
    }
    target.DrawText(row.value.Utf8(), rect.valueLeft + Scaled(4), rect.top,
                    rect.valueRight - rect.valueLeft - Scaled(4), bandHeight,
                    row.enabled ? ui.propsFontColor : kDisabledText, face, style);
}

}  // namespace kestrel2::win
