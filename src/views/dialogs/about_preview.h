#pragma once
// The About box's little stage: a figure from a document file, played in a loop and painted with the
// workspace's own painters.

#include <string>

#include "doc/wirrel_doc.h"
#include "gui/i_gui_custom_control.h"
#include "views/workspace/workspace_paint.h"

namespace kovra {

class AboutPreview : public kestrel2::win::IGuiCustomControl {
public:
    static constexpr int kFrameMs = 33;

    // Reads the figure; a file that can't be read leaves the stage empty.
    explicit AboutPreview(const std::string& figureFile);

    // Moves the figure on by the seconds and paints it.
    void Step(float seconds);
    const WirrelDoc& Figure() const { return figure_; }

    void OnPaint(aurel::ImageSurface& target) override;
    void OnInput(kestrel2::win::InputEvent&) override {}
    void OnTimer(int timerId) override;
    void OnCreated() override;

private:
    WirrelDoc figure_;
    WorkspaceState state_;
    WorkspaceBuffers buffers_;
};

}  // namespace kovra
