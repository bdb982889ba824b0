#pragma once
// An editor hub for work on a document without the editor around it (building documents by program,
// measuring): it keeps the animation list's selection, plays nothing and shows nothing.

#include "doc/editor_hub.h"

namespace kovra {

class HeadlessHub : public EditorHub {
public:
    int EditMode() const override { return mode_; }
    void SetEditMode(int mode) override { mode_ = mode; }
    int SkinTool() const override { return tool_; }
    void SetSkinTool(int tool) override { tool_ = tool; }
    int AnimListSelection() const override { return list_; }
    void SetAnimListSelection(int index) override { list_ = index; }
    bool IsPlaying() const override { return false; }
    void StopPlayback() override {}
    WorkGrid Grid() const override { return grid_; }
    void SetGrid(const WorkGrid& grid) override { grid_ = grid; }
    aurel::Color32 BackgroundColor() const override { return colour_; }
    void SetBackgroundColor(aurel::Color32 colour) override { colour_ = colour; }
    void SetBackgroundLoaded(bool) override {}

private:
    int mode_ = kModeBuild;
    int tool_ = kToolSkin;
    int list_ = 0;
    WorkGrid grid_;
    aurel::Color32 colour_ = 0xFF808080;
};

}  // namespace kovra
