#include "state/file_workflow.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <deque>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "commands/bg_commands.h"
#include "commands/doc_state.h"
#include "commands/pin_commands.h"
#include "commands/skin_commands.h"
#include "support/english.h"
#include "support/image_library.h"
#include "support/scripted_prompt.h"
#include "support/temp_dir.h"
#include "textures/image_commands.h"
#include "textures/texture_commands.h"

namespace kovra {
namespace {

namespace fs = std::filesystem;

std::string Contents(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// A picture of 16 x 8 pixels written as a PNG file.
void WritePicture(const std::string& file) {
    WirrelTexImage image;
    image.surface.Resize(16, 8);
    image.surface.Clear(0xFF3080C0);
    ASSERT_TRUE(image.Save(file));
}

class ScriptedChooser : public DocumentChooser {
public:
    aurel::DualString ChooseOpen() override { return Next(opens); }
    aurel::DualString ChooseSave() override {
        ++saveAsked;
        return Next(saves);
    }

    std::deque<aurel::DualString> opens;
    std::deque<aurel::DualString> saves;
    int saveAsked = 0;

private:
    static aurel::DualString Next(std::deque<aurel::DualString>& queue) {
        if (queue.empty()) {
            return {};
        }
        aurel::DualString next = queue.front();
        queue.pop_front();
        return next;
    }
};

// One run of the editor as the file commands see it; destroying it without EndSession is a crash.
struct Session {
    explicit Session(const std::string& recoveryFolder) : recovery(recoveryFolder) {}

    // A command as a view would hand it over.
    void Run(std::shared_ptr<ICommand> command) { stack.AddCommand(std::move(command)); }

    WirrelDoc document;
    CommandStack stack;
    test::RecordingHub hub;
    PinClipboard pins;
    SelectionTracker pinSelection;
    SelectionTracker textureSelection;
    SelectionTracker imageSelection;
    test::ScriptedPrompt prompt;
    ScriptedChooser chooser;
    CrashRecovery recovery;
    std::vector<aurel::DualString> recent;
    int notesShown = 0;
    FileWorkflow workflow{
        WorkflowContext{.document = document,
                        .stack = stack,
                        .hub = hub,
                        .pins = pins,
                        .textureSelection = textureSelection,
                        .imageSelection = imageSelection,
                        .prompt = prompt,
                        .chooser = chooser,
                        .recovery = recovery,
                        .onClosed = [] {},
                        .onOpened = [] {},
                        .onNotes = [this] { ++notesShown; },
                        .onRecent = [this](const aurel::DualString& path) { recent.push_back(path); }}};
};

class FileWorkflowTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        test::LoadEnglish();
        test::StartImageLibrary();
    }

    FileWorkflowTest() { StartSession(); }

    void StartSession() { session = std::make_unique<Session>(dir.File("recovery")); }
    Session& S() { return *session; }

    // A rig on a sprite sheet beside the document: one image, one texture, a root and a bone wearing it.
    void BuildRig() {
        WritePicture(dir.File("sheet.png"));
        Session& s = S();
        s.workflow.New();
        aurel::SilentPrompt quiet;  // no colour key for the sheet
        CommandImgLoad load(s.document, {dir.File("sheet.png")}, quiet, s.textureSelection, s.imageSelection,
                            kImgLoadAdd, false);
        ASSERT_TRUE(load.succeeded);
        s.Run(std::make_shared<CommandTexCreate>(0, s.document, s.textureSelection, TexRect{2, 1, 10, 7}));
        s.Run(std::make_shared<CommandPinNew>(s.document, s.pinSelection,
                                              PinDescription{0.0f, 0.0f, -1, "root"}));
        s.Run(std::make_shared<CommandPinNew>(s.document, s.pinSelection,
                                              PinDescription{0.5f, 20.0f, 0, "arm"}));
        s.Run(std::make_shared<CommandSkinSet>(s.document, s.pinSelection, 1, 0));
    }

    // Saves under `name` in the temporary folder through Save As.
    bool SaveAs(const std::string& name) {
        S().chooser.saves.push_back(dir.File(name));
        return S().workflow.SaveAs();
    }

