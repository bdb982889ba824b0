#include "doc_state.h"

#include <tuple>

namespace kovra::test {
namespace {

auto CursorTie(const PlayCursor& c) {
    return std::tie(c.animIndex, c.animName, c.frameIndex, c.framePos, c.otherAnimName, c.otherFrameIndex,
                    c.otherFramePos, c.blending, c.blendPos, c.blendLength);
}

}  // namespace

bool SameCursor(const PlayCursor& a, const PlayCursor& b) {
    return CursorTie(a) == CursorTie(b);
}

bool DocState::operator==(const DocState& other) const {
    return wirrel == other.wirrel && SameCursor(cursor, other.cursor) && snapFrames == other.snapFrames &&
           hotItem == other.hotItem && hotPart == other.hotPart && selection == other.selection &&
           animList == other.animList;
}

DocState Capture(const WirrelDoc& doc, const SelectionTracker& selection, const RecordingHub& hub) {
    return DocState{doc.Wirrel(),      doc.cursor,           doc.snapFrames,       selection.hotItem,
                    selection.hotPart, selection.Snapshot(), hub.animListSelection};
}

void PrintTo(const DocState& state, std::ostream* out) {
    const Wirrel& w = state.wirrel;
    *out << "\n  cursor anim " << state.cursor.animIndex << " '" << NameOf(state.cursor.animName)
         << "' frame " << state.cursor.frameIndex << " pos " << state.cursor.framePos << " list "
         << state.animList << " snap " << state.snapFrames << "\n  hot " << state.hotItem << "/"
         << state.hotPart << " current " << state.selection.currentItem << "/" << state.selection.currentPart
         << " selected {";
    for (int item : state.selection.selected) {
        *out << " " << item;
    }
    *out << " }\n  " << w.pinNames.size() << " pin names, " << w.skins.size() << " skins, " << w.aabbs.size()
         << " aabbs\n";
    for (const WirrelAnim& anim : w.anims) {
        *out << "  anim '" << NameOf(anim.name) << "' speed " << anim.speed << "\n";
        for (const WirrelKey& key : anim.keys) {
            *out << "    key ticks " << key.ticks << " events " << key.eventFirst << "+" << key.eventCount
                 << ":";
            for (const WirrelPin& pin : key.pins) {
                *out << " [" << pin.id << " p" << pin.parent << " f" << std::hex << pin.flags << std::dec
                     << " " << pin.angle << "," << pin.length << " s" << pin.skin << "]";
            }
            *out << "\n";
        }
    }
}

}  // namespace kovra::test
