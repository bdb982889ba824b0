#include "export/export_naming.h"

#include <gtest/gtest.h>

namespace kovra {
namespace {

using enum ExportOutput;

struct NameCase {
    std::string fileName;
    ExportOutput output;
    std::string format;
    ExportItem item;
    std::string expected;
};

TEST(ExportNaming, ExpandsWildcardsThatApplyAndDropsTheRest) {
    const NameCase cases[] = {
        {"hero<sheetnumber>", Sheets, "PNG", {}, "hero.xml"},
        {"hero<sheetnumber>", Sheets, "PNG", {0, 0, "walk", 0}, "hero1.png"},
        {"hero<sheetnumber>", Sheets, "PNG", {11, 2, "walk", 5}, "hero12.png"},
        {"hero", Sheets, "TGA", {}, "hero.xml"},
        {"hero", Sheets, "TGA", {0, 0, "walk", 0}, "hero.tga"},
        {"hero_<animname>", Sheets, "PNG", {0, 0, "walk", 0}, "hero_.png"},
        {"<animname>_<animnumber>", ImageSequence, "BMP", {0, 1, "run", 0}, "run_2.bmp"},
        {"<animname>_<framenumber>", ImageSequence, "BMP", {0, 1, "run", 6}, "run_7.bmp"},
        {"a<sheetnumber>b", ImageSequence, "PNG", {0, 0, "run", 0}, "ab.png"},
        {"<animname><framenumber>", Animations, "GIF", {0, 0, "jump", 3}, "jump.gif"},
        {"<animnumber>-<animnumber>", Animations, "GIF", {0, 4, "jump", 0}, "5-5.gif"},
        {"x<other>y", Sheets, "PNG", {0, 0, "", 0}, "xy.png"},
        {"x<other>y", ImageSequence, "PNG", {}, "xy.xml"},
        {"x<unclosed", Animations, "GIF", {0, 0, "", 0}, "x.gif"},
        {"<animname>", ImageSequence, "PNG", {0, 0, "<animname>", 0}, ".png"},
        {"<sheetnumber>", Sheets, "JPG", {}, ".xml"},
    };
    for (const NameCase& c : cases) {
        EXPECT_EQ(ExpandExportName(c.fileName, c.output, c.format, c.item), c.expected) << c.fileName;
    }
}

TEST(ExportNaming, PreviewShowsMetadataThenFirstImage) {
    EXPECT_EQ(ExportNamePreview("hero<sheetnumber>", Sheets, "PNG", "walk"), "hero.xml, hero1.png");
    EXPECT_EQ(ExportNamePreview("<animname>_<framenumber>", ImageSequence, "PSD", "walk"),
              "_.xml, walk_1.psd");
    EXPECT_EQ(ExportNamePreview("hero", Animations, "GIF", ""), "hero.xml, hero.gif");
}

TEST(ExportNaming, ListsFollowTheOutputKind) {
    EXPECT_EQ(ExportFileFormats(Sheets),
              (std::vector<std::string>{"PNG", "TGA", "PSD", "JPG", "BMP", "PCT", "PNM"}));
    EXPECT_EQ(ExportFileFormats(ImageSequence), ExportFileFormats(Sheets));
    EXPECT_EQ(ExportFileFormats(Animations), std::vector<std::string>{"GIF"});
    EXPECT_EQ(ExportWildcards(Sheets), (std::vector<std::string>{"Wildcards", "<sheetnumber>"}));
    EXPECT_EQ(ExportWildcards(ImageSequence),
              (std::vector<std::string>{"Wildcards", "<animname>", "<animnumber>", "<framenumber>"}));
    EXPECT_EQ(ExportWildcards(Animations),
              (std::vector<std::string>{"Wildcards", "<animname>", "<animnumber>"}));
    for (int index = 0; index < 4; ++index) {
        EXPECT_FALSE(MetadataEditEnabled(index));
    }
    EXPECT_TRUE(MetadataEditEnabled(4));
}

TEST(ExportNaming, StartNamesComeFromTheDocumentPathOrUntitled) {
    const ExportStartNames saved = ExportStart(aurel::DualString("/home/ann/art/hero.ske"), "/tmp/work");
    EXPECT_EQ(saved.folder, "/home/ann/art/");
    EXPECT_EQ(saved.fileName, "hero<sheetnumber>");
    const ExportStartNames fresh = ExportStart(aurel::DualString(""), "/tmp/work");
    EXPECT_EQ(fresh.folder, "/tmp/work/");
    EXPECT_EQ(fresh.fileName, "Untitled<sheetnumber>");
}

}  // namespace
}  // namespace kovra