    test::TempDir dir;
    std::unique_ptr<Session> session;
};

TEST_F(FileWorkflowTest, TheSaveQuestionGuardsEveryWayOut) {
    struct Way {
        const char* name;
        std::function<bool(Session&)> leave;
        bool onlyAsks;  // the question alone, as on closing the window or Exit
    };
    const std::vector<Way> ways = {
        {"new", [](Session& s) { return s.workflow.New(); }, false},
        {"open", [this](Session& s) { return s.workflow.Open(dir.File("other.ske"), false); }, false},
        {"close or exit", [](Session& s) { return s.workflow.ConfirmSave(); }, true},
    };
    struct Answer {
        int answer;
        bool leaves;
        bool saved;
    };
    const std::vector<Answer> answers = {{aurel::kAnswerCancel, false, false},
                                         {aurel::kAnswerNo, true, false},
                                         {aurel::kAnswerYes, true, true}};
    BuildRig();
    ASSERT_TRUE(SaveAs("other.ske"));
    for (const Way& way : ways) {
        for (const Answer& answer : answers) {
            SCOPED_TRACE(std::string(way.name) + " answered " + std::to_string(answer.answer));
            StartSession();
            BuildRig();
            fs::remove(dir.File("rig.ske"));
            S().prompt.Answer(answer.answer);
            S().chooser.saves.push_back(dir.File("rig.ske"));
            EXPECT_EQ(way.leave(S()), answer.leaves);
            ASSERT_EQ(S().prompt.asked.size(), 1u);
            EXPECT_EQ(S().prompt.asked[0].title.Utf8(), "Save Changes?");
            EXPECT_EQ(S().prompt.asked[0].buttons, aurel::PromptButtons::YesNoCancel);
            EXPECT_EQ(fs::exists(dir.File("rig.ske")), answer.saved) << "an unsaved document asks for a name";
            const bool kept = !answer.leaves || (way.onlyAsks && !answer.saved);
            EXPECT_EQ(S().stack.IsDirty(), kept);
        }
    }
    // A clean document is left without a question.
    S().prompt.asked.clear();
    S().stack.MarkSaved();
    EXPECT_TRUE(S().workflow.ConfirmSave());
    EXPECT_TRUE(S().prompt.asked.empty());
}

TEST_F(FileWorkflowTest, SaveAsTakesTheKindFromTheExtensionAndEntersTheRecentList) {
    const std::vector<std::pair<std::string, bool>> names = {
        {"a.ske", true}, {"b.SKE", true}, {"c.ski", false}};
    BuildRig();
    for (const auto& [name, isSke] : names) {
        ASSERT_TRUE(SaveAs(name)) << name;
        EXPECT_EQ(S().document.fileWith, isSke) << name;
        EXPECT_EQ(S().document.path.Utf8(), dir.File(name));
        EXPECT_EQ(S().recent.back().Utf8(), dir.File(name));
        EXPECT_FALSE(S().stack.IsDirty());
    }
    EXPECT_EQ(Contents(dir.File("a.ske")), Contents(dir.File("c.ski"))) << "the kind changes no byte";
    // A cancelled dialog saves nothing.
    S().Run(std::make_shared<CommandPinName>(S().document, 1, "hand"));
    EXPECT_FALSE(S().workflow.SaveAs());
    EXPECT_TRUE(S().stack.IsDirty());
    EXPECT_EQ(S().recent.size(), names.size());
}

TEST_F(FileWorkflowTest, OpenReadsTheDocumentWithItsImagesAndAnExampleStaysNameless) {
    BuildRig();
    S().document.SetNotes("hello");
    ASSERT_TRUE(SaveAs("rig.ske"));
    for (const bool asTemplate : {false, true}) {
        SCOPED_TRACE(asTemplate ? "as template" : "as document");
        StartSession();
        S().chooser.opens.push_back(dir.File("rig.ske"));
        ASSERT_TRUE(asTemplate ? S().workflow.Open(dir.File("rig.ske"), true) : S().workflow.OpenDialog());
        const WirrelDoc& document = S().document;
        EXPECT_EQ(document.PinCount(), 2u);
        ASSERT_EQ(document.images.size(), 1u);
        EXPECT_EQ(document.images[0]->surface.Width(), 16);
        EXPECT_EQ(document.images[0]->marks.count(0), 1u) << "the texture is registered with its image";
        EXPECT_EQ(S().hub.editMode, kModeAnimate);
        EXPECT_EQ(document.cursor.frameIndex, 0u);
        EXPECT_EQ(S().notesShown, 1);
        EXPECT_FALSE(S().stack.IsDirty());
        EXPECT_EQ(document.hasPath, !asTemplate);
        EXPECT_EQ(S().recent.size(), asTemplate ? 0u : 1u);
        EXPECT_TRUE(S().prompt.asked.empty());
    }
    // Save of a template asks for a name; a cancelled name writes nothing.
    const std::string before = Contents(dir.File("rig.ske"));
    EXPECT_FALSE(S().workflow.Save());
    EXPECT_EQ(S().chooser.saveAsked, 1);
    EXPECT_EQ(Contents(dir.File("rig.ske")), before);
}

TEST_F(FileWorkflowTest, AFileThatCannotBeOpenedIsToldAbout) {
    std::ofstream(dir.File("junk.ske")) << "not a document";
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"missing.ske", "The file does not exist."}, {"junk.ske", "The file could not be read"}};
    for (const auto& [name, message] : cases) {
        BuildRig();
        S().stack.MarkSaved();
        S().prompt.asked.clear();
        EXPECT_FALSE(S().workflow.Open(dir.File(name), false)) << name;
        ASSERT_EQ(S().prompt.asked.size(), 1u) << name;
        EXPECT_EQ(S().prompt.asked[0].title.Utf8(), "Error");
        EXPECT_EQ(S().prompt.asked[0].text.Utf8().rfind(message, 0), 0u) << S().prompt.asked[0].text.Utf8();
        EXPECT_TRUE(S().recent.empty());
    }
    // The missing file left the document alone; the unreadable one ended in a new document.
    EXPECT_EQ(S().document.PinCount(), 0u);
    EXPECT_EQ(S().document.Wirrel().anims.size(), 1u);
    EXPECT_EQ(S().hub.editMode, kModeTextures);
}

