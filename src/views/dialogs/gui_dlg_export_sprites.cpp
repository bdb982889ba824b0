#include "views/dialogs/gui_dlg_export_sprites.h"

#include "gui/gui_button.h"
#include "gui/gui_combo_box.h"
#include "gui/gui_edit.h"
#include "gui/gui_static.h"
#include "views/dialogs/dialog_items.h"
#include "views/dialogs/row_list.h"

namespace kovra {

using namespace kestrel2::win;

namespace {

std::vector<std::string> AnimNames(const WirrelDoc& document) {
    std::vector<std::string> names;
    for (const WirrelAnim& anim : document.Wirrel().anims) {
        names.emplace_back(NameOf(anim.name));
    }
    return names;
}

void Fill(GuiComboBox& list, const std::vector<std::string>& texts, int selection) {
    list.Clear();
    for (const std::string& text : texts) {
        list.AddString(aurel::DualString(text));
    }
    list.SetSel(selection);
}

}  // namespace

GuiDlgExportSprites::GuiDlgExportSprites(const WirrelDoc& document, const std::string& workingFolder)
    : IResDialog("Export Sprites", DluX(320), DluY(252)),
      options_(AnimNames(document), ExportStart(document.path, workingFolder)) {}

void GuiDlgExportSprites::OnInitDialog() {
    MakeInput();
    MakeOutput();
    MakeNames();
    ok_ = MakeItem<GuiButton>(*this, kIdOk, 203, 232, 52, 14, "OK");
    MakeItem<GuiButton>(*this, kIdCancel, 261, 232, 52, 14, "Cancel");
    Refresh();
}

void GuiDlgExportSprites::MakeInput() {
    MakeItem<GuiStatic>(*this, 1001, 7, 4, 150, 126, "Input", StaticStyle::Group);
    header_ = MakeItem<GuiCheckbox>(*this, kAnimHeader, 14, 16, 136, 10, "Animations");
    anims_ = MakeItem<RowList>(*this, kAnimList, 14, 28, 136, 62, "", true);
    anims_->checkListeners.Add(this, &GuiDlgExportSprites::OnAnimChecked);
    keyFrames_ = MakeItem<GuiCheckbox>(*this, kKeyFrames, 14, 94, 136, 10, "Key frames");
    every_ = MakeItem<GuiCheckbox>(*this, kEvery, 14, 109, 44, 10, "Every");
    everyEdit_ = MakeItem<GuiEdit>(*this, kEveryEdit, 60, 108, 30, 12, "33");
    MakeItem<GuiStatic>(*this, 1002, 94, 109, 20, 10, "ms");
}

void GuiDlgExportSprites::MakeOutput() {
    MakeItem<GuiStatic>(*this, 1003, 163, 4, 150, 62, "Output", StaticStyle::Group);
    outputs_ = {MakeItem<GuiRadio>(*this, kSheets, 170, 17, 66, 10, "Sheets"),
                MakeItem<GuiRadio>(*this, kSequence, 170, 31, 136, 10, "Image Sequence"),
                MakeItem<GuiRadio>(*this, kAnimations, 170, 45, 136, 10, "Animations (such as gif)")};
    sheetWidth_ = MakeItem<GuiEdit>(*this, kSheetWidth, 238, 16, 30, 12, "1024");
    MakeItem<GuiStatic>(*this, 1004, 271, 17, 6, 10, "x");
    sheetHeight_ = MakeItem<GuiEdit>(*this, kSheetHeight, 279, 16, 30, 12, "1024");

    MakeItem<GuiStatic>(*this, 1005, 163, 68, 150, 62, "Options", StaticStyle::Group);
    MakeItem<GuiStatic>(*this, 1006, 170, 81, 64, 10, "Max size");
    MakeItem<GuiEdit>(*this, 1007, 238, 80, 30, 12, "64");
    MakeItem<GuiStatic>(*this, 1008, 271, 81, 6, 10, "x");
    MakeItem<GuiEdit>(*this, 1009, 279, 80, 30, 12, "64");
    MakeItem<GuiCheckbox>(*this, 1030, 170, 96, 136, 10, "Constant size")->SetCheck(kChecked);
    MakeItem<GuiCheckbox>(*this, 1031, 170, 111, 136, 10, "Per animation only")->SetCheck(kChecked);
}

void GuiDlgExportSprites::MakeNames() {
    MakeItem<GuiStatic>(*this, 1032, 7, 137, 44, 10, "Metadata");
    metadata_ = MakeItem<GuiComboBox>(*this, kMetadata, 54, 136, 100, 13, "");
    Fill(*metadata_, {kMetadataFormats.begin(), kMetadataFormats.end()}, 0);
    MakeItem<GuiButton>(*this, kMetadataAdd, 158, 135, 18, 14, "+");
    MakeItem<GuiButton>(*this, kMetadataRemove, 178, 135, 18, 14, "-");
    metadataEdit_ = MakeItem<GuiButton>(*this, kMetadataEdit, 198, 135, 40, 14, "Edit");
    MakeItem<GuiStatic>(*this, 1033, 242, 137, 44, 10, "Pixels per unit")->Show(false);
    MakeItem<GuiEdit>(*this, 1034, 288, 136, 25, 12, "")->Show(false);

    MakeItem<GuiStatic>(*this, 1035, 7, 156, 44, 10, "Folder");
    MakeItem<GuiEdit>(*this, kFolder, 54, 155, 237, 12, options_.Folder());
    MakeItem<GuiButton>(*this, 1036, 295, 154, 18, 14, "...");
    MakeItem<GuiStatic>(*this, 1037, 7, 173, 44, 10, "File name");
    fileName_ = MakeItem<GuiEdit>(*this, kFileName, 54, 172, 165, 12, options_.FileName());
    wildcards_ = MakeItem<GuiComboBox>(*this, kWildcards, 223, 171, 90, 13, "");
    MakeItem<GuiStatic>(*this, 1038, 7, 190, 44, 10, "File format");
    format_ = MakeItem<GuiComboBox>(*this, kFormat, 54, 188, 56, 13, "");
    preview_ = MakeItem<GuiEdit>(*this, kPreview, 114, 189, 199, 12, "", EditStyle{.readOnly = true});
    MakeItem<GuiStatic>(*this, 1039, 7, 204, 306, 24, "File format specific options to go here",
                        StaticStyle::Group);
}

void GuiDlgExportSprites::Refresh() {
    header_->SetCheck(options_.AnimHeader());
    std::vector<ListRow> rows;
    for (std::size_t row = 0; row < options_.AnimNames().size(); ++row) {
        rows.push_back({options_.AnimNames()[row], 0, options_.AnimChecked(row)});
    }
    anims_->SetRows(std::move(rows));
    keyFrames_->SetCheck(options_.KeyFrames());
    every_->SetCheck(options_.Every());
    everyEdit_->Enable(options_.EveryEditEnabled());
    for (std::size_t i = 0; i < outputs_.size(); ++i) {
        outputs_[i]->SetCheck(static_cast<int>(options_.Output()) == static_cast<int>(i) ? kChecked
                                                                                         : kUnchecked);
    }
    sheetWidth_->Enable(options_.SheetSizeEnabled());
    sheetHeight_->Enable(options_.SheetSizeEnabled());
    metadataEdit_->Enable(options_.MetadataEditEnabled());
    Fill(*wildcards_, options_.Wildcards(), 0);
    Fill(*format_, options_.Formats(), options_.FormatSelection());
    fileName_->SetText(aurel::DualString(options_.FileName()));
    preview_->SetText(aurel::DualString(options_.Preview()));
    ok_->Enable(options_.OkEnabled());
}

void GuiDlgExportSprites::OnAnimChecked(int row) {
    options_.SetAnimChecked(static_cast<std::size_t>(row),
                            anims_->Rows()[static_cast<std::size_t>(row)].checked);
    Refresh();
}

void GuiDlgExportSprites::OnCommand(int id) {
    switch (id) {
        case kIdOk:
        case kIdCancel:
            EndDialog(id);
            return;
        case kAnimHeader:
            options_.ClickAnimHeader();
            break;
        case kKeyFrames:
            options_.ClickKeyFrames();
            break;
        case kEvery:
            options_.ClickEvery();
            break;
        case kSheets:
        case kSequence:
        case kAnimations:
            options_.SetOutput(id == kSheets     ? ExportOutput::Sheets
                               : id == kSequence ? ExportOutput::ImageSequence
                                                 : ExportOutput::Animations);
            break;
        case kFormat:
            options_.SelectFormat(format_->GetSel());
            break;
        case kMetadata:
            options_.SelectMetadata(metadata_->GetSel());
            break;
        case kWildcards:
            options_.SetFileName(fileName_->GetText().Utf8());
            options_.ChooseWildcard(wildcards_->GetSel());
            break;
        case kFileName:
            options_.SetFileName(fileName_->GetText().Utf8());
            break;
        default:
            return;
    }
    Refresh();
}

}  // namespace kovra
