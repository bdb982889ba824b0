#pragma once
// A control the program draws itself. It paints into its back buffer, a 32-bit surface always the size of
// its client, and the buffer reaches the screen in one copy; mouse and keys reach it as InputEvents from
// its own Input. None of this needs a native window: a control can be sized, painted and fed input
// headless, which is how views are tested.
//
// On a screen with a device pixel ratio above 1 the buffer has the screen's pixels, not the layout's:
// client pixels are device pixels, and a view scales the theme's pixel sizes by PixelRatio() so that
// nothing is blurred and sizes look the same. At ratio 1 every figure is exactly as given.

#include "bitmap/image_surface.h"
#include "gui/i_gui_control.h"
#include "gui/input.h"

namespace kestrel2::win {

// The shapes a control may ask for: the arrow, the pointing hand, and the arrows of moving and of sizing
// along an axis or a diagonal (Diagonal runs from top left to bottom right, AntiDiagonal the other way).
enum class Cursor { Arrow, Hand, SizeAll, SizeHorizontal, SizeVertical, SizeDiagonal, SizeAntiDiagonal };

class IGuiCustomControl : public IGuiControl {
public:
    IGuiCustomControl();
    ~IGuiCustomControl() override;

    // Draws the control into its back buffer.
    virtual void OnPaint(aurel::ImageSurface& target) = 0;
    // Receives the control's mouse and key events; the first of the input's listeners.
    virtual void OnInput(InputEvent& event) = 0;
    // The mouse cursor over the control, asked after each mouse move.
    virtual Cursor OnCursor() { return Cursor::Arrow; }

    // Asks for a repaint; the platform paints when it next can.
    void Redraw() override;
    // Paints the back buffer now and answers it; what the screen shows at the next repaint.
    aurel::ImageSurface& Paint();

    // Device pixels per layout pixel: the screen's, or what SetPixelRatio gave a control without one.
    double PixelRatio() const { return ratio_; }
    void SetPixelRatio(double ratio);
    // A theme size in client pixels: the size itself at ratio 1.
    int Scaled(int size) const;
    float Scaled(float size) const;
    // The client in pixels: the back buffer's size.
    int ClientWidth() const { return surface.Width(); }
    int ClientHeight() const { return surface.Height(); }

    aurel::ImageSurface surface;  // the back buffer
    Input input;

protected:
    void OnCreate() override;
    void SizeChanged() override;

private:
    void ResizeBuffer();

    double ratio_ = 1.0;
};

}  // namespace kestrel2::win
