#include "views/dialogs/pack_session.h"
#include "views/dialogs/pack_preview.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "images/wirrel_tex_image.h"
#include "support/image_library.h"
#include "support/temp_dir.h"

namespace kovra {
namespace {

constexpr int kChecked = PackSession::kChecked;
constexpr int kUnchecked = PackSession::kUnchecked;
constexpr int kMixed = PackSession::kMixed;

std::shared_ptr<WirrelTexImage> Image(const std::string& path, int width, int height) {
    auto image = std::make_shared<WirrelTexImage>(aurel::DualString(path));
    image->surface.Resize(width, height);
    image->surface.Clear(0xFF336699u);
    return image;
}

// Three images: "a.png" with a 100 by 60 texture and a 30 by 30 one, "b.png" with one of 200 by 10,
// "c.tga" with none.
class PackSessionTest : public testing::Test {
protected:
    void SetUp() override {
        doc.Reset(true);
        doc.images = {Image("/art/a.png", 256, 256), Image("/art/b.png", 256, 64), Image("/art/c.tga", 8, 8)};
        doc.Wirrel().textures = {{.imageIndex = 0, .x = 0, .y = 0, .width = 100, .height = 60},
                                 {.imageIndex = 1, .x = 0, .y = 0, .width = 200, .height = 10},
                                 {.imageIndex = 0, .x = 120, .y = 0, .width = 30, .height = 30}};
    }