TEST_F(FileWorkflowTest, AMissingImageKeepsItsTexturesSkinsAndRecord) {
    BuildRig();
    ASSERT_TRUE(SaveAs("rig.ske"));
    const Wirrel tables = S().document.Wirrel();
    fs::remove(dir.File("sheet.png"));
    StartSession();
    ASSERT_TRUE(S().workflow.Open(dir.File("rig.ske"), false));
    ASSERT_EQ(S().prompt.asked.size(), 1u);
    EXPECT_EQ(S().prompt.asked[0].title.Utf8(), "File not found");
    EXPECT_NE(S().prompt.asked[0].text.Utf8().find(dir.File("sheet.png")), std::string::npos);
    const WirrelDoc& document = S().document;
    EXPECT_EQ(document.PinCount(), 2u);
    EXPECT_EQ(document.Wirrel().textures, tables.textures);
    EXPECT_EQ(document.Wirrel().skins, tables.skins);
    ASSERT_EQ(document.images.size(), 1u);
    EXPECT_TRUE(document.images[0]->surface.IsEmpty());
    EXPECT_FALSE(document.missingTextureImage.IsEmpty());

    ASSERT_TRUE(S().workflow.Save());
    StartSession();
    ASSERT_TRUE(S().workflow.Open(dir.File("rig.ske"), false));
    ASSERT_EQ(S().document.images.size(), 1u);
    EXPECT_EQ(S().document.images[0]->path.Utf8(), dir.File("sheet.png"));
}

TEST_F(FileWorkflowTest, AFailedSaveLeavesTheFileAsItWasAndTheDocumentDirty) {
    BuildRig();
    ASSERT_TRUE(SaveAs("rig.ske"));
    const std::string before = Contents(dir.File("rig.ske"));
    S().Run(std::make_shared<CommandPinName>(S().document, 1, "a much longer name of the arm"));

    // A full disk: no file may grow beyond a few bytes while the save runs.
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    rlimit tiny = old;
    tiny.rlim_cur = 64;
    setrlimit(RLIMIT_FSIZE, &tiny);
    const bool saved = S().workflow.Save();
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);

    EXPECT_FALSE(saved);
    EXPECT_EQ(Contents(dir.File("rig.ske")), before);
    EXPECT_TRUE(S().stack.IsDirty());
    ASSERT_EQ(S().prompt.asked.size(), 1u);
    EXPECT_NE(S().prompt.asked[0].text.Utf8().find(dir.File("rig.ske")), std::string::npos);

    // A folder that can't hold the file: the reason is told, the document keeps its path.
    EXPECT_FALSE(SaveAs("rig.ske/inside.ske"));
    EXPECT_EQ(S().prompt.asked.size(), 2u);
    EXPECT_EQ(S().document.path.Utf8(), dir.File("rig.ske"));
    EXPECT_TRUE(S().stack.IsDirty());
}

