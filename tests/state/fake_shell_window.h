#pragma once
// A main window for tests of the editor state: it keeps what the state shows (title, menu, accelerators)
// and what it asks (redraws, closing), answers clipboard and focus questions from fields the test sets,
// and asks its questions of a scripted prompt. The views are made in the gui tree of a real main window
// of 1000 x 700 on the offscreen platform.

#include "gui/main_window.h"
#include "state/shell_window.h"
#include "support/scripted_prompt.h"

namespace kovra::test {

class FakeShellWindow : public ShellWindow {
public:
    FakeShellWindow() { main.Create(kestrel2::win::Placement{0, 0, 1000, 700, false}, true); }

    void Attach(ShellHandler& shell, int ms) override {
        handler = &shell;
        timerMs = ms;
    }
    void Detach() override { handler = nullptr; }

    kestrel2::win::Gui& Root() override { return main.RootGui(); }
    aurel::DualString Title() const override { return title; }
    void SetTitle(const aurel::DualString& text) override {
        title = text;
        ++titleChanges;
    }
    void ShowMenu(const std::vector<kestrel2::win::MenuNode>& shown) override { menus = shown; }
    void AddAccelerator(const std::string& keys, int id) override { accelerators.emplace_back(keys, id); }

    bool ClipboardHasBitmap() const override { return clipboardBitmap; }
    std::vector<std::uint8_t> ClipboardBitmap() const override { return {}; }

    bool TextBoxHasFocus() const override { return textBoxFocused; }
    void CommitTextBox() override {}
    bool EditTextBox(TextBoxEdit edit) override {
        if (textBoxFocused) {
            textBoxEdits.push_back(edit);
        }
        return textBoxFocused;
    }

    void Redraw() override { ++redraws; }
    void Close() override { closed = true; }
    aurel::Prompt& Prompt() override { return prompt; }

    kestrel2::win::MainWindow main;
    ShellHandler* handler = nullptr;
    int timerMs = 0;
    aurel::DualString title;
    int titleChanges = 0;
    std::vector<kestrel2::win::MenuNode> menus;
    std::vector<std::pair<std::string, int>> accelerators;
    bool clipboardBitmap = false;
    bool textBoxFocused = false;
    std::vector<TextBoxEdit> textBoxEdits;
    int redraws = 0;
    bool closed = false;
    ScriptedPrompt prompt;
};

}  // namespace kovra::test
