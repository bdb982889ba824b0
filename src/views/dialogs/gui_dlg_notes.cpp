#include "views/dialogs/gui_dlg_notes.h"

#include "commands/editor_commands.h"
#include "gui/gui_button.h"
#include "gui/gui_edit.h"
#include "images/wirrel_tex_image.h"
#include "settings/lang.h"
#include "views/dialogs/dialog_items.h"
#include "views/dialogs/image_files.h"
#include "views/dialogs/picture_view.h"

namespace kovra {

using namespace kestrel2::win;

GuiDlgNotes::GuiDlgNotes(WirrelDoc& document, CommandStack& stack, aurel::Prompt& prompt)
    : IResDialog("Notes", DluX(255), DluY(207)),
      document_(document),
      stack_(stack),
      prompt_(prompt),
      text_(document.notes),
      image_(document.notesImage),
      imageData_(document.notesImageData) {}

void GuiDlgNotes::OnInitDialog() {
    picture_ = MakeItem<PictureView>(*this, kImage, 7, 7, 241, 88, "");
    picture_->clickListeners.Add(this, &GuiDlgNotes::OnImageClicked);
    picture_->dropListeners.Add(this, &GuiDlgNotes::OnImageDropped);
    picture_->AcceptDrops();
    edit_ = MakeItem<GuiEdit>(*this, kText, 7, 101, 241, 80, text_.Utf8(),
                              EditStyle{.multiLine = true, .wantReturn = true});
    MakeItem<GuiButton>(*this, kIdOk, 142, 187, 50, 14, "OK");
    MakeItem<GuiButton>(*this, kIdCancel, 198, 187, 50, 14, "")->SetLang("COMMON", "Cancel");
    ShowImage();
}

void GuiDlgNotes::ShowImage() {
    if (!picture_) {
        return;
    }
    picture_->SetPicture(image_);
    picture_->SetMessage(aurel::Lang("MESSAGES", "NotesNoImage").Utf8() + "\n\n" +
                         aurel::Lang("MESSAGES", "NotesDrag").Utf8());
}

bool GuiDlgNotes::LoadImage(const aurel::DualString& file) {
    WirrelTexImage loaded;
    std::vector<std::uint8_t> bytes;
    if (loaded.Load(file) == 0) {
        // The document keeps the picture as a PNG: at worst the pixels themselves and a header.
        bytes.resize(loaded.surface.ByteSize() + 65536);
        bytes.resize(loaded.SaveMemory(bytes.data(), static_cast<std::uint32_t>(bytes.size())));
    }
    if (bytes.empty()) {
        prompt_.Tell(aurel::Lang("MESSAGES", "Error"), aurel::Lang("MESSAGES", "ErrorLoadImageAny"),
                     aurel::PromptIcon::Error);
        return false;
    }
    image_ = std::move(loaded.surface);
    imageData_ = std::move(bytes);
    ShowImage();
    return true;
}

void GuiDlgNotes::OnImageClicked(int) {
    const aurel::DualString file = ChooseImageToOpen(this, aurel::DualString("Notes"));
    if (!file.empty()) {
        LoadImage(file);
    }
}

void GuiDlgNotes::OnImageDropped(const aurel::DualString& file) {
    LoadImage(file);
}

void GuiDlgNotes::Accept() {
    if (edit_) {
        text_ = edit_->GetText();
    }
    stack_.AddCommand(std::make_shared<CommandEditorNotes>(document_, text_, image_, imageData_));
}

void GuiDlgNotes::OnCommand(int id) {
    if (id == kIdOk) {
        Accept();
        EndDialog(id);
    } else if (id == kIdCancel) {
        EndDialog(id);
    }
}

}  // namespace kovra
