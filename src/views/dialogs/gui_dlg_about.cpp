#include "views/dialogs/gui_dlg_about.h"

#include "gui/gui_button.h"
#include "gui/gui_static.h"
#include "views/dialogs/about_preview.h"
#include "views/dialogs/dialog_items.h"

namespace kovra {

using namespace kestrel2::win;

std::string AboutText() {
    return std::string("Kovra, the skeletal sprite animator") + " v" + KOVRA_VERSION;
}

GuiDlgAbout::GuiDlgAbout(std::string figureFile)
    : IResDialog("About Kovra", DluX(200), DluY(151)), figureFile_(std::move(figureFile)) {}

void GuiDlgAbout::OnInitDialog() {
    MakeItem<GuiStatic>(*this, kLabel, 7, 7, 186, 12, AboutText());
    MakeItem<AboutPreview>(*this, kPreview, 7, 22, 186, 100, "", figureFile_);
    MakeItem<GuiButton>(*this, kIdOk, 143, 130, 50, 14, "OK");
}

void GuiDlgAbout::OnCommand(int id) {
    if (id == kIdOk || id == kIdCancel) {
        EndDialog(id);
    }
}

}  // namespace kovra
