// The dialogs as windows: each is opened for real on the offscreen platform, driven through its items
// while it runs, and closed the way the user would close it.

#include <gtest/gtest.h>

#include <QTimer>
#include <filesystem>
#include <fstream>
#include <functional>

#include "commands/doc_state.h"
#include "commands/pin_commands.h"
#include "gui/gui_button.h"
#include "gui/gui_edit.h"
#include "gui/gui_list_box.h"
#include "gui/gui_props.h"
#include "images/wirrel_tex_image.h"
#include "support/english.h"
#include "support/image_library.h"
#include "support/scripted_prompt.h"
#include "support/temp_dir.h"
#include "views/dialogs/gui_dlg_events.h"
#include "views/dialogs/gui_dlg_export_sprites.h"
#include "views/dialogs/gui_dlg_history.h"
#include "views/dialogs/gui_dlg_notes.h"
#include "views/dialogs/gui_dlg_pack.h"
#include "views/dialogs/gui_dlg_quick.h"
#include "views/dialogs/row_list.h"
#include "views/dialogs/window_placement.h"

namespace kovra {
namespace {

using kestrel2::win::IResDialog;

// Runs the dialog's loop and `drive` inside it, once the items exist; answers DoModal's result.
int RunModal(IResDialog& dialog, const std::function<void()>& drive) {
    QTimer::singleShot(0, [&] { drive(); });
    return dialog.DoModal(nullptr);
}

std::string Text(const IResDialog& dialog, int id) {
    return dialog.GetDlgControl(id)->GetText().Utf8();
}

std::vector<std::filesystem::path> Listing(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        files.push_back(entry.path());
    }
    return files;
}

TEST(ExportDialog, ShowsTheNamesFollowsTheOutputAndWritesNothing) {
    test::LoadEnglish();
    test::TempDir dir;
    WirrelDoc doc;
    doc.Reset(true);
    doc.AddAnim("walk", kAnimEmpty, -1);
    const std::string first(NameOf(doc.Wirrel().anims[0].name));
    doc.path = aurel::DualString(dir.File("hero.ske"));
    const auto before = Listing(dir.Path());
    const auto workingBefore = Listing(std::filesystem::current_path());
    GuiDlgExportSprites dialog(doc, dir.Path().string());
    using D = GuiDlgExportSprites;
    const int result = RunModal(dialog, [&] {
        EXPECT_EQ(Text(dialog, D::kPreview), "hero.xml, hero1.png");
        EXPECT_EQ(Text(dialog, D::kFolder), dir.Path().string() + "/");
        EXPECT_TRUE(dialog.GetDlgControl(D::kSheetWidth)->IsEnabled());
        EXPECT_FALSE(dialog.GetDlgControl(D::kEveryEdit)->IsEnabled());
        EXPECT_FALSE(dialog.GetDlgControl(D::kMetadataEdit)->IsEnabled());
        EXPECT_TRUE(dialog.GetDlgControl(IResDialog::kIdOk)->IsEnabled());
        dialog.commandListeners.Call(D::kAnimations);
        EXPECT_EQ(Text(dialog, D::kPreview), "hero.xml, hero.gif");
        EXPECT_FALSE(dialog.GetDlgControl(D::kSheetWidth)->IsEnabled());
        dialog.GetDlgControl(D::kFileName)->SetText(aurel::DualString("<animname>_<animnumber>"));
        dialog.commandListeners.Call(D::kFileName);
        EXPECT_EQ(Text(dialog, D::kPreview), "_.xml, " + first + "_1.gif");
        dialog.GetDlgControl(D::kFileName)->SetText(aurel::DualString(""));
        dialog.commandListeners.Call(D::kFileName);
        EXPECT_FALSE(dialog.GetDlgControl(IResDialog::kIdOk)->IsEnabled());
        dialog.commandListeners.Call(D::kKeyFrames);
        EXPECT_TRUE(dialog.GetDlgControl(D::kEveryEdit)->IsEnabled());
        dialog.commandListeners.Call(IResDialog::kIdOk);
    });
    EXPECT_EQ(result, IResDialog::kIdOk);
    EXPECT_EQ(Listing(dir.Path()), before);
    EXPECT_EQ(Listing(std::filesystem::current_path()), workingBefore);
}

TEST(PackDialog, PacksIntoPageFilesAndListsThemUnchecked) {
    test::StartImageLibrary();
    test::TempDir dir;
    WirrelDoc doc;
    doc.Reset(true);
    for (const char* name : {"a.png", "b.png"}) {
        auto image = std::make_shared<WirrelTexImage>(aurel::DualString(dir.File(name)));
        image->surface.Resize(64, 64);
        image->surface.Clear(0xFF446688u);
        doc.images.push_back(image);
    }
    doc.Wirrel().textures = {{.imageIndex = 0, .width = 40, .height = 30},
                             {.imageIndex = 1, .width = 50, .height = 20}};
    CommandStack stack;
    SelectionTracker images;
    GuiDlgPack dialog(doc, stack, images);
    RunModal(dialog, [&] {
        EXPECT_TRUE(dialog.GetDlgControl(GuiDlgPack::kPack)->IsEnabled());
        EXPECT_EQ(Text(dialog, GuiDlgPack::kWidth), dialog.Session().WidthText());
        dialog.PackInto(aurel::DualString(dir.File("packed.png")));
        const auto& list = static_cast<RowList&>(*dialog.GetDlgControl(GuiDlgPack::kList));
        ASSERT_EQ(list.Rows().size(), 1u);
        EXPECT_EQ(list.Rows()[0].text, "packed.png");
        EXPECT_FALSE(list.Rows()[0].checked);
        EXPECT_FALSE(dialog.GetDlgControl(GuiDlgPack::kPack)->IsEnabled());
        dialog.commandListeners.Call(IResDialog::kIdCancel);
    });
    EXPECT_TRUE(std::filesystem::exists(dir.File("packed.png")));
    EXPECT_EQ(stack.Size(), 1u);
    ASSERT_EQ(doc.images.size(), 1u);
    EXPECT_EQ(doc.Wirrel().textures[1].imageIndex, 0);
}

TEST(NotesDialog, AnImageThatCannotLoadIsToldAndOkSendsTheNotes) {
    test::StartImageLibrary();
    test::LoadEnglish();
    test::TempDir dir;
    WirrelDoc doc;
    doc.Reset(true);
    CommandStack stack;
    test::ScriptedPrompt prompt;
    GuiDlgNotes dialog(doc, stack, prompt);
    RunModal(dialog, [&] {
        EXPECT_FALSE(dialog.LoadImage(aurel::DualString(dir.File("missing.png"))));
        ASSERT_EQ(prompt.asked.size(), 1u);
        EXPECT_EQ(prompt.asked[0].title.Utf8(), "Error");
        EXPECT_EQ(
            prompt.asked[0].text.Utf8(),
            "The image could not be loaded. The file may be damaged, or in a format that Kovra can't read.");
        WirrelTexImage picture;
        picture.surface.Resize(6, 4);
        picture.surface.Clear(0xFF112233u);
        ASSERT_TRUE(picture.Save(aurel::DualString(dir.File("note.png"))));
        EXPECT_TRUE(dialog.LoadImage(aurel::DualString(dir.File("note.png"))));
        dialog.GetDlgControl(GuiDlgNotes::kText)->SetText(aurel::DualString("Left foot first."));
        dialog.commandListeners.Call(IResDialog::kIdOk);
    });
    EXPECT_EQ(stack.Size(), 1u);
    EXPECT_EQ(doc.notes.Utf8(), "Left foot first.");
    EXPECT_EQ(doc.notesImage.Width(), 6);
    EXPECT_FALSE(doc.notesImageData.empty());
}

TEST(HistoryDialog, FollowsTheStackAndKeepsItsPlace) {
    test::LoadEnglish();
    WirrelDoc doc;
    doc.Reset(true);
    doc.Wirrel().pinNames = {MakeName("hip"), MakeName("leg")};
    doc.CurrentKey().pins = {{.flags = Root, .id = 0}, {.length = 1, .flags = Bone, .parent = 0, .id = 1}};
    CommandStack stack;
    test::RecordingHub hub;
    aurel::SettingsStore settings;
    GuiDlgHistory dialog(doc, stack, hub, settings);
    dialog.Open(nullptr);
    ASSERT_TRUE(dialog.IsOpen());
    const auto& list = static_cast<RowList&>(*dialog.GetDlgControl(GuiDlgHistory::kList));
    EXPECT_EQ(list.Rows().size(), 1u);
    stack.AddCommand(std::make_shared<CommandPinType>(doc, 1, Attachment));
    ASSERT_EQ(list.Rows().size(), 2u);
    EXPECT_EQ(list.GetSel(), 1);
    dialog.commandListeners.Call(GuiDlgHistory::kUndo);
    EXPECT_EQ(list.GetSel(), 0);
    EXPECT_EQ(list.Rows().size(), 2u);
    dialog.commandListeners.Call(GuiDlgHistory::kRedo);
    EXPECT_EQ(list.GetSel(), 1);
    dialog.SetPos(dialog.x, dialog.y, 500, 400);
    dialog.commandListeners.Call(IResDialog::kIdCancel);
    EXPECT_FALSE(dialog.IsOpen());
    const std::optional<WindowPlacement> place = LoadPlacement(settings, "GuiDlgHistoryState");
    ASSERT_TRUE(place.has_value());
    EXPECT_EQ(place->width, 500);
    EXPECT_EQ(place->height, 400);
}

TEST(EventsDialog, TypedRowsAreMarkedAndOkSendsTheEvents) {
    WirrelDoc doc;
    doc.Reset(true);
    CommandStack stack;
    test::ScriptedPrompt prompt;
    GuiDlgEvents dialog(doc, stack, prompt);
    RunModal(dialog, [&] {
        auto& list = static_cast<kestrel2::win::GuiListBox&>(*dialog.GetDlgControl(GuiDlgEvents::kList));
        auto& grid = static_cast<kestrel2::win::GuiProps&>(*dialog.GetDlgControl(GuiDlgEvents::kGrid));
        EXPECT_EQ(list.GetCount(), 0);
        dialog.commandListeners.Call(GuiDlgEvents::kAdd);
        ASSERT_EQ(list.GetCount(), 1);
        EXPECT_EQ(list.Item(0).text.Utf8(), "Event 1");
        ASSERT_EQ(grid.RowCount(), 7);
        EXPECT_EQ(grid.Row(0).name.Utf8(), "Event");
        EXPECT_EQ(grid.Row(1).name.Utf8(), "Var 1");
        grid.rowListeners.Call(GuiDlgEvents::kGrid, 1, aurel::DualString("3"));
        grid.rowListeners.Call(GuiDlgEvents::kGrid, 2, aurel::DualString("3.5"));
        grid.rowListeners.Call(GuiDlgEvents::kGrid, 3, aurel::DualString("x"));
        QTimer::singleShot(10, [&] {
            ASSERT_EQ(grid.RowCount(), 7);
            EXPECT_EQ(grid.Row(1).name.Utf8(), "Var 1 (int)");
            EXPECT_EQ(grid.Row(2).name.Utf8(), "Var 2 (float)");
            EXPECT_EQ(grid.Row(3).name.Utf8(), "Var 3 (invalid)");
            EXPECT_EQ(grid.Row(4).name.Utf8(), "Var 4");
            dialog.commandListeners.Call(IResDialog::kIdOk);
        });
    });
    EXPECT_EQ(stack.Size(), 1u);
    ASSERT_EQ(doc.Wirrel().events.size(), 1u);
    EXPECT_EQ(doc.Wirrel().events[0].types, 2u | (1u << 2));
    EXPECT_EQ(doc.CurrentKey().eventCount, 1);
}

TEST(QuickDialog, ShowsThePageOfTheKeyAndKeepsItForAnUnknownKey) {
    test::TempDir dir;
    std::ofstream(dir.File("QuickHelp.nfo")) << "[TEXTURE]\ncut\n[BG]\nbehind\n";
    aurel::SettingsStore settings;
    GuiDlgQuick dialog(dir.File("QuickHelp.nfo"), settings);
    EXPECT_EQ(dialog.Text(), "cut\n");
    dialog.Open(nullptr);
    dialog.ShowPage("BG");
    EXPECT_EQ(Text(dialog, GuiDlgQuick::kText), "behind\n");
    dialog.ShowPage("ANIMIK");
    EXPECT_EQ(Text(dialog, GuiDlgQuick::kText), "behind\n");
    dialog.Close();
    EXPECT_TRUE(LoadPlacement(settings, "GuiDlgQuickState").has_value());
}

}  // namespace
}  // namespace kovra
