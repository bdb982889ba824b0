#include "timeline_fixture.h"

#include "support/english.h"

namespace kovra::test {

namespace win = kestrel2::win;

TimelineFixture::TimelineFixture(int width, int height) {
    LoadEnglish();
    doc.Reset(true);
    doc.AddPin(0.0f, 0.0f, -1, "root");
    doc.AddPin(0.5f, 2.0f, 0, "arm");
    WirrelAnim& anim = doc.CurrentAnim();
    anim.keys[0].ticks = 1200;
    for (int i = 1; i < 3; ++i) {
        WirrelKey key = anim.keys[0];
        key.pins[1].angle = 0.5f + static_cast<float>(i);
        anim.keys.push_back(key);
    }
    doc.snapFrames = 2;  // three cells a second
    view = std::make_unique<TimelineView>(doc, hub, selection, prompt);
    view->commandListeners.Add(&stack, &CommandStack::AddCommand);
    view->dragEndListeners.Add(&stack, &CommandStack::FinishDrag);
    view->eventListeners.Add(this, &TimelineFixture::PassedOn);
    doc.onChanged.Add(view.get(), &TimelineView::Invalidate);
    view->SetSize(width, height);
    view->Sync();
}

std::vector<std::uint8_t> TimelineFixture::Bytes() const {
    return WriteWirrel(doc.Wirrel(), {}, {});
}

std::vector<std::uint32_t> TimelineFixture::Ticks() const {
    std::vector<std::uint32_t> ticks;
    for (const WirrelKey& key : doc.Wirrel().anims[doc.cursor.animIndex].keys) {
        ticks.push_back(key.ticks);
    }
    return ticks;
}

void TimelineFixture::Send(int type) {
    event.type = type;
    view->OnInput(event);
}

void TimelineFixture::Move(int x, int y) {
    event.dx = x - event.x;
    event.dy = y - event.y;
    event.x = x;
    event.y = y;
    Send(win::kInputMouseMove);
}

void TimelineFixture::Press(int button, int x, int y) {
    event.x = x;
    event.y = y;
    event.button = button;
    event.buttons[button] = 1;
    event.pressed = 1;
    Send(win::kInputButtonDown);
}

void TimelineFixture::Release(int button, int x, int y) {
    event.x = x;
    event.y = y;
    event.button = button;
    event.buttons[button] = 0;
    event.pressed = 0;
    Send(win::kInputButtonUp);
}

void TimelineFixture::KeyDown(int key) {
    event.key = static_cast<std::uint8_t>(key);
    event.keys[key] = 1;
    Send(win::kInputKeyDown);
}

void TimelineFixture::KeyUp(int key) {
    event.key = static_cast<std::uint8_t>(key);
    event.keys[key] = 0;
    Send(win::kInputKeyUp);
}

void TimelineFixture::Drag(int fromX, int fromY, int toX, int toY, int steps) {
    Move(fromX, fromY);
    Press(win::kButtonLeft, fromX, fromY);
    for (int i = 1; i <= steps; ++i) {
        Move(fromX + (toX - fromX) * i / steps, fromY + (toY - fromY) * i / steps);
    }
    Release(win::kButtonLeft, toX, toY);
}

void TimelineFixture::Click(int x, int y) {
    Move(x, y);
    Press(win::kButtonLeft, x, y);
    Release(win::kButtonLeft, x, y);
}

void TimelineFixture::Wheel(int dy) {
    event.dy = dy;
    Send(win::kInputWheel);
}

}  // namespace kovra::test
