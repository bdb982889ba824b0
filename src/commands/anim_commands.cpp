#include "commands/anim_commands.h"

namespace kovra {
namespace {

void ClearPins(SelectionTracker& selection) {
    selection.Clear();
    selection.SetHot(-1, 0);
}

}  // namespace

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

}  // namespace kovra