TEST_F(FileWorkflowTest, ABackgroundIsFoundAgainWhereverTheDocumentIsSavedNext) {
    fs::create_directories(dir.Path() / "a");
    fs::create_directories(dir.Path() / "b");
    WritePicture(dir.File("a/bg.png"));
    S().workflow.New();
    S().Run(std::make_shared<CommandBgLoad>(S().document, S().hub, S().prompt, dir.File("a/bg.png")));
    ASSERT_TRUE(SaveAs("a/doc.ske"));

    StartSession();
    ASSERT_TRUE(S().workflow.Open(dir.File("a/doc.ske"), true));
    EXPECT_EQ(S().document.background.path.Utf8(), dir.File("a/bg.png"));
    EXPECT_EQ(S().document.background.bitmap.Width(), 16);
    EXPECT_TRUE(S().hub.backgroundLoaded);
    ASSERT_TRUE(SaveAs("b/doc.ske"));
    EXPECT_TRUE(S().prompt.asked.empty()) << "no question about another drive";

    StartSession();
    ASSERT_TRUE(S().workflow.Open(dir.File("b/doc.ske"), false));
    EXPECT_EQ(S().document.background.path.Utf8(), dir.File("a/bg.png"));
}

TEST_F(FileWorkflowTest, ACrashLeavesACopyThatTheNextStartOffers) {
    BuildRig();
    ASSERT_TRUE(SaveAs("rig.ske"));
    S().Run(std::make_shared<CommandPinName>(S().document, 1, "wing"));
    const auto start = CrashRecovery::Clock::now();
    S().workflow.TickRecovery(start + std::chrono::seconds(119));
    EXPECT_TRUE(Session(dir.File("recovery")).recovery.Store().Leftovers().empty());
    S().workflow.TickRecovery(start + std::chrono::minutes(3));
    StartSession();  // the earlier session ends without a word: a crash

    for (const int answer : {-1, int{kRecoveryRestore}}) {
        S().prompt.Answer(answer);
        S().workflow.OfferRecovery();
        ASSERT_EQ(S().prompt.asked.size(), 1u);
        EXPECT_NE(S().prompt.asked[0].text.Utf8().find(dir.File("rig.ske")), std::string::npos);
        S().prompt.asked.clear();
    }
    const WirrelDoc& document = S().document;
    EXPECT_EQ(document.Wirrel().pinNames.size(), 2u);
    EXPECT_EQ(NameOf(document.Wirrel().pinNames[1]), "wing");
    EXPECT_EQ(document.path.Utf8(), dir.File("rig.ske"));
    EXPECT_TRUE(S().stack.IsDirty());
    EXPECT_EQ(document.images[0]->surface.Width(), 16) << "the images come back from where they were";
    EXPECT_TRUE(S().recent.empty());

    // The restored work is kept by this session until it is saved, to the original path.
    StartSession();
    S().prompt.Answer(kRecoveryRestore);
    S().workflow.OfferRecovery();
    ASSERT_TRUE(S().workflow.Save());
    EXPECT_EQ(S().chooser.saveAsked, 0);
    S().workflow.EndSession();
    StartSession();
    S().workflow.OfferRecovery();
    EXPECT_TRUE(S().prompt.asked.empty()) << "a clean end leaves no copy";
}

TEST_F(FileWorkflowTest, ACleanEndOrADiscardLeavesNoCopy) {
    BuildRig();
    const auto later = CrashRecovery::Clock::now() + std::chrono::minutes(3);
    S().workflow.TickRecovery(later);
    S().workflow.EndSession();
    StartSession();
    EXPECT_TRUE(S().recovery.Store().Leftovers().empty());

    BuildRig();
    S().workflow.TickRecovery(later);
    StartSession();
    S().prompt.Answer(kRecoveryDiscard);
    S().workflow.OfferRecovery();
    EXPECT_EQ(S().prompt.asked.size(), 1u);
    EXPECT_TRUE(S().recovery.Store().Leftovers().empty());
    EXPECT_EQ(S().document.PinCount(), 0u);
}

TEST(DocumentChooserTest, TheDialogsOfferAllFilesFirstThenBothKindsOfDocument) {
    test::LoadEnglish();
    const kestrel2::win::FileDialog dialog(DocumentFilters(), kDocumentFilterIndex);
    EXPECT_EQ(dialog.NameFilters(), (std::vector<std::string>{"All Files (*.*)", "Kovra Document (*.ske)",
                                                              "Kovra Document, Images Apart (*.ski)"}));
    EXPECT_EQ(dialog.FilterIndex(), 1);
}

}  // namespace
}  // namespace kovra
