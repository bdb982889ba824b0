#include <sys/stat.h>
#include <sys/wait.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <filesystem>
#include <fstream>
#include <regex>

#include "doc/wirrel_doc.h"
#include "support/english.h"
#include "support/scripted_prompt.h"
#include "support/temp_dir.h"

namespace kovra {
namespace {

// In a temporary folder, a/doc.ske with an image in img/, an event, notes and two animations: "walk", a
// root (id 0) going from (2, 0) to (4, 0) with a bone (id 1) one unit beyond it, and "arm", one key frame
// of an arm from the origin through (1, 0) to (2, 0).
class CliTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::LoadEnglish(); }

    void SetUp() override {
        const auto pin = [](float length, int parent, int id) {
            return WirrelPin{.length = length, .flags = parent < 0 ? Root : Bone, .parent = parent, .id = id};
        };
        WirrelDoc doc;
        Wirrel w = doc.Wirrel();
        w.pinNames = {MakeName("root"), MakeName("hand"), MakeName("finger")};
        w.textures = {{0, 1, 2, 3, 4}};
        w.skins = {{0, 0.5f, -1, 2, 1, 0.25f, 3}};
        w.aabbs = {{-1, -2, 1, 2, 4, -1}};
        w.events = {{0, 0b0110, {std::bit_cast<std::uint32_t>(-3), std::bit_cast<std::uint32_t>(0.25f)}}};
        w.anims = {{MakeName("walk"), {{{pin(2, -1, 0), pin(1, 0, 1)}}, {{pin(4, -1, 0), pin(1, 0, 1)}}}},
                   {MakeName("arm"), {{{pin(0, -1, 0), pin(1, 0, 1), pin(1, 1, 2)}}}}};
        doc.SetWirrel(w);
        doc.SetImage(-1, std::make_shared<WirrelTexImage>(dir.File("img/p.png"), 0xFF00FF00));
        doc.notes = "line\n\"quoted\"";
        std::filesystem::create_directories(dir.Path() / "a");
        std::filesystem::create_directories(dir.Path() / "b");
        test::ScriptedPrompt prompt;
        ASSERT_TRUE(doc.Save(dir.File("a/doc.ske"), true, prompt));
    }

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
        return {WEXITSTATUS(status), Contents("out.txt"), Contents("err.txt")};
    }

    std::string Contents(const std::string& name) const {
        std::ifstream in(dir.File(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    test::TempDir dir;
};

// The x and y of each pin in the output, in order.
std::vector<std::pair<float, float>> Points(const std::string& json) {
    std::vector<std::pair<float, float>> points;
    const std::regex point(R"("x":([^,]+),"y":([^,}]+))");
    for (std::sregex_iterator m(json.begin(), json.end(), point), end; m != end; ++m) {
        points.emplace_back(std::stof((*m)[1]), std::stof((*m)[2]));
    }
    return points;
}

TEST_F(CliTest, NewDocumentDump) {
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

TEST_F(CliTest, ResaveMakesPathsRelativeToTheNewPlace) {
    ASSERT_EQ(Run("resave a/doc.ske b/y.ske").code, 0);
    const std::string first = Contents("b/y.ske");
    EXPECT_NE(first.find("../img/p.png"), std::string::npos);
    const Result x = Run("dump a/doc.ske");
    EXPECT_EQ(Run("dump b/y.ske").out, x.out);
    EXPECT_NE(x.out.find(R"("images":[{"path":")" + dir.File("img/p.png") + R"(","colorKey":4278255360}])"),
              std::string::npos);
    EXPECT_NE(
        x.out.find(R"("textures":[{"image":0,"x":1,"y":2,"w":3,"h":4}],"skins":[{"texture":0,"offsetX":0.5,)"
                   R"("offsetY":-1,"scaleX":2,"scaleY":1,"angle":0.25,"collision":3}],"aabbs":[{"left":-1,)"
                   R"("top":-2,"right":1,"bottom":2,"kind":4,"next":-1}],"events":[{"name":0,"types":6,)"
                   R"("vars":[-3,0.25,0,0,0,0]}])"),
        std::string::npos);
    EXPECT_NE(x.out.find(R"("pins":[{"angle":0,"length":2,"scale":1,"flags":1,"skin":-1,"aabb":-1,)"
                         R"("parent":-1,"id":0},)"),
              std::string::npos);
    EXPECT_NE(x.out.find(R"("notes":"line\n\"quoted\"")"), std::string::npos);

    ASSERT_EQ(Run("resave b/y.ske b/y.ske").code, 0);
    EXPECT_EQ(Contents("b/y.ske"), first);
    EXPECT_EQ(Run("check b/y.ske").code, 0);
}

TEST_F(CliTest, PoseSamplesBetweenKeyFramesAndFromTheLastBackToTheFirst) {
    const Result half = Run("pose a/doc.ske walk 0.5");
    EXPECT_EQ(half.code, 0);
    EXPECT_EQ(half.err, "");
    EXPECT_EQ(half.out, "{\"pins\":[{\"id\":0,\"x\":3,\"y\":0},{\"id\":1,\"x\":4,\"y\":0}]}\n");
    EXPECT_EQ(Points(Run("pose a/doc.ske walk 1.75").out),
              (std::vector<std::pair<float, float>>{{2.5, 0}, {3.5, 0}}));
}

TEST_F(CliTest, IkDragsThePinWithTheLocksHeld) {
    struct Case {
        const char* arguments;
        bool result;
        int pin;  // whose place is checked afterwards
        std::pair<float, float> at;
    };
    for (const Case& c : {
             Case{"ik a/doc.ske arm 0 2 1 1", true, 2, {1, 1}},
             Case{"ik a/doc.ske arm 0 1 0 1", true, 2, {1, 1}},  // the child keeps its direction
             Case{"ik a/doc.ske arm 0 1 0 1 --rotate-children", true, 2, {0, 2}},  // or turns with its bone
             Case{"ik a/doc.ske arm 0 2 1.5 0.5 --lock 1", true, 1, {1, 0}},
             Case{"ik a/doc.ske arm 0 0 3 3", false, 2, {2, 0}},  // the root, nothing locked: no solution
         }) {
        SCOPED_TRACE(c.arguments);
        const Result result = Run(c.arguments);
        EXPECT_EQ(result.code, 0);
        const std::string head = R"({"result":)" + std::string(c.result ? "true" : "false") +
                                 R"(,"pins":[{"id":0,"x":0,"y":0,"angle":0,"length":0},)";
        EXPECT_EQ(result.out.rfind(head, 0), 0u) << result.out;
        const std::vector<std::pair<float, float>> points = Points(result.out);
        EXPECT_NEAR(points.at(c.pin).first, c.at.first, 1e-3f);
        EXPECT_NEAR(points.at(c.pin).second, c.at.second, 1e-3f);
    }
}

TEST_F(CliTest, FailuresSayWhyInOneLine) {
    const std::string whole = Contents("a/doc.ske");
    std::ofstream(dir.File("cut.ske"), std::ios::binary) << whole.substr(0, whole.size() - 1);
    ASSERT_EQ(mkfifo(dir.File("pipe.ske").c_str(), 0600), 0);
    std::filesystem::create_directories(dir.Path() / std::string(250, 'd'));
    const std::string newOverlong = "new " + std::string(250, 'd') + "/" + std::string(2049, 'f');
    struct Case {
        const char* arguments;
        int code;
        const char* says;
    };
    for (const Case& c :
         {Case{"check missing.ske", 1, "cannot open missing.ske: No such file or directory"},
          Case{"check a", 1, "cannot open a: it is a folder, not a file"},
          Case{"dump pipe.ske", 1, "cannot open pipe.ske: it is a named pipe, not a file"},
          Case{"dump cut.ske", 1, "cut.ske is not a readable Kovra document"},
          Case{"resave cut.ske out.ske", 1, "not a readable"},
          Case{"new no/such/folder/x.ske", 1, "cannot write no/such/folder/x.ske: No such file or directory"},
          Case{newOverlong.c_str(), 1, "longer than the 2048 characters a path may have"},
          Case{"resave a/doc.ske no/x.ske", 1, "cannot write no/x.ske"},
          Case{"pose a/doc.ske run 0", 1, "no animation named \"run\""},
          Case{"pose a/doc.ske walk 2", 1, "not within the 2 key frames of \"walk\""},
          Case{"pose a/doc.ske walk -0.5", 1, "frame position -0.5"},
          Case{"ik a/doc.ske arm 1 2 0 0", 1, "key frame 1 is not one of the 1 key frames"},
          Case{"ik a/doc.ske arm 0 3 0 0", 1, "pin 3 is not one of the 3 pins"},
          Case{"ik a/doc.ske arm 0 2 0 0 --lock 3", 1, "locked pin 3 is not one of the 3 pins"},
          Case{"ik a/doc.ske arm 0 2 0 0 --lock 3", 1, "locked pin 3 is not one of the 3 pins"}}) {
        SCOPED_TRACE(c.arguments);
        const Result result = Run(c.arguments);
        EXPECT_EQ(result.code, c.code);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1);
        EXPECT_NE(result.err.find(c.says), std::string::npos) << result.err;
    }
    EXPECT_FALSE(std::filesystem::exists(dir.Path() / "out.ske"));
}

TEST_F(CliTest, WrongCommandLinesGiveTheReasonAndTheUsage) {
    struct Case {
        const char* arguments;
        const char* says;
        const char* usage;
    };
    for (const Case& c : {
             Case{"ik a/doc.ske arm 0 2 0 0 --lock", "--lock",
                  "usage: kovra-cli ik [OPTIONS] FILE ANIM FRAME PIN X Y\n"},
             Case{"ik a/doc.ske arm 0 2 0 0 --lock -1", "-1 is not an index", "usage: kovra-cli ik"},
             Case{"ik a/doc.ske arm 0 2 0 0 --lock 1 2", "not expected: 2", "usage: kovra-cli ik"},
             Case{"ik a/doc.ske arm 0 2 0 0 --spin", "not expected: --spin", "usage: kovra-cli ik"},
             Case{"ik a/doc.ske arm 0 two 0 0", "two is not an index", "usage: kovra-cli ik"},
             Case{"ik a/doc.ske arm 0 2 inf 0", "inf is not a finite number", "usage: kovra-cli ik"},
             Case{"ik a/doc.ske arm 0 2 0x1 0", "0x1 is not a finite number", "usage: kovra-cli ik"},
             Case{"ik a/doc.ske arm 0 2 0", "Y is required", "usage: kovra-cli ik"},
             Case{"pose a/doc.ske walk half", "half is not a finite number", "usage: kovra-cli pose"},
             Case{"new a.ske b.ske", "not expected: b.ske", "usage: kovra-cli new [OPTIONS] OUT\n"},
             Case{"dump", "FILE is required", "usage: kovra-cli dump [OPTIONS] FILE\n"},
         }) {
        SCOPED_TRACE(c.arguments);
        const Result result = Run(c.arguments);
        EXPECT_EQ(result.code, 2);
        EXPECT_EQ(result.out, "");
        const std::size_t end = result.err.find('\n');
        ASSERT_NE(end, std::string::npos);
        EXPECT_NE(result.err.substr(0, end).find(c.says), std::string::npos) << result.err;
        EXPECT_EQ(result.err.substr(end + 1).rfind(c.usage, 0), 0u) << result.err;
    }
    for (const char* arguments : {"frobnicate", ""}) {
        const Result result = Run(arguments);
        EXPECT_EQ(result.code, 2);
        EXPECT_NE(result.err.find("usage: kovra-cli [OPTIONS] SUBCOMMAND"), std::string::npos);
    }
    EXPECT_EQ(Run("frobnicate").err.rfind("kovra-cli: unknown command frobnicate\n", 0), 0u);
}

TEST_F(CliTest, HelpListsEveryCommandAndEachCommandsArguments) {
    for (const char* arguments : {"help", "--help"}) {
        const Result help = Run(arguments);
        EXPECT_EQ(help.code, 0);
        for (const char* command : {"new", "dump", "resave", "check", "pose", "ik"}) {
            EXPECT_NE(help.out.find("\n  " + std::string(command) + " "), std::string::npos) << command;
        }
    }
    const Result ik = Run("ik --help");
    EXPECT_EQ(ik.code, 0);
    EXPECT_NE(ik.out.find("usage: kovra-cli ik [OPTIONS] FILE ANIM FRAME PIN X Y\n"), std::string::npos);
    EXPECT_NE(ik.out.find("--rotate-children"), std::string::npos);
    const Result version = Run("--version");
    EXPECT_EQ(version.code, 0);
    EXPECT_EQ(version.out.rfind("kovra-cli ", 0), 0u);
}

}  // namespace
}  // namespace kovra
