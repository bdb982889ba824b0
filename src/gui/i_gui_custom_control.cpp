#include "gui/i_gui_custom_control.h"

#include <QEvent>
#include <QImage>
#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <cmath>

#include "gui/input_translator.h"

namespace kestrel2::win {

namespace {

Qt::CursorShape ShapeOf(Cursor cursor) {
    switch (cursor) {
        case Cursor::Hand:
            return Qt::PointingHandCursor;
        case Cursor::SizeAll:
            return Qt::SizeAllCursor;
        case Cursor::SizeHorizontal:
            return Qt::SizeHorCursor;
        case Cursor::SizeVertical:
            return Qt::SizeVerCursor;
        case Cursor::SizeDiagonal:
            return Qt::SizeFDiagCursor;
        case Cursor::SizeAntiDiagonal:
            return Qt::SizeBDiagCursor;
        default:
            return Qt::ArrowCursor;
    }
}

// The native side of a custom control: hands its input to the control's Input and shows its back
// buffer. Qt draws nothing else inside it.
class CustomWidget : public QWidget {
public:
    CustomWidget(IGuiCustomControl& owner, QWidget* parent)
        : QWidget(parent), owner_(owner), translator_(owner.input) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setAttribute(Qt::WA_NoSystemBackground);
        setMouseTracking(true);
        setFocusPolicy(Qt::ClickFocus);
    }

protected:
    bool event(QEvent* event) override {
        // The screen decides the ratio, and the window may move to another screen at any time.
        if (devicePixelRatioF() != owner_.PixelRatio()) {
            owner_.SetPixelRatio(devicePixelRatioF());
        }
        if (!translator_.Feed(*event, width(), height(), owner_.PixelRatio())) {
            return QWidget::event(event);
        }
        if (event->type() == QEvent::MouseMove) {
            const Qt::CursorShape shape = ShapeOf(owner_.OnCursor());
            if (cursor().shape() != shape) {
                setCursor(shape);
            }
        }
        // Focus and leave events still go through the widget's own handling.
        if (event->type() == QEvent::FocusOut || event->type() == QEvent::Leave) {
            return QWidget::event(event);
        }
        return true;
    }

    void paintEvent(QPaintEvent*) override {
        const aurel::ImageSurface& buffer = owner_.Paint();
        if (buffer.IsEmpty()) {
            return;
        }
        const aurel::SurfaceView view = buffer.View();
        QImage image(reinterpret_cast<const uchar*>(view.bits), view.width, view.height, view.stride,
                     QImage::Format_ARGB32);
        image.setDevicePixelRatio(owner_.PixelRatio());
        QPainter painter(this);
        painter.drawImage(0, 0, image);
    }

private:
    IGuiCustomControl& owner_;
    InputTranslator translator_;
};

}  // namespace

IGuiCustomControl::IGuiCustomControl() {
    input.listeners.Add(this, &IGuiCustomControl::OnInput);
}

// The widget goes while the control it calls is still whole.
IGuiCustomControl::~IGuiCustomControl() {
    window.Reset();
}

void IGuiCustomControl::OnCreate() {
    auto* widget = new CustomWidget(*this, ParentWidget());
    ratio_ = widget->devicePixelRatioF();
    window = Window(widget, true);
}

void IGuiCustomControl::Redraw() {
    window.Redraw();
}

aurel::ImageSurface& IGuiCustomControl::Paint() {
    if (!surface.IsEmpty()) {
        OnPaint(surface);
    }
    return surface;
}

void IGuiCustomControl::SetPixelRatio(double ratio) {
    if (ratio != ratio_) {
        ratio_ = ratio;
        ResizeBuffer();
        OnResize();
    }
}

int IGuiCustomControl::Scaled(int size) const {
    return static_cast<int>(std::lround(size * ratio_));
}

float IGuiCustomControl::Scaled(float size) const {
    return static_cast<float>(size * ratio_);
}

void IGuiCustomControl::SizeChanged() {
    ResizeBuffer();
    IGuiControl::SizeChanged();
}

void IGuiCustomControl::ResizeBuffer() {
    const int pixelsWide = std::max(0, static_cast<int>(std::lround(width * ratio_)));
    const int pixelsHigh = std::max(0, static_cast<int>(std::lround(height * ratio_)));
    if (pixelsWide == 0 || pixelsHigh == 0) {
        surface.Reset();
    } else if (pixelsWide != surface.Width() || pixelsHigh != surface.Height()) {
        surface.Resize(pixelsWide, pixelsHigh);
    }
}

}  // namespace kestrel2::win
