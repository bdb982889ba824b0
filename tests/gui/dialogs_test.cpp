#include <gtest/gtest.h>
#include <QApplication>
#include <QDialog>
#include <QFontMetrics>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "base/kestrel_exception.h"
#include "gui/dlg_message.h"
#include "gui/file_dialog.h"
#include "gui/gui_button.h"
#include "gui/i_res_dialog.h"

namespace {

using namespace kestrel2::win;

TEST(DlgMessage, GrowsInStepsOfHalfAgainUntilTheTextFits) {
    // A 360 x 140 dialog has a text box 320 wide; each case wants the box at least so wide.
    const struct {
        int boxWidth;
        Growth expected;
    } cases[] = {
        {320, {0, 0}},      {321, {30, 22}},  // a step of 30
        {351, {75, 55}},                      // then 45
        {396, {142, 105}},                    // then 67.5
        {1000, {962, 719}},                   // and on to 341.7
    };
    for (const auto& c : cases) {
        const Growth growth = GrowToFit(360, 140, [&](int width, int) { return width >= c.boxWidth; });
        EXPECT_EQ(growth.width, c.expected.width) << c.boxWidth;
        EXPECT_EQ(growth.height, c.expected.height) << c.boxWidth;
    }
    int lastHeight = 0;
    GrowToFit(360, 140, [&](int, int height) {
        lastHeight = height;
        return height >= 100;
    });
    EXPECT_EQ(lastHeight, 140 - 20 - 47 + 22 + 33);
}

TEST(DlgMessage, ALongTextGrowsTheDialogAndButtonsStandFromTheRight) {
    std::string text;
    for (int i = 0; i < 60; ++i) {
        text += "A message that has to be read in full before anyone goes on. ";
    }
    DlgMessage dialog(nullptr, "Title", text);
    dialog.AddButton("OK", 1);
    dialog.AddButton("Cancel", 2);
    dialog.AddButton("Help", 9);
    dialog.Layout();
    EXPECT_GT(dialog.Width(), 360);
    EXPECT_GT(dialog.Height(), 140);
    QFont font("Arial");
    font.setPixelSize(14);
    const int boxWidth = dialog.Width() - 40;
    const QRect needed = QFontMetrics(font).boundingRect(QRect(0, 0, boxWidth, 1 << 20), Qt::TextWordWrap,
                                                         QString::fromStdString(text));
    EXPECT_LE(needed.height(), dialog.Height() - 20 - DlgMessage::kButtonRow);

    const std::vector<DlgMessage::ButtonPlace> buttons = dialog.Buttons();
    ASSERT_EQ(buttons.size(), 3u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(buttons[i].controlId, 300 + i);
        EXPECT_EQ(buttons[i].isDefault, i == 0);
    }
    EXPECT_EQ(buttons[0].x + buttons[0].width, dialog.Width() - 20);
    EXPECT_LT(buttons[1].x + buttons[1].width, buttons[0].x);
    EXPECT_LT(buttons[2].x + buttons[2].width, buttons[1].x);
}

TEST(DlgMessage, DoModalAnswersTheClickedButtonsResult) {
    DlgMessage dialog(nullptr, "Title", "Short.");
    dialog.AddButton("Yes", 6);
    dialog.AddButton("No", 7);
    QTimer::singleShot(0, [] {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            for (QPushButton* button : widget->findChildren<QPushButton*>()) {
                if (button->text() == "No" && button->isVisible()) {
                    button->click();
                }
            }
        }
    });
    EXPECT_EQ(dialog.DoModal(), 7);
}

TEST(FileDialog, TheDefaultFilterIndexMustNameAFilter) {
    const std::vector<FileFilter> filters = {
        {"All Files", "*.*"}, {"Kovra Files", "*.ske"}, {"Images", "*.bmp;*.png"}};
    for (int index : {0, 4, -1}) {
        try {
            FileDialog dialog(filters, index);
            ADD_FAILURE() << "index " << index << " was accepted";
        } catch (const aurel::KestrelUsageException& e) {
            EXPECT_EQ(std::string(e.what()), "Invalid default filter index " + std::to_string(index));
        }
    }
    for (int index : {1, 3}) {
        EXPECT_EQ(FileDialog(filters, index).FilterIndex(), index);
    }
    EXPECT_EQ(FileDialog(filters, 1).NameFilters(),
              (std::vector<std::string>{"All Files (*.*)", "Kovra Files (*.ske)", "Images (*.bmp *.png)"}));
}

TEST(FileDialog, ASavedNameGetsTheFiltersExtension) {
    const struct {
        const char *path, *patterns, *expected;
    } cases[] = {
        {"/tmp/walk", "*.ske", "/tmp/walk.ske"},   {"/tmp/walk.ski", "*.ske", "/tmp/walk.ski"},
        {"/tmp/walk", "*.*", "/tmp/walk"},         {"/tmp/sheet", "*.png;*.bmp", "/tmp/sheet.png"},
        {"/tmp/a.b/sheet", "*", "/tmp/a.b/sheet"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(WithExtension(c.path, c.patterns), c.expected) << c.path << " " << c.patterns;
    }
}

// A dialog with one button that ends it with 7; Esc ends it with the cancel id.
class TwoWayDialog : public IResDialog {
public:
    TwoWayDialog() : IResDialog("Question", 200, 100) {}
    void OnInitDialog() override { MakeChild<GuiButton>(*this, 40, 10, 10, 80, 23)->SetText("Go"); }
    void OnCommand(int id) override {
        commands.push_back(id);
        EndDialog(id == 40 ? 7 : id);
    }
    std::vector<int> commands;
};

TEST(IResDialog, ItemsCommandAndEscCancels) {
    TwoWayDialog dialog;
    QTimer::singleShot(0, [&] { qobject_cast<QPushButton*>(dialog.GetItem(40).handle())->click(); });
    EXPECT_EQ(dialog.DoModal(nullptr), 7);
    QTimer::singleShot(0, [&] { qobject_cast<QDialog*>(dialog.window.handle())->reject(); });
    EXPECT_EQ(dialog.DoModal(nullptr), IResDialog::kIdCancel);
    EXPECT_EQ(dialog.commands, (std::vector<int>{40, IResDialog::kIdCancel}));
}

}  // namespace
