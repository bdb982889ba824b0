// The editor state started on an installed tree, its program folder found from bin/ by the same rule
// the installed editor follows: the language, the themes and the examples must all be there.

#include <gtest/gtest.h>

#include <filesystem>

#include "app/app.h"
#include "settings/folders.h"
#include "settings/lang.h"
#include "settings/theme.h"
#include "state/fake_shell_window.h"
#include "state/main_menu.h"
#include "state/state_title.h"
#include "support/english.h"

namespace kovra {
namespace {

TEST(InstalledTreeTest, StartsWithItsLanguageThemesAndExamples) {
    const std::string folder = aurel::ProgramFolderOf(KOVRA_INSTALL_PREFIX "/bin");
    ASSERT_EQ(std::filesystem::weakly_canonical(folder),
              std::filesystem::weakly_canonical(KOVRA_INSTALL_PREFIX "/share/kovra/"));
    aurel::App app{"Kovra", ""};
    test::FakeShellWindow window;
    {
        StateTitle state(window, folder, aurel::DualString());
        state.Attach(app);
        state.Init();
        state.Update();
        EXPECT_EQ(window.title.Utf8(), "Untitled - Kovra") << "the language file was read";
        EXPECT_EQ(aurel::LoadedLanguagePath().Utf8().rfind(folder, 0), 0u);
        EXPECT_EQ(aurel::LoadedThemePath().Utf8(), folder + "Themes/Paleform.txt");
        EXPECT_NE(state.Menu().Find(kMenuThemeFirst + 1), nullptr) << "both themes are offered";
        ASSERT_NE(state.Menu().Find(kMenuExampleFirst), nullptr);
        state.OnMenuCommand(kMenuExampleFirst);
        EXPECT_TRUE(window.prompt.asked.empty());
        EXPECT_GT(state.Document().PinCount(), 0u);
        state.Shutdown();
    }
    test::LoadEnglish();
    aurel::LoadTheme(aurel::DualString(std::string(KOVRA_DATA) + "/Themes/Paleform.txt"), "Paleform",
                     app.Settings());
}

}  // namespace
}  // namespace kovra
