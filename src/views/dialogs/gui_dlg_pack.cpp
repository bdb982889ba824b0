#include "views/dialogs/gui_dlg_pack.h"

#include "gui/gui_button.h"
#include "gui/gui_edit.h"
#include "gui/gui_static.h"
#include "views/dialogs/dialog_items.h"
#include "views/dialogs/image_files.h"
#include "views/dialogs/pack_preview.h"
#include "views/dialogs/picture_view.h"
#include "views/dialogs/row_list.h"

namespace kovra {

using namespace kestrel2::win;

GuiDlgPack::GuiDlgPack(WirrelDoc& document, CommandStack& stack, SelectionTracker& imageSelection)
    : IResDialog("Pack Textures", DluX(420), DluY(244)),
      document_(document),
      stack_(stack),
      imageSelection_(imageSelection),
      session_(document) {}

void GuiDlgPack::OnInitDialog() {
    header_ = MakeItem<GuiCheckbox>(*this, kHeader, 7, 7, 130, 10, "Files");
    list_ = MakeItem<RowList>(*this, kList, 7, 20, 130, 100, "", true);
    list_->checkListeners.Add(this, &GuiDlgPack::OnRowChecked);
    list_->selectListeners.Add(this, &GuiDlgPack::OnRowSelected);
    MakeItem<GuiStatic>(*this, 1010, 7, 126, 130, 10, "Image");
    image_ = MakeItem<PictureView>(*this, kImage, 7, 138, 130, 80, "");
    MakeItem<GuiStatic>(*this, 1011, 143, 7, 270, 10, "Preview");
    preview_ = MakeItem<PictureView>(*this, kPreview, 143, 20, 270, 178, "");
    MakeItem<GuiStatic>(*this, 1012, 143, 206, 90, 10, "Output texture size");
    width_ = MakeItem<GuiEdit>(*this, kWidth, 236, 205, 34, 12, "");
    MakeItem<GuiStatic>(*this, 1013, 273, 206, 6, 10, "x");
    height_ = MakeItem<GuiEdit>(*this, kHeight, 281, 205, 34, 12, "");
    auto_ = MakeItem<GuiCheckbox>(*this, kAuto, 322, 206, 34, 10, "Auto");
    pack_ = MakeItem<GuiButton>(*this, kPack, 143, 224, 60, 14, "Pack...");
    MakeItem<GuiButton>(*this, kIdCancel, 353, 224, 60, 14, "")->SetLang("COMMON", "Close");
    Refresh();
}

void GuiDlgPack::Refresh() {
    std::vector<ListRow> rows;
    for (int row = 0; row < session_.RowCount(); ++row) {
        rows.push_back({session_.RowText(row), 0, session_.RowChecked(row)});
    }
    list_->SetRows(std::move(rows));
    list_->SetSel(session_.Selected());
    header_->SetCheck(session_.Header());
    auto_->SetCheck(session_.Auto() ? kChecked : kUnchecked);
    width_->SetText(aurel::DualString(session_.WidthText()));
    height_->SetText(aurel::DualString(session_.HeightText()));
    const int selected = session_.Selected();
    const auto picture = selected >= 0 ? document_.Image(selected) : nullptr;
    image_->SetPicture(picture ? picture->surface : aurel::ImageSurface());
    ShowPreview();
    pack_->Enable(session_.CanPack());
}

void GuiDlgPack::ShowPreview() {
    const PackTrial& trial = session_.Trial();
    if (!trial.Stands()) {
        preview_->SetPicture(aurel::ImageSurface());
        preview_->SetMessage(trial.message);
        return;
    }
    const int width = session_.PageWidth();
    const int height = session_.PageHeight();
    const std::vector<aurel::ImageSurface> pages = ComposePages(document_, trial, width, height);
    preview_->SetMessage("");
    preview_->SetPicture(ComposePackPreview(pages, width, height, std::max(1, preview_->ClientWidth() - 4),
                                            std::max(1, preview_->ClientHeight() - 4)));
}

void GuiDlgPack::OnRowChecked(int row) {
    session_.SetRowChecked(row, list_->Rows()[static_cast<std::size_t>(row)].checked);
    Refresh();
}

void GuiDlgPack::OnRowSelected(int row) {
    session_.Select(row);
    Refresh();
}

void GuiDlgPack::PackInto(const aurel::DualString& file) {
    stack_.AddCommand(session_.Pack(file, imageSelection_));
    Refresh();
}

void GuiDlgPack::OnCommand(int id) {
    switch (id) {
        case kIdCancel:
            EndDialog(id);
            return;
        case kHeader:
            session_.ClickHeader();
            break;
        case kAuto:
            session_.ClickAuto();
            break;
        case kWidth:
            session_.EditWidth(width_->GetText().Utf8());
            break;
        case kHeight:
            session_.EditHeight(height_->GetText().Utf8());
            break;
        case kPack:
            if (session_.CanPack()) {
                const aurel::DualString file = ChooseImageToSave(this, aurel::DualString("Pack Textures"));
                if (!file.empty()) {
                    PackInto(file);
                }
            }
            return;
        default:
            return;
    }
    Refresh();
}

}  // namespace kovra
