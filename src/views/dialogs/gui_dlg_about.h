#pragma once
// About Kovra: the name and version over the little figure that waves.

#include <string>

#include "gui/i_res_dialog.h"

namespace kovra {

// The label's text: the product's long name, " v", and the version.
std::string AboutText();

class GuiDlgAbout : public kestrel2::win::IResDialog {
public:
    static constexpr int kLabel = 40022;
    static constexpr int kPreview = 40015;

    explicit GuiDlgAbout(std::string figureFile);

protected:
    void OnInitDialog() override;
    void OnCommand(int id) override;

private:
    std::string figureFile_;
};

}  // namespace kovra
