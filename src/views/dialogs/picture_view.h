#pragma once
// A framed picture of a dialog, scaled to fit and centred, or, without one, a message in its place: the
// notes' image, the image to pack, the pack preview. A click is passed to the click listeners.

#include <string>

#include "gui/i_gui_custom_control.h"

namespace kovra {

class PictureView : public kestrel2::win::IGuiCustomControl {
public:
    PictureView() { font.size = 15; }

    // A copy of the picture is shown; an empty one shows the message.
    void SetPicture(const aurel::ImageSurface& picture);
    void SetMessage(const std::string& message);
    const std::string& Message() const { return message_; }
    bool HasPicture() const { return !picture_.IsEmpty(); }

    void OnPaint(aurel::ImageSurface& target) override;
    void OnInput(kestrel2::win::InputEvent& event) override;

    // Takes files dropped on the picture from now on; they go to the drop listeners.
    void AcceptDrops();

    aurel::ListenerList<int> clickListeners;                      // called with the id
    aurel::ListenerList<const aurel::DualString&> dropListeners;  // the path of each file dropped

private:
    aurel::ImageSurface picture_;
    std::string message_;
};

}  // namespace kovra
