#include "commands/repeat.h"

namespace kovra {

unsigned RepeatModesOf(const ICommand& command) {
    const auto* document = dynamic_cast<const WirrelCommand*>(&command);
    return document != nullptr ? document->RepeatModes() : 0;
}

void ForEachRepeatFrame(WirrelDoc& doc, unsigned mask, const std::function<void(WirrelKey&)>& change) {
    const int currentAnim = doc.cursor.animIndex;
    const std::size_t currentFrame = doc.cursor.frameIndex;
    std::vector<WirrelAnim>& anims = doc.Wirrel().anims;
    for (std::size_t a = 0; a < anims.size(); ++a) {
        const bool isCurrent = static_cast<int>(a) == currentAnim;
        if ((mask & kRepeatAllAnims) == 0 && !isCurrent) {
            continue;
        }
        std::vector<WirrelKey>& keys = anims[a].keys;
        for (std::size_t k = 0; k < keys.size(); ++k) {
            if ((isCurrent && k == currentFrame) || ((mask & kRepeatPost) != 0 && k < currentFrame) ||
                ((mask & kRepeatPre) != 0 && k > currentFrame)) {
                continue;
            }
            change(keys[k]);
        }
    }
}

CommandRepeat::CommandRepeat(WirrelDoc& doc, std::shared_ptr<ICommand> inner, unsigned mask)
    : WirrelCommand("Repeat " + inner->label.Utf8()),
      doc_(doc),
      inner_(std::move(inner)),
      mask_(mask),
      before_(doc.Wirrel()) {
    Redo();
}

void CommandRepeat::Redo() {
    Repeat(mask_);
    doc_.onChanged.Call();
}

void CommandRepeat::Undo() {
    doc_.SetWirrel(before_);
    doc_.onChanged.Call();
}

unsigned CommandRepeat::RepeatModes() const {
    return RepeatModesOf(*inner_);
}

bool CommandRepeat::Repeat(unsigned mask) {
    auto* document = dynamic_cast<WirrelCommand*>(inner_.get());
    return document != nullptr && document->Repeat(mask);
}

}  // namespace kovra
