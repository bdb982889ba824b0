#include <sys/wait.h>

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include "doc/wirrel_doc.h"
#include "support/english.h"
#include "support/scripted_prompt.h"
#include "support/temp_dir.h"

namespace kovra {
namespace {

struct Result {
    int code;
    std::string out;
    std::string err;
};

// A document with "walk", a root (id 0) going from (2, 0) to (4, 0) with a bone (id 1) one unit beyond it,
// and "arm", one key frame of an arm from the origin through (1, 0) to (2, 0).
class PoseCommandsTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::LoadEnglish(); }

    void SetUp() override {
        WirrelDoc doc;
        Wirrel wirrel = doc.Wirrel();
        wirrel.pinNames = {MakeName("root"), MakeName("hand"), MakeName("finger")};
        const auto pin = [](float length, int parent, int id) {
            WirrelPin p{.length = length, .flags = parent < 0 ? Root : Bone};
            p.parent = parent;
            p.id = id;
            return p;
        };
        WirrelAnim walk;
        walk.name = MakeName("walk");
        walk.keys.resize(2);
        walk.keys[0].pins = {pin(2, -1, 0), pin(1, 0, 1)};
        walk.keys[1].pins = {pin(4, -1, 0), pin(1, 0, 1)};
        WirrelAnim arm;
        arm.name = MakeName("arm");
        arm.keys.resize(1);
        arm.keys[0].pins = {pin(0, -1, 0), pin(1, 0, 1), pin(1, 1, 2)};
        wirrel.anims = {walk, arm};
        doc.SetWirrel(wirrel);
        test::ScriptedPrompt prompt;
        ASSERT_TRUE(doc.Save(dir.File("doc.ske"), true, prompt));
    }

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

TEST_F(PoseCommandsTest, PoseSamplesBetweenKeyFramesAndFromTheLastBackToTheFirst) {
    const Result half = Run("pose doc.ske walk 0.5");
    EXPECT_EQ(half.code, 0);
    EXPECT_EQ(half.err, "");
    EXPECT_EQ(half.out, R"({"pins":[{"id":0,"x":3,"y":0},{"id":1,"x":4,"y":0}]})"
                        "\n");
    EXPECT_EQ(Run("pose doc.ske walk 1.75").out, R"({"pins":[{"id":0,"x":2.5,"y":0},{"id":1,"x":3.5,"y":0}]})"
                                                 "\n");
}

TEST_F(PoseCommandsTest, IkDragsThePinWithTheLocksHeld) {
    const Result free = Run("ik doc.ske arm 0 2 1 1");
    EXPECT_EQ(free.code, 0);
    EXPECT_EQ(free.out.rfind(R"({"result":true,"pins":[{"id":0,"x":0,"y":0,"angle":)", 0), 0u) << free.out;
    std::vector<std::pair<float, float>> points = Points(free.out);
    ASSERT_EQ(points.size(), 3u);
    EXPECT_NEAR(points[2].first, 1.0f, 1e-3f);
    EXPECT_NEAR(points[2].second, 1.0f, 1e-3f);

    points = Points(Run("ik doc.ske arm 0 2 1.5 0.5 --lock 1 --rotate-children").out);
    ASSERT_EQ(points.size(), 3u);
    EXPECT_NEAR(points[1].first, 1.0f, 1e-3f);
    EXPECT_NEAR(std::hypot(points[2].first - 1.0f, points[2].second), 1.0f, 1e-3f);

    // Dragging the root with nothing locked has no solution: the pose stays.
    const Result root = Run("ik doc.ske arm 0 0 3 3");
    EXPECT_EQ(root.code, 0);
    EXPECT_EQ(root.out.rfind(R"({"result":false,)", 0), 0u);
    EXPECT_EQ(Points(root.out)[2], (std::pair{2.0f, 0.0f}));
}

TEST_F(PoseCommandsTest, BadArgumentsSayWhyInOneLine) {
    struct Case {
        const char* arguments;
        int code;
        const char* says;
    };
    for (const Case& c : {Case{"pose doc.ske run 0", 1, "no animation named \"run\""},
                          Case{"pose doc.ske walk 2", 1, "not within the 2 key frames of \"walk\""},
                          Case{"pose doc.ske walk -0.5", 1, "frame position -0.5"},
                          Case{"pose missing.ske walk 0", 1, "cannot open missing.ske"},
                          Case{"ik doc.ske arm 1 2 0 0", 1, "key frame 1 is not one of the 1 key frames"},
                          Case{"ik doc.ske arm 0 3 0 0", 1, "pin 3 is not one of the 3 pins"},
                          Case{"ik doc.ske arm 0 2 0 0 --lock 7", 1, "locked pin 7"},
                          Case{"ik doc.ske arm 0 2 0 0 --lock", 1, "--lock takes a pin index"},
                          Case{"ik doc.ske arm 0 2 0 0 --spin", 1, "unknown option --spin"},
                          Case{"ik doc.ske arm 0 two 0 0", 1, "are indices"},
                          Case{"ik doc.ske arm 0 2 x 0", 1, "is not a point"},
                          Case{"ik doc.ske arm 0 2 0", 2, "usage: kovra-cli ik"},
                          Case{"pose doc.ske walk", 2, "usage: kovra-cli pose"}}) {
        SCOPED_TRACE(c.arguments);
        const Result result = Run(c.arguments);
        EXPECT_EQ(result.code, c.code);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1);
        EXPECT_NE(result.err.find(c.says), std::string::npos) << result.err;
    }
}

}  // namespace
}  // namespace kovra
