#include "export/export_options.h"

#include <gtest/gtest.h>

namespace kovra {
namespace {

constexpr int kChecked = ExportOptions::kChecked;
constexpr int kUnchecked = ExportOptions::kUnchecked;
constexpr int kMixed = ExportOptions::kMixed;

ExportOptions HeroOptions(std::vector<std::string> anims = {"walk", "run", "jump"}) {
    return ExportOptions(std::move(anims), {"/art/", "hero<sheetnumber>"});
}

TEST(ExportOptions, StartState) {
    const ExportOptions options = HeroOptions();
    EXPECT_EQ(options.AnimHeader(), kChecked);
    for (std::size_t row = 0; row < 3; ++row) {
        EXPECT_TRUE(options.AnimChecked(row));
    }
    EXPECT_EQ(options.KeyFrames(), kChecked);
    EXPECT_EQ(options.Every(), kUnchecked);
    EXPECT_FALSE(options.EveryEditEnabled());
    EXPECT_EQ(options.Output(), ExportOutput::Sheets);
    EXPECT_TRUE(options.SheetSizeEnabled());
    EXPECT_EQ(options.FormatSelection(), 0);
    EXPECT_EQ(options.Metadata(), 0);
    EXPECT_FALSE(options.MetadataEditEnabled());
    EXPECT_TRUE(options.OkEnabled());
    EXPECT_EQ(options.Preview(), "hero.xml, hero1.png");
}

TEST(ExportOptions, WithoutAnimationsTheListIsEmptyAndOkDisabled) {
    const ExportOptions options = HeroOptions({});
    EXPECT_TRUE(options.AnimNames().empty());
    EXPECT_FALSE(options.OkEnabled());
}

TEST(ExportOptions, HeaderFollowsRowsAndClicksCheckAllOrNone) {
    ExportOptions options = HeroOptions();
    options.SetAnimChecked(1, false);
    EXPECT_EQ(options.AnimHeader(), kMixed);
    options.ClickAnimHeader();
    EXPECT_EQ(options.AnimHeader(), kChecked);
    options.ClickAnimHeader();
    EXPECT_EQ(options.AnimHeader(), kUnchecked);
    EXPECT_FALSE(options.AnimChecked(0));
    options.ClickAnimHeader();
    EXPECT_EQ(options.AnimHeader(), kChecked);
}

TEST(ExportOptions, KeyFramesAndEveryKeepOneOn) {
    ExportOptions options = HeroOptions();
    options.ClickKeyFrames();
    EXPECT_EQ(options.KeyFrames(), kUnchecked);
    EXPECT_EQ(options.Every(), kChecked);
    EXPECT_TRUE(options.EveryEditEnabled());
    options.ClickKeyFrames();
    EXPECT_EQ(options.KeyFrames(), kChecked);
    EXPECT_EQ(options.Every(), kChecked);
    options.ClickEvery();
    EXPECT_EQ(options.Every(), kUnchecked);
    EXPECT_FALSE(options.EveryEditEnabled());
    options.ClickKeyFrames();
    options.ClickEvery();
    EXPECT_EQ(options.Every(), kUnchecked);
    EXPECT_EQ(options.KeyFrames(), kChecked);
}

TEST(ExportOptions, OutputKindsRememberTheirFormatAndChangeTheNames) {
    ExportOptions options = HeroOptions();
    options.SelectFormat(3);
    EXPECT_EQ(options.Preview(), "hero.xml, hero1.jpg");
    options.SetOutput(ExportOutput::Animations);
    EXPECT_FALSE(options.SheetSizeEnabled());
    EXPECT_EQ(options.Formats(), std::vector<std::string>{"GIF"});
    EXPECT_EQ(options.FormatSelection(), 0);
    EXPECT_EQ(options.Preview(), "hero.xml, hero.gif");
    options.ChooseWildcard(1);
    EXPECT_EQ(options.FileName(), "hero<sheetnumber><animname>");
    EXPECT_EQ(options.Preview(), "hero.xml, herowalk.gif");
    options.SetOutput(ExportOutput::ImageSequence);
    EXPECT_EQ(options.FormatSelection(), 3);
    options.ChooseWildcard(3);
    options.ChooseWildcard(0);
    EXPECT_EQ(options.Preview(), "hero.xml, herowalk1.jpg");
    options.SetOutput(ExportOutput::Sheets);
    EXPECT_EQ(options.Preview(), "hero.xml, hero1.jpg");
}

TEST(ExportOptions, MetadataChoiceLeavesTheExtensionAndEditOff) {
    ExportOptions options = HeroOptions();
    for (int index = 0; index < 4; ++index) {
        options.SelectMetadata(index);
        EXPECT_FALSE(options.MetadataEditEnabled());
        EXPECT_EQ(options.Preview(), "hero.xml, hero1.png");
    }
}

TEST(ExportOptions, EmptyFileNameDisablesOk) {
    ExportOptions options = HeroOptions();
    options.SetFileName("");
    EXPECT_FALSE(options.OkEnabled());
    options.SetFileName("x");
    EXPECT_TRUE(options.OkEnabled());
}

}  // namespace
}  // namespace kovra
