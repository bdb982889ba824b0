#pragma once
// The document's notes: a text and a picture dropped on the dialog or chosen from a file (a click on the
// picture asks for one). OK hands both to the stack in one
// command; Cancel leaves the document as it was.

#include <cstdint>
#include <memory>
#include <vector>

#include "base/prompt.h"
#include "commands/command_stack.h"
#include "doc/wirrel_doc.h"
#include "gui/i_res_dialog.h"

namespace kestrel2::win {
class GuiEdit;
}

namespace kovra {

class PictureView;

class GuiDlgNotes : public kestrel2::win::IResDialog {
public:
    static constexpr int kImage = 40027;
    static constexpr int kText = 40015;

    GuiDlgNotes(WirrelDoc& document, CommandStack& stack, aurel::Prompt& prompt);

    // Loads the picture from the file; a failure is told and changes nothing. True when it loaded.
    bool LoadImage(const aurel::DualString& file);
    // The text box's text, the picture and its bytes go to the stack as one command.
    void Accept();

protected:
    void OnInitDialog() override;
    void OnCommand(int id) override;

private:
    void OnImageClicked(int id);
    void OnImageDropped(const aurel::DualString& file);
    void ShowImage();

    WirrelDoc& document_;
    CommandStack& stack_;
    aurel::Prompt& prompt_;
    aurel::DualString text_;
    aurel::ImageSurface image_;
    std::vector<std::uint8_t> imageData_;
    std::shared_ptr<PictureView> picture_;
    std::shared_ptr<kestrel2::win::GuiEdit> edit_;
};

}  // namespace kovra
