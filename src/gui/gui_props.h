#pragma once
// The property grid: rows of named values, each typed (title, string, float, integer, with or without a
// range, colour). The value under the mouse is edited at once in an edit box laid over its row; when the
// edit ends (focus lost, Enter, or the mouse on another row) the text is checked, and either stored and
// told to the row listeners, or refused with a message and the row left as it was. A colour row opens
// the colour chooser on a click.

#include <functional>
#include <memory>
#include <vector>

#include "base/prompt.h"
#include "gui/gui_edit.h"
#include "gui/gui_props_rows.h"
#include "gui/i_gui_custom_control.h"

namespace kestrel2::win {

class GuiProps : public IGuiCustomControl {
public:
    static constexpr int kOverlayEditId = 1;

    explicit GuiProps(aurel::Prompt& window);

    void AddRow(const aurel::DualString& name, int type, const aurel::DualString& value,
                boost::any constraint = {});
    // Ends any edit without storing it and empties the rows; `count` above 0 reserves that many.
    void Clear(int count = 0);
    void SetValue(int row, const aurel::DualString& text);
    aurel::DualString GetValue(int row) const;
    // On a row that isn't a colour row, these tell so in a message box; GetColor then answers black.
    void SetColor(int row, aurel::Color32 colour);
    aurel::Color32 GetColor(int row);
    void SetEnabled(int row, bool enabled);
    int RowCount() const { return static_cast<int>(rows_.size()); }
    const PropRow& Row(int row) const { return rows_.at(static_cast<std::size_t>(row)); }

    // Called with the grid's id, the row and its new text after each accepted change.
    template <class T>
    void AddChangeListener(T* object, void (T::*method)(int, int, const aurel::DualString&)) {
        rowListeners.Add(object, method);
    }
    aurel::ListenerList<int, int, const aurel::DualString&> rowListeners;

    // The row whose value the overlay edits, or -1.
    int EditRow() const { return editRow_; }
    int HotRow() const { return hotRow_; }
    int ColourRow() const { return colourRow_; }
    // Ends the present edit as losing the focus does.
    void EndEdit();

    // Picks a colour for a colour row; the platform's chooser unless replaced.
    std::function<bool(aurel::Color32&)> chooseColour;
    std::shared_ptr<GuiEdit> overlayEdit;

    void OnPaint(aurel::ImageSurface& target) override;
    void OnInput(InputEvent& event) override;
    void OnShow(bool shown) override;
    void OnCreated() override;

protected:
    void OnResize() override;

private:
    int HitRow(int x, int y) const;
    void BeginEdit(int row);
    void Commit(int row, const aurel::DualString& text);
    void HideEdit();
    void OnEditChanged(int id);
    void OnEditKey(int id, int key);
    void PaintRow(aurel::ImageSurface& target, const PropRowRect& rect);

    aurel::Prompt& window_;
    std::vector<PropRow> rows_;
    std::vector<PropRowRect> rects_;  // rebuilt at each paint, searched by the mouse
    int hotRow_ = -1;
    int colourRow_ = -1;
    int activeColourRow_ = -1;
    int editRow_ = -1;
};

}  // namespace kestrel2::win
