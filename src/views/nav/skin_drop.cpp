#include "views/nav/skin_drop.h"

#include <cmath>

#include "commands/pin_commands.h"
#include "commands/skin_commands.h"
#include "doc/pin_tree.h"
#include "settings/lang.h"

namespace kovra {

std::shared_ptr<CommandMacro> MakeSkinDrop(WirrelDoc& doc, SelectionTracker& pins, int texture, int pin,
                                           float x, float y) {
    if (!doc.HasCurrentAnim() || doc.CurrentAnim().keys.empty() || texture < 0 ||
        texture >= static_cast<int>(doc.Wirrel().textures.size())) {
        return nullptr;
    }
    auto macro = std::make_shared<CommandMacro>(aurel::Lang("COMMANDS", "SkinDrag").Utf8(), 0);
    const int count = static_cast<int>(doc.CurrentKey().pins.size());
    if (pin < 0 || pin >= count) {
        // A new root, given in polar form about the origin.
        const std::string name =
            aurel::Lang("COMMON", "PinDefault").Utf8() + " " + std::to_string(doc.Wirrel().pinNames.size());
        macro->Add(std::make_shared<CommandPinNew>(
            doc, pins, PinDescription{NormalizeAngle(std::atan2(y, x)), std::hypot(x, y), -1, name}));
        pin = static_cast<int>(doc.CurrentKey().pins.size()) - 1;
    }
    macro->Add(std::make_shared<CommandSkinSet>(doc, pins, pin, texture));
    return macro;
}

}  // namespace kovra
