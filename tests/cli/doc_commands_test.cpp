#include <sys/wait.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <filesystem>
#include <fstream>

#include "doc/wirrel_doc.h"
#include "support/english.h"
#include "support/scripted_prompt.h"
#include "support/temp_dir.h"

namespace kovra {
namespace {

std::string Contents(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

class DocCommandsTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::LoadEnglish(); }

    struct Result {
        int code;
        std::string out;
        std::string err;
    };

    // Runs kovra-cli with the arguments from the temporary folder.
    Result Run(const std::string& arguments) {
        const std::string command = "cd '" + dir.Path().string() + "' && '" KOVRA_CLI "' " + arguments +
                                    " >'" + dir.File("out.txt") + "' 2>'" + dir.File("err.txt") + "'";
        const int status = std::system(command.c_str());
        return {WEXITSTATUS(status), Contents(dir.File("out.txt")), Contents(dir.File("err.txt"))};
    }

    // Lines on stderr; a failing subcommand prints exactly one.
    static int Lines(const std::string& text) {
        return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
    }

    test::TempDir dir;
};

TEST_F(DocCommandsTest, NewDocumentDump) {
    ASSERT_EQ(Run("new new.ske").code, 0);
    const Result dump = Run("dump new.ske");
    EXPECT_EQ(dump.code, 0);
    EXPECT_EQ(dump.err, "");
    EXPECT_EQ(
        dump.out,
        R"({"ticksPerSecond":1200,"pixelsPerUnit":30,"pinNames":[],"eventNames":["PlaySound"],"spareNames":[],)"
        R"("images":[],"textures":[],"skins":[],"aabbs":[],"events":[],"anims":[{"name":"Default","speed":1,)"
        R"("keys":[{"ticks":1920,"eventFirst":-1,"eventCount":0,"pins":[]}]}],"snapFrames":4,"spareScale":1,)"
        R"("spareFlag":false,"background":{"path":"","alpha":128,"offsetX":0,"offsetY":0,"scale":1},)"
        R"("notes":"","notesImageBytes":0})"
        "\n");
}

TEST_F(DocCommandsTest, ResaveMakesPathsRelativeToTheNewPlace) {
    std::filesystem::create_directories(dir.Path() / "a");
    std::filesystem::create_directories(dir.Path() / "b");
    WirrelDoc doc;
    doc.AddPin(0.5f, 2, -1, "root");
    doc.Wirrel().events = {
        {0, 0b0110, {std::bit_cast<std::uint32_t>(-3), std::bit_cast<std::uint32_t>(0.25f)}}};
    doc.SetImage(-1, std::make_shared<WirrelTexImage>(dir.File("img/p.png"), 0xFF00FF00));
    doc.notes = "line\n\"quoted\"";
    test::ScriptedPrompt prompt;
    ASSERT_TRUE(doc.Save(dir.File("a/x.ske"), true, prompt));

    ASSERT_EQ(Run("resave a/x.ske b/y.ske").code, 0);
    const std::string first = Contents(dir.Path() / "b/y.ske");
    EXPECT_NE(first.find("../img/p.png"), std::string::npos);
    const Result x = Run("dump a/x.ske");
    EXPECT_EQ(Run("dump b/y.ske").out, x.out);
    EXPECT_NE(x.out.find(R"("images":[{"path":")" + dir.File("img/p.png") + R"(","colorKey":4278255360}])"),
              std::string::npos);
    EXPECT_NE(x.out.find(R"("events":[{"name":0,"types":6,"vars":[-3,0.25,0,0,0,0]}])"), std::string::npos);
    EXPECT_NE(x.out.find(R"("notes":"line\n\"quoted\"")"), std::string::npos);

    ASSERT_EQ(Run("resave b/y.ske b/y.ske").code, 0);
    EXPECT_EQ(Contents(dir.Path() / "b/y.ske"), first);
    EXPECT_EQ(Run("check b/y.ske").code, 0);
}

TEST_F(DocCommandsTest, FailuresSayWhyInOneLine) {
    ASSERT_EQ(Run("new whole.ske").code, 0);
    const std::string whole = Contents(dir.Path() / "whole.ske");
    std::ofstream(dir.File("cut.ske"), std::ios::binary) << whole.substr(0, whole.size() - 1);

    struct Case {
        const char* arguments;
        int code;
        const char* says;
    };
    for (const Case& c : {Case{"check missing.ske", 1, "cannot open missing.ske"},
                          Case{"dump cut.ske", 1, "cut.ske is not a readable Kovra document"},
                          Case{"resave cut.ske out.ske", 1, "not a readable"},
                          Case{"new no/such/folder/x.ske", 1, "cannot write no/such/folder/x.ske"},
                          Case{"resave whole.ske no/x.ske", 1, "cannot write no/x.ske"}}) {
        SCOPED_TRACE(c.arguments);
        const Result result = Run(c.arguments);
        EXPECT_EQ(result.code, c.code);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(Lines(result.err), 1);
        EXPECT_NE(result.err.find(c.says), std::string::npos) << result.err;
    }
    EXPECT_FALSE(std::filesystem::exists(dir.Path() / "out.ske"));

    for (const char* arguments : {"frobnicate", "dump", "resave only-one.ske", "new a.ske b.ske"}) {
        const Result result = Run(arguments);
        EXPECT_EQ(result.code, 2) << arguments;
        EXPECT_NE(result.err.find("usage: kovra-cli"), std::string::npos) << arguments;
    }
}

}  // namespace
}  // namespace kovra
