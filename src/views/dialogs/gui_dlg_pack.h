#pragma once
// Pack Textures: the images to pack with their check boxes, the selected image, the preview of the pages
// that a pack would write (or the message that blocks it), the page size with Auto, and "Pack...", which
// writes the pages and hands the pack command to the stack. The dialog stays open after a pack.

#include <memory>

#include "commands/command_stack.h"
#include "doc/selection_tracker.h"
#include "gui/i_res_dialog.h"
#include "views/dialogs/pack_session.h"

namespace kestrel2::win {
class GuiCheckbox;
class GuiEdit;
}  // namespace kestrel2::win

namespace kovra {

class PictureView;
class RowList;

class GuiDlgPack : public kestrel2::win::IResDialog {
public:
    enum Item : int { kHeader = 1001, kList, kImage, kPreview, kWidth, kHeight, kAuto, kPack };

    GuiDlgPack(WirrelDoc& document, CommandStack& stack, SelectionTracker& imageSelection);

    PackSession& Session() { return session_; }
    // Packs into the file chosen (its page number added when there are several pages).
    void PackInto(const aurel::DualString& file);

protected:
    void OnInitDialog() override;
    void OnCommand(int id) override;

private:
    void OnRowChecked(int row);
    void OnRowSelected(int row);
    // Shows the session in every control.
    void Refresh();
    void ShowPreview();

    WirrelDoc& document_;
    CommandStack& stack_;
    SelectionTracker& imageSelection_;
    PackSession session_;
    std::shared_ptr<kestrel2::win::GuiCheckbox> header_, auto_;
    std::shared_ptr<RowList> list_;
    std::shared_ptr<PictureView> image_, preview_;
    std::shared_ptr<kestrel2::win::GuiEdit> width_, height_;
    std::shared_ptr<kestrel2::win::IGuiWindow> pack_;
};

}  // namespace kovra
