#include "commands/anim_commands.h"

#include <algorithm>

#include "anim/playback.h"
#include "doc/pin_tree.h"

namespace kovra {

CommandAnimNew::CommandAnimNew(WirrelDoc& doc, SelectionTracker& selection, EditorHub& hub,
                               std::string_view name, std::uint32_t frameTicks)
    : WirrelCommand("New Animation"),
      doc_(doc),
      selection_(selection),
      hub_(hub),
      selectionBefore_(selection),
      cursorBefore_(doc.cursor),
      listBefore_(hub.AnimListSelection()) {
    SetName(anim_.name, name);
    anim_.keys.push_back(WirrelKey{.pins = doc.CurrentKey().pins, .ticks = frameTicks});
    Redo();
}

void CommandAnimNew::Redo() {
    doc_.AddAnim(NameOf(anim_.name), kAnimEmpty, -1);
    doc_.CurrentAnim() = anim_;
    hub_.SetAnimListSelection(doc_.cursor.animIndex);
    ClearPins(selection_);
    doc_.onChanged.Call();
}

void CommandAnimNew::Undo() {
    std::vector<WirrelAnim>& anims = doc_.Wirrel().anims;
    anims.pop_back();
    doc_.onAnimRemoved.Call(static_cast<int>(anims.size()));
    doc_.cursor = cursorBefore_;
    hub_.SetAnimListSelection(listBefore_);
    selectionBefore_.Restore(selection_);
    doc_.onChanged.Call();
}

CommandAnimName::CommandAnimName(WirrelDoc& doc, std::string_view name)
    : WirrelCommand("Rename Animation"), doc_(doc), oldName_(NameOf(doc.cursor.animName)), newName_(name) {
    Redo();
}

void CommandAnimName::Write(const std::string& name) {
    doc_.RenameCurrentAnim(name);
    doc_.onChanged.Call();
}

CommandAnimDelete::CommandAnimDelete(WirrelDoc& doc, SelectionTracker& selection, EditorHub& hub)
    : WirrelCommand("Delete Animation"),
      doc_(doc),
      selection_(selection),
      hub_(hub),
      animsBefore_(doc.Wirrel().anims),
      index_(doc.cursor.animIndex),
      cursorBefore_(doc.cursor),
      listBefore_(hub.AnimListSelection()),
      selectionBefore_(selection) {
    Redo();
}

void CommandAnimDelete::Redo() {
    std::vector<WirrelAnim>& anims = doc_.Wirrel().anims;
    anims.erase(anims.begin() + index_);
    doc_.onAnimRemoved.Call(index_);
    ClearPins(selection_);
    const int current = std::min(index_, static_cast<int>(anims.size()) - 1);
    doc_.cursor.animIndex = current;
    doc_.cursor.animName = current >= 0 ? anims[current].name : Name32{};
    doc_.SetFrame(0);
    hub_.SetAnimListSelection(current);
    doc_.onChanged.Call();
}

void CommandAnimDelete::Undo() {
    doc_.Wirrel().anims = animsBefore_;
    doc_.onAnimAdded.Call(index_);
    doc_.cursor = cursorBefore_;
    hub_.SetAnimListSelection(listBefore_);
    selectionBefore_.Restore(selection_);
    doc_.onChanged.Call();
}

CommandAnimSel::CommandAnimSel(WirrelDoc& doc, SelectionTracker& selection, EditorHub& hub, int index)
    : WirrelCommand("Animation Selection"),
      doc_(doc),
      selection_(selection),
      hub_(hub),
      index_(index),
      cursorBefore_(doc.cursor),
      listBefore_(hub.AnimListSelection()),
      selectionBefore_(selection) {
    const std::vector<WirrelPin>& pins = doc.CurrentKey().pins;
    const int hot = selection.hotItem;
    const WirrelKey& target = doc.Wirrel().anims[index].keys.front();
    const int at = hot >= 0 && hot < static_cast<int>(pins.size()) ? FindPin(pins[hot].id, hot, target) : -1;
    keepsPins_ = at >= 0 && !IsHidden(target, at);
    Redo();
}

void CommandAnimSel::Redo() {
    if (!keepsPins_) {
        ClearPins(selection_);
    }
    SwitchAnimation(doc_, index_);
    hub_.SetAnimListSelection(index_);
    doc_.onChanged.Call();
}

void CommandAnimSel::Undo() {
    selectionBefore_.Restore(selection_);
    doc_.cursor = cursorBefore_;
    hub_.SetAnimListSelection(listBefore_);
    doc_.onChanged.Call();
}

}  // namespace kovra
