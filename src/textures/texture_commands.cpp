#include "textures/texture_commands.h"

#include <algorithm>
#include <set>
#include <utility>

#include "textures/detection.h"
#include "textures/texture_edit.h"

namespace kovra {
namespace {

bool MovesRight(int grip) {
    return grip == kGripRight || grip == kGripTopRight || grip == kGripBottomRight;
}
bool MovesLeft(int grip) {
    return grip == kGripLeft || grip == kGripTopLeft || grip == kGripBottomLeft;
}
bool MovesTop(int grip) {
    return grip == kGripTop || grip == kGripTopLeft || grip == kGripTopRight;
}
bool MovesBottom(int grip) {
    return grip == kGripBottom || grip == kGripBottomLeft || grip == kGripBottomRight;
}

// A negative extent turns the rectangle over: it then starts where it ended.
void Flip(int& start, int& extent) {
    if (extent < 0) {
        start += extent;
        extent = -extent;
    }
}

// A Prompt that accepts: a command asked its questions once, and a redo takes the answer given then.
class Accepting : public aurel::Prompt {
public:
    int Ask(const aurel::PromptRequest& request) override {
        return request.buttons == aurel::PromptButtons::YesNo ? aurel::kAnswerYes : aurel::kAnswerOk;
    }
};

}  // namespace

void UpdateTextureMarks(WirrelDoc& document, int index) {
    const auto& textures = document.Wirrel().textures;
    if (index < 0 || index >= static_cast<int>(textures.size())) {
        return;
    }
    const WirrelTexture& t = textures[index];
    if (auto image = document.Image(t.imageIndex)) {
        image->UpdateMarks(index, t.x, t.y, t.width, t.height);
    }
}

CommandTexCreate::CommandTexCreate(int imageIndex, WirrelDoc& document, SelectionTracker& selection,
                                   TexRect rect)
    : WirrelCommand("Create Texture"),
      imageIndex_(imageIndex),
      document_(document),
      selection_(selection),
      rect_(rect),
      saved_(selection.Snapshot()) {
    Redo();
}

void CommandTexCreate::Redo() {
    auto& textures = document_.Wirrel().textures;
    textures.push_back(
        {imageIndex_, rect_.left, rect_.top, rect_.right - rect_.left, rect_.bottom - rect_.top});
    const int index = static_cast<int>(textures.size()) - 1;
    UpdateTextureMarks(document_, index);
    selection_.SetCurrent(index, 0);
    document_.onChanged.Call();
}

void CommandTexCreate::Undo() {
    selection_.Restore(saved_);
    auto& textures = document_.Wirrel().textures;
    if (auto image = document_.Image(imageIndex_)) {
        image->EraseMarks(static_cast<std::int32_t>(textures.size()) - 1);
    }
    textures.pop_back();
    document_.onChanged.Call();
}

CommandTexMove::CommandTexMove(WirrelDoc& document, SelectionTracker& selection, TexRect start, int grip,
                               float offsetX, float offsetY)
    : WirrelCommand("Modify Texture"),
      before_(document.Wirrel().textures),
      document_(document),
      selection_(selection),
      start_(start),
      grip_(grip),
      offsetX_(offsetX),
      offsetY_(offsetY) {
    Redo();
}

WirrelTexture CommandTexMove::Moved(TexRect start, int grip, int dx, int dy, int width, int height) {
    int x = start.left;
    int y = start.top;
    int w = start.right - start.left;
    int h = start.bottom - start.top;
    if (grip >= kGripMove) {
        if (x + dx < 0)
            dx = -x;
        if (x + dx + w >= width)
            dx = width - w - x;
        if (y + dy < 0)
            dy = -y;
        if (y + dy + h >= height)
            dy = height - h - y;
        return {-1, x + dx, y + dy, w, h};
    }
    if (MovesRight(grip)) {
        const int r = x + w;
        if (r + dx < 0)
            dx = -r;
        if (r + dx >= width)
            dx = width - w - x;
        w += dx;
        if (w == 0) {
            w = 1;
        } else {
            Flip(x, w);
        }
    } else if (MovesLeft(grip)) {
        if (x + dx < 0)
            dx = -x;
        if (x + dx >= width)
            dx = width - x;
        x += dx;
        w -= dx;
        if (w == 0) {
            w = 1;
            x -= 1;
        } else {
            Flip(x, w);
        }
    } else {
        Flip(x, w);
    }
    if (MovesTop(grip)) {
        if (y + dy < 0)
            dy = -y;
        if (y + dy >= height)
            dy = height - y;
        h -= dy;
        y += dy;
        // One, not zero: unlike the left edge, a top edge that leaves no height keeps it.
        if (h == 1) {
            y -= 1;
        } else {
            Flip(y, h);
        }
    } else if (MovesBottom(grip)) {
        const int b = y + h;
        if (b + dy < 0)
            dy = -b;
        if (b + dy >= height)
            dy = height - h - y;
        h += dy;
        if (h == 0) {
            h = 1;
        } else {
            Flip(y, h);
        }
    } else {
        Flip(y, h);
    }
    return {-1, x, y, w, h};
}

void CommandTexMove::Redo() {
    auto& textures = document_.Wirrel().textures;
    const int index = selection_.currentItem;
    if (index >= 0 && index < static_cast<int>(textures.size())) {
        WirrelTexture& texture = textures[index];
        const auto image = document_.Image(texture.imageIndex);
        const int width = image ? image->surface.Width() : 0;
        const int height = image ? image->surface.Height() : 0;
        const WirrelTexture moved =
            Moved(start_, grip_, static_cast<int>(offsetX_), static_cast<int>(offsetY_), width, height);
        texture = {texture.imageIndex, moved.x, moved.y, moved.width, moved.height};
    }
    document_.onChanged.Call();
}

void CommandTexMove::Undo() {
    document_.Wirrel().textures = before_;
    UpdateTextureMarks(document_, selection_.currentItem);
    document_.onChanged.Call();
}

bool CommandTexMove::Merge(ICommand& next) {
    auto* newer = dynamic_cast<CommandTexMove*>(&next);
    if (newer == nullptr) {
        return false;
    }
    offsetX_ = newer->offsetX_;
    offsetY_ = newer->offsetY_;
    return true;
}

void CommandTexMove::OnFreeze() {
    UpdateTextureMarks(document_, selection_.currentItem);
}

CommandTexDelete::CommandTexDelete(WirrelDoc& document, SelectionTracker& selection)
    : WirrelCommand(selection.selected.size() > 1 ? "Delete Textures" : "Delete Texture"),
      before_(document.Wirrel()),
      saved_(selection.Snapshot()),
      selection_(selection),
      document_(document) {
    Redo();
}

void CommandTexDelete::Redo() {
    const auto& textures = document_.Wirrel().textures;
    for (int index : saved_.selected) {
        if (index >= 0 && index < static_cast<int>(textures.size())) {
            if (auto image = document_.Image(textures[index].imageIndex)) {
                image->EraseMarks(index);
            }
        }
    }
    RemoveTextures(document_, saved_.selected);
    selection_.Clear();
    selection_.SetCurrent(-1, selection_.currentPart);
    if (selection_.notify) {
        selection_.onSelectionChanged.Call();
    }
    if (!textures.empty()) {
        const int index = std::min(saved_.currentItem, static_cast<int>(textures.size()) - 1);
        if (index != -1) {
            selection_.Add(index, true);
        }
    }
    document_.onChanged.Call();
}

void CommandTexDelete::Undo() {
    before_.Restore(document_.Wirrel());
    for (int index : selection_.selected) {
        UpdateTextureMarks(document_, index);
    }
    selection_.Restore(saved_);
    document_.onChanged.Call();
}

CommandTexProperty::CommandTexProperty(WirrelDoc& document, SelectionTracker& selection, int kind,
                                       aurel::DualString text, const WirrelTexture& record)
    : WirrelCommand(text.Utf8()),
      before_(document.Wirrel().textures),
      document_(document),
      selection_(selection),
      kind_(kind),
      record_(record) {
    Redo();
}

void CommandTexProperty::Redo() {
    auto& textures = document_.Wirrel().textures;
    const int index = selection_.currentItem;
    if (index >= 0 && index < static_cast<int>(textures.size())) {
        textures[index] = record_;
    }
    document_.onChanged.Call();
}

void CommandTexProperty::Undo() {
    document_.Wirrel().textures = before_;
    document_.onChanged.Call();
}

bool CommandTexProperty::Merge(ICommand& next) {
    auto* newer = dynamic_cast<CommandTexProperty*>(&next);
    if (newer == nullptr || newer->kind_ != kind_) {
        return false;
    }
    record_ = newer->record_;
    return true;
}

CommandTexAutoDetect::CommandTexAutoDetect(WirrelDoc& document, aurel::Prompt& window,
                                           SelectionTracker& textureSelection,
                                           SelectionTracker& imageSelection)
    : WirrelCommand("Auto-detect Textures"),
      document_(document),
      window_(window),
      textureSelection_(textureSelection),
      imageSelection_(imageSelection),
      imageIndex_(imageSelection.currentItem),
      saved_(textureSelection.Snapshot()),
      before_(document.Wirrel()) {
    Redo();
}

void CommandTexAutoDetect::Redo() {
    const auto image = document_.Image(imageIndex_);
    succeeded = false;
    if (image != nullptr) {
        Accepting accepting;
        aurel::Prompt& window = asked_ ? static_cast<aurel::Prompt&>(accepting) : window_;
        succeeded = ApplyDetection(false, *image, imageIndex_, document_, window, textureSelection_,
                                   keyChoice_, imageSelection_);
        asked_ = true;
    }
    document_.onChanged.Call();
}

void CommandTexAutoDetect::Undo() {
    before_.Restore(document_.Wirrel());
    textureSelection_.Restore(saved_);
    document_.onChanged.Call();
}

}  // namespace kovra
