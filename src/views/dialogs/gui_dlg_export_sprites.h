#pragma once
// The sprite export dialog: every option of an export and the names it would write, kept in step with
// ExportOptions. OK and Cancel both close it; nothing is rendered or written, and nothing it shows is
// kept.

#include <memory>
#include <vector>

#include "doc/wirrel_doc.h"
#include "export/export_options.h"
#include "gui/i_res_dialog.h"

namespace kestrel2::win {
class GuiCheckbox;
class GuiComboBox;
class GuiEdit;
class GuiRadio;
}  // namespace kestrel2::win

namespace kovra {

class RowList;

class GuiDlgExportSprites : public kestrel2::win::IResDialog {
public:
    enum Item : int {
        kAnimHeader = 1010,
        kAnimList,
        kKeyFrames,
        kEvery,
        kEveryEdit,
        kSheets = 1020,
        kSheetWidth,
        kSheetHeight,
        kSequence,
        kAnimations,
        kMetadata = 1040,
        kMetadataAdd,
        kMetadataRemove,
        kMetadataEdit,
        kFolder = 1050,
        kFileName,
        kWildcards,
        kFormat,
        kPreview,
    };

    GuiDlgExportSprites(const WirrelDoc& document, const std::string& workingFolder);

    const ExportOptions& Options() const { return options_; }

protected:
    void OnInitDialog() override;
    void OnCommand(int id) override;

private:
    void MakeInput();
    void MakeOutput();
    void MakeNames();
    // Shows the options' state in every control.
    void Refresh();
    void OnAnimChecked(int row);

    ExportOptions options_;
    std::shared_ptr<kestrel2::win::GuiCheckbox> header_, keyFrames_, every_;
    std::shared_ptr<RowList> anims_;
    std::shared_ptr<kestrel2::win::GuiEdit> everyEdit_, sheetWidth_, sheetHeight_, fileName_, preview_;
    std::vector<std::shared_ptr<kestrel2::win::GuiRadio>> outputs_;
    std::shared_ptr<kestrel2::win::GuiComboBox> metadata_, wildcards_, format_;
    std::shared_ptr<kestrel2::win::IGuiWindow> metadataEdit_, ok_;
};

}  // namespace kovra