    WirrelDoc doc;
    SelectionTracker imageSelection;
};

TEST_F(PackSessionTest, StartsWithEveryRowCheckedAndTheAutoSize) {
    const PackSession session(doc);
    ASSERT_EQ(session.RowCount(), 3);
    EXPECT_EQ(session.RowText(0), "a.png");
    EXPECT_EQ(session.RowText(2), "c.tga");
    EXPECT_EQ(session.Header(), kChecked);
    EXPECT_TRUE(session.Auto());
    EXPECT_EQ(session.Selected(), 0);
    EXPECT_TRUE(session.CanPack());
    EXPECT_EQ(session.Trial().pages, 1);
    // The smallest page found: one page at it, and more than one with either side halved.
    const int width = session.PageWidth();
    const int height = session.PageHeight();
    EXPECT_EQ(width, 256);
    EXPECT_EQ(RunPackTrial(doc.Wirrel(), {0, 1, 2}, width, height).pages, 1);
    EXPECT_NE(RunPackTrial(doc.Wirrel(), {0, 1, 2}, width / 2, height).pages, 1);
    EXPECT_NE(RunPackTrial(doc.Wirrel(), {0, 1, 2}, width, height / 2).pages, 1);
}

TEST_F(PackSessionTest, HeaderStatesAndClicks) {
    PackSession session(doc);
    session.SetRowChecked(1, false);
    EXPECT_EQ(session.Header(), kMixed);
    EXPECT_EQ(session.WidthText(), "128") << "Auto size ran again without the widest texture";
    EXPECT_EQ(session.Checked(), (std::vector<int>{0, 2}));
    session.ClickHeader();
    EXPECT_EQ(session.Header(), kChecked);
    session.ClickHeader();
    EXPECT_EQ(session.Header(), kUnchecked);
    EXPECT_FALSE(session.CanPack());
    EXPECT_EQ(session.Trial().message, "No images selected to pack.");
    session.ClickHeader();
    EXPECT_EQ(session.Header(), kChecked);
    EXPECT_TRUE(session.CanPack());
}

TEST_F(PackSessionTest, SizesByHandTurnAutoOffAndGiveTheMessages) {
    PackSession session(doc);
    const std::string autoHeight = session.HeightText();
    session.EditWidth("256");
    EXPECT_TRUE(session.Auto()) << "an unchanged text does nothing";
    struct Case {
        const char* width;
        const char* height;
        const char* message;
    };
    const Case cases[] = {
        {"150", "128", "Packing failure. Texture(s) larger than 150x128."},
        {"200", "128", "Packing failure. Unknown error."},
        {"201", "128", ""},
        {"512", "8", "Packing failure. Texture(s) larger than 512x8."},
        {"512", "64", ""},
    };
    for (const Case& c : cases) {
        session.EditWidth(c.width);
        session.EditHeight(c.height);
        EXPECT_FALSE(session.Auto());
        EXPECT_EQ(session.Trial().message, c.message) << c.width << "x" << c.height;
        EXPECT_EQ(session.CanPack(), std::string(c.message).empty());
    }
    session.ClickAuto();
    EXPECT_TRUE(session.Auto());
    EXPECT_EQ(session.WidthText(), "256");
    session.EditHeight("1000");
    session.ClickAuto();
    session.ClickAuto();
    EXPECT_FALSE(session.Auto()) << "a second click only turns Auto off";
    EXPECT_EQ(session.HeightText(), autoHeight);
}

TEST(PackPageFiles, SeveralPagesNumberTheStem) {
    EXPECT_EQ(PackPageFiles(aurel::DualString("/out/sheet.png"), 1),
              std::vector<aurel::DualString>{aurel::DualString("/out/sheet.png")});
    const std::vector<aurel::DualString> files = PackPageFiles(aurel::DualString("/out/sheet.png"), 3);
    ASSERT_EQ(files.size(), 3u);
    EXPECT_EQ(files[0].Utf8(), "/out/sheet0.png");
    EXPECT_EQ(files[2].Utf8(), "/out/sheet2.png");
}

TEST_F(PackSessionTest, PackWritesEveryPageAndTheNewRowsStandUnchecked) {
    test::StartImageLibrary();
    test::TempDir dir;
    PackSession session(doc);
    session.SetRowChecked(2, false);
    session.EditWidth("210");
    session.EditHeight("64");
    ASSERT_EQ(session.Trial().pages, 2);

    const std::shared_ptr<ICommand> command =
        session.Pack(aurel::DualString(dir.File("page.png")), imageSelection);
    ASSERT_NE(command, nullptr);
    EXPECT_EQ(command->label.Utf8(), "Pack Textures");
    for (const char* name : {"page0.png", "page1.png"}) {
        WirrelTexImage written;
        EXPECT_EQ(written.Load(aurel::DualString(dir.File(name))), 0) << name;
        EXPECT_EQ(written.surface.Width(), 210);
        EXPECT_EQ(written.surface.Height(), 64);
    }
    EXPECT_FALSE(std::filesystem::exists(dir.File("page.png")));
    ASSERT_EQ(doc.images.size(), 3u);
    EXPECT_EQ(doc.images[1]->path.Utf8(), dir.File("page0.png"));
    ASSERT_EQ(session.RowCount(), 3);
    EXPECT_EQ(session.RowText(0), "c.tga");
    EXPECT_EQ(session.RowText(1), "page0.png");
    EXPECT_EQ(session.RowText(2), "page1.png");
    EXPECT_EQ(session.Header(), kUnchecked);
    EXPECT_EQ(session.Trial().message, "No images selected to pack.");
    EXPECT_FALSE(session.Auto());
}

TEST(PackPreview, PagesTakeTheGridThatShowsThemLargest) {
    struct Case {
        int pages, width, height, rows, columns;
    };
    const Case cases[] = {{1, 200, 100, 1, 1}, {4, 400, 100, 1, 4}, {3, 300, 300, 2, 2}, {4, 100, 400, 4, 1}};
    for (const Case& c : cases) {
        const PreviewGrid grid = ChoosePreviewGrid(c.pages, 64, 64, c.width, c.height);
        EXPECT_EQ(grid.rows, c.rows) << c.pages << " in " << c.width << "x" << c.height;
        EXPECT_EQ(grid.columns, c.columns) << c.pages << " in " << c.width << "x" << c.height;
    }
    const PreviewGrid one = ChoosePreviewGrid(1, 64, 64, 200, 100);
    EXPECT_EQ(one.box.left, 50);
    EXPECT_EQ(one.box.right, 150);
    const PreviewGrid three = ChoosePreviewGrid(3, 64, 64, 300, 300);
    const PreviewBox second = PreviewCell(three, 1);
    const PreviewBox third = PreviewCell(three, 2);
    EXPECT_EQ(second.left, 3);
    EXPECT_EQ(second.top, 151);
    EXPECT_EQ(third.left, 151);
    EXPECT_EQ(third.right, 296);
    EXPECT_EQ(third.top, 3);
    EXPECT_EQ(third.bottom, 147);
}

TEST(PackPreview, EachPageStandsOnWhiteInABlackOutline) {
    aurel::ImageSurface page;
    page.Resize(8, 8);
    page.Clear(0xFF0000FFu);
    for (int y = 0; y < 4; ++y) {
        std::fill_n(page.Row(y), 8, 0u);
    }
    const aurel::ImageSurface preview = ComposePackPreview({page}, 8, 8, 40, 20);
    const std::uint32_t* top = preview.Row(5);
    const std::uint32_t* bottom = preview.Row(15);
    EXPECT_EQ(preview.Row(10)[5], 0u) << "outside the box";
    EXPECT_EQ(preview.Row(3)[13], 0xFF000000u) << "outline";
    EXPECT_GE(top[20] & 0xFF, 0xF0u) << "a clear page pixel shows the white";
    EXPECT_GE(top[20] >> 16 & 0xFF, 0xF0u);
    EXPECT_EQ(bottom[20], 0xFF0000FFu);
}

}  // namespace
}  // namespace kovra
