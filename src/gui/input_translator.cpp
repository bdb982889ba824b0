#include "gui/input_translator.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleHints>
#include <QWheelEvent>

#include <cmath>

#include "gui/virtual_keys.h"

namespace kestrel2::win {

namespace {

int ButtonIndex(Qt::MouseButton button) {
    switch (button) {
        case Qt::LeftButton:
            return kButtonLeft;
        case Qt::RightButton:
            return kButtonRight;
        case Qt::MiddleButton:
            return kButtonMiddle;
        case Qt::XButton1:
            return kButtonX1;
        case Qt::XButton2:
            return kButtonX2;
        default:
            return -1;
    }
}

int ToPixel(double logical, double ratio) {
    return static_cast<int>(std::floor(logical * ratio));
}

}  // namespace

InputTranslator::InputTranslator(Input& input)
    : input_(input),
      doubleClick_(QGuiApplication::styleHints()->mouseDoubleClickInterval(),
                   QGuiApplication::styleHints()->mouseDoubleClickDistance()) {}

bool InputTranslator::Feed(QEvent& event, int width, int height, double ratio) {
    switch (event.type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease: {
            auto& key = static_cast<QKeyEvent&>(event);
            const int virtualKey = VirtualKeyFromQt(key.key(), key.modifiers().testFlag(Qt::KeypadModifier));
            if (virtualKey == 0) {
                return false;
            }
            if (event.type() == QEvent::KeyPress) {
                input_.KeyDown(virtualKey, key.isAutoRepeat());
            } else if (!key.isAutoRepeat()) {
                // An auto-repeat comes as a release and a press; only the press is a repeat.
                input_.KeyUp(virtualKey);
            }
            return true;
        }
        case QEvent::MouseMove: {
            const QPointF at = static_cast<QMouseEvent&>(event).position();
            const bool inside = at.x() >= 0 && at.y() >= 0 && at.x() < width && at.y() < height;
            input_.MouseMove(ToPixel(at.x(), ratio), ToPixel(at.y(), ratio), inside);
            return true;
        }
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease: {
            auto& mouse = static_cast<QMouseEvent&>(event);
            const int button = ButtonIndex(mouse.button());
            if (button < 0) {
                return false;
            }
            const int x = ToPixel(mouse.position().x(), ratio);
            const int y = ToPixel(mouse.position().y(), ratio);
            if (event.type() == QEvent::MouseButtonRelease) {
                input_.ButtonUp(button, x, y);
                return true;
            }
            const Qt::KeyboardModifiers held = mouse.modifiers();
            const bool isDouble = doubleClick_.Press(button, ToPixel(mouse.position().x(), 1.0),
                                                     ToPixel(mouse.position().y(), 1.0), mouse.timestamp());
            input_.ButtonDown(button, x, y, isDouble,
                              Modifiers{held.testFlag(Qt::ControlModifier), held.testFlag(Qt::ShiftModifier),
                                        held.testFlag(Qt::AltModifier)});
            return true;
        }
        case QEvent::MouseButtonDblClick:
            return true;  // the press before it was already recognised as the double click
        case QEvent::Wheel: {
            const QPoint delta = static_cast<QWheelEvent&>(event).angleDelta();
            if (delta.y() != 0) {
                input_.Wheel(delta.y());
            }
            if (delta.x() != 0) {
                // The toolkit counts a turn to the left as positive, the virtual wheel a turn to the right.
                input_.HorizontalWheel(-delta.x());
            }
            return true;
        }
        case QEvent::Leave:
            input_.MouseLeave();
            return true;
        case QEvent::FocusOut:
            input_.FocusLost();
            return true;
        default:
            return false;
    }
}

}  // namespace kestrel2::win
