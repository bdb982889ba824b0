#pragma once
// What's New: the change log in a plain text view. It changes nothing.

#include "gui/i_res_dialog.h"

namespace kovra {

class GuiDlgNew : public kestrel2::win::IResDialog {
public:
    static constexpr int kText = 40015;

    GuiDlgNew(const aurel::DualString& title, aurel::DualString text);

protected:
    void OnInitDialog() override;
    void OnCommand(int id) override;

private:
    aurel::DualString text_;
};

}  // namespace kovra
