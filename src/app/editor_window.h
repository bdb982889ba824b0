#pragma once
// The editor state's view of the main window, over the toolkit: the title, the menu bar and
// accelerators, the system clipboard, the focused text box, dropped files, the theme watch timer, the
// close question and message boxes. It binds to the main window when the state attaches.

#include <memory>

#include "state/shell_window.h"

namespace aurel {

class EditorWindow : public kovra::ShellWindow {
public:
    EditorWindow();
    ~EditorWindow() override;

    void Attach(kovra::ShellHandler& handler, int timerMs) override;
    void Detach() override;

    kestrel2::win::Gui& Root() override;
    DualString Title() const override;
    void SetTitle(const DualString& title) override;
    void ShowMenu(const std::vector<kestrel2::win::MenuNode>& menus) override;
    void AddAccelerator(const std::string& keys, int id) override;

    bool ClipboardHasBitmap() const override;
    std::vector<std::uint8_t> ClipboardBitmap() const override;

    bool TextBoxHasFocus() const override;
    void CommitTextBox() override;
    bool EditTextBox(kovra::TextBoxEdit edit) override;

    void Redraw() override;
    void Close() override;
    aurel::Prompt& Prompt() override;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace aurel
