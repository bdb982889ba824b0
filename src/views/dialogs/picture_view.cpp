#include "views/dialogs/picture_view.h"

#include "gui/file_drops.h"
#include "gui/text_drawer.h"
#include "settings/theme.h"
#include "views/dialogs/pack_preview.h"

namespace kovra {

void PictureView::SetPicture(const aurel::ImageSurface& picture) {
    picture_ = picture;
    Redraw();
}

void PictureView::SetMessage(const std::string& message) {
    message_ = message;
    Redraw();
}

void PictureView::AcceptDrops() {
    kestrel2::win::AcceptFileDrops(*this, dropListeners);
}

void PictureView::OnPaint(aurel::ImageSurface& target) {
    const aurel::ThemeUi& ui = aurel::CurrentTheme().ui;
    const int width = ClientWidth();
    const int height = ClientHeight();
    target.Clear(ui.listBg);
    if (!picture_.IsEmpty()) {
        const PreviewBox box = FitBox(picture_.Width(), picture_.Height(), width - 4, height - 4);
        picture_.Blit(0.0f, 0.0f, static_cast<float>(picture_.Width()), static_cast<float>(picture_.Height()),
                      target, box.left + 2, box.top + 2, box.right - box.left, box.bottom - box.top, 1.0f,
                      true);
    } else {
        kestrel2::win::TextDrawer text(target);
        text.color = ui.listFontColor;
        text.horizontal = aurel::TextAlign::Centre;
        text.vertical = aurel::TextAlign::Centre;
        text.wordBreak = true;
        kestrel2::win::Font messageFont = font;
        messageFont.size = Scaled(font.size);
        text.DrawText(message_, Scaled(6), 0, width - Scaled(12), height, messageFont);
    }
    target.DrawRect(0, 0, width - 2, height - 2, ui.listBorder);
}

void PictureView::OnInput(kestrel2::win::InputEvent& event) {
    if (event.type == kestrel2::win::kInputButtonDown && event.button == kestrel2::win::kButtonLeft) {
        clickListeners.Call(Id());
    }
}

}  // namespace kovra
