#include "state/document_chooser.h"

#include "settings/lang.h"

namespace kovra {

std::vector<kestrel2::win::FileFilter> DocumentFilters() {
    return {{aurel::Lang("DIALOG", "FileAll"), "*.*"},
            {aurel::Lang("DIALOG", "FileWith"), "*.ske"},
            {aurel::Lang("DIALOG", "FileWithout"), "*.ski"}};
}

aurel::DualString DialogDocumentChooser::ChooseOpen() {
    kestrel2::win::FileDialog dialog(DocumentFilters(), kDocumentFilterIndex);
    const std::vector<aurel::DualString> chosen = dialog.Open(nullptr, {}, false);
    return chosen.empty() ? aurel::DualString() : chosen.front();
}

aurel::DualString DialogDocumentChooser::ChooseSave() {
    kestrel2::win::FileDialog dialog(DocumentFilters(), kDocumentFilterIndex);
    return dialog.Save(nullptr, {}, {});
}

}  // namespace kovra
