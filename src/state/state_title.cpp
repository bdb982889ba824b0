#include "state/state_title.h"

#include <filesystem>

#include "app/app.h"
#include "gui/main_window.h"
#include "settings/folders.h"
#include "settings/lang.h"

namespace kovra {

void StateTitle::Attach(aurel::App& app) {
    app_ = &app;
    aurel::SettingsStore& settings = app.Settings();
    settings.Select("App");
    const std::string language = settings.GetString("Language", "English").Utf8();
    const std::string folder = aurel::ProgramFolder() + "Lang/";
    if (!aurel::LoadLanguageFile(folder + language + ".txt")) {
        aurel::LoadLanguageFile(folder + "English.txt");
    }
    document_.Reset(true);
}

aurel::DualString StateTitle::Title() const {
    const std::string name =
        document_.hasPath ? std::filesystem::path(document_.path.Utf8()).filename().string() : "Untitled";
    return aurel::DualString(name + " - " + app_->Name().Utf8());
}

void StateTitle::Update() {
    if (kestrel2::win::MainWindow* window = kestrel2::win::GlobalMainWindow()) {
        const aurel::DualString title = Title();
        if (!(window->Title() == title)) {
            window->SetTitle(title);
        }
    }
}

}  // namespace kovra
