#include "doc/relative_path.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/english.h"
#include "support/scripted_prompt.h"
#include "support/temp_dir.h"

namespace kovra {
namespace {

std::string Contents(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

class MakeRelativeTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::LoadEnglish(); }

    // An image reachable only by a path without root, as from another drive: "pics/a.png" from the
    // temporary folder, which is the working folder during the test.
    MakeRelativeTest() : saved_(std::filesystem::current_path()) {
        std::filesystem::current_path(dir.Path());
        std::filesystem::create_directories("pics");
        std::filesystem::create_directories("out");
        std::ofstream("pics/a.png") << "image";
    }
    ~MakeRelativeTest() override { std::filesystem::current_path(saved_); }

    test::TempDir dir;
    test::ScriptedPrompt prompt;
    aurel::DualString out;

private:
    std::filesystem::path saved_;
};

TEST_F(MakeRelativeTest, PathsRelativeToTheDocument) {
    for (const auto& [path, expected] : std::vector<std::pair<std::string, std::string>>{
             {"", ""},
             {"/d/a.png", "./a.png"},
             {"/pics/a.png", "../pics/a.png"},
             {"/d/" + std::string(507, 'n') + ".p", "./" + std::string(507, 'n') + ".p"}}) {  // 511 bytes
        EXPECT_TRUE(MakeRelative(path, "/d/x.ske", "label", out, prompt)) << path;
        EXPECT_EQ(out.Utf8(), expected);
    }
    EXPECT_TRUE(prompt.asked.empty());

    const std::string tooLong = "/d/" + std::string(508, 'n') + ".p";  // 512 bytes with its end
    EXPECT_FALSE(MakeRelative(tooLong, "/d/x.ske", "texture image", out, prompt));
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title.Utf8(), "Error");
    EXPECT_NE(prompt.asked[0].text.Utf8().find("texture image"), std::string::npos);
    EXPECT_NE(prompt.asked[0].text.Utf8().find(" 512 "), std::string::npos);
}

TEST_F(MakeRelativeTest, AnotherDriveAsksForACopy) {
    const std::string target = dir.File("out/x.ske");
    EXPECT_FALSE(MakeRelative("pics/a.png", target, "texture image", out, prompt));  // No, the safe answer
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].buttons, aurel::PromptButtons::YesNo);
    EXPECT_NE(prompt.asked[0].text.Utf8().find("pics/a.png"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists("out/a.png"));

    prompt.Answer(aurel::kAnswerYes);
    EXPECT_TRUE(MakeRelative("pics/a.png", target, "texture image", out, prompt));
    EXPECT_EQ(out.Utf8(), "./a.png");
    EXPECT_EQ(Contents("out/a.png"), "image");
}

TEST_F(MakeRelativeTest, ACopyBesideIsOverwrittenUsedOrRefused) {
    struct Case {
        int choice;  // of Overwrite, Use, Cancel
        bool ok;
        const char* left;
    };
    for (const Case& c : {Case{0, true, "image"}, Case{1, true, "older"}, Case{2, false, "older"}}) {
        std::ofstream("out/a.png") << "older";
        prompt.Answer(aurel::kAnswerYes);
        prompt.Answer(c.choice);
        EXPECT_EQ(MakeRelative("pics/a.png", dir.File("out/x.ske"), "texture image", out, prompt), c.ok);
        EXPECT_EQ(Contents("out/a.png"), c.left);
        EXPECT_EQ(prompt.asked.back().title.Utf8(), "Overwrite?");
        EXPECT_EQ(prompt.asked.back().labels.size(), 3u);
    }
}

}  // namespace
}  // namespace kovra
