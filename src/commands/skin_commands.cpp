#include "commands/skin_commands.h"

#include "commands/skin_geometry.h"
#include "doc/skins.h"

namespace kovra {

using namespace skin;

SkinState SkinState::Of(const Wirrel& wirrel) {
    SkinState state{wirrel.skins, {}};
    for (const WirrelAnim& anim : wirrel.anims) {
        for (const WirrelKey& key : anim.keys) {
            for (const WirrelPin& pin : key.pins) {
                state.indices.push_back(pin.skin);
            }
        }
    }
    return state;
}

void SkinState::Restore(Wirrel& wirrel) const {
    wirrel.skins = skins;
    auto index = indices.begin();
    for (WirrelAnim& anim : wirrel.anims) {
        for (WirrelKey& key : anim.keys) {
            for (WirrelPin& pin : key.pins) {
                pin.skin = *index++;
            }
        }
    }
}

SkinTables SkinTables::Of(const Wirrel& wirrel) {
    return {wirrel.anims, wirrel.pinNames, wirrel.skins};
}

void SkinTables::Restore(Wirrel& wirrel) const {
    wirrel.anims = anims;
    wirrel.pinNames = pinNames;
    wirrel.skins = skins;
}

CommandSkinSet::CommandSkinSet(WirrelDoc& doc, SelectionTracker& selection, int pin, int texture)
    : WirrelCommand("Set Skin"),
      doc_(doc),
      selection_(selection),
      pin_(pin),
      texture_(texture),
      before_(SkinState::Of(doc.Wirrel())),
      selectionBefore_(selection) {
    Redo();
}

void CommandSkinSet::Redo() {
    Wirrel& wirrel = doc_.Wirrel();
    WirrelKey& key = doc_.CurrentKey();
    const WirrelPin& pin = key.pins[pin_];
    WirrelSkin record;
    if (pin.skin >= 0 && static_cast<std::size_t>(pin.skin) < wirrel.skins.size()) {
        record = wirrel.skins[pin.skin];
    } else {
        // A first skin lies along the bone, upright.
        record.angle = AutoSkinAngle(wirrel, texture_, pin.angle);
    }
    record.texture = texture_;
    SetPinSkin(wirrel, key, pin_, record);
    selection_.Clear();
    selection_.Add(pin_, true);
    selection_.SetHot(pin_, 0);
    doc_.onChanged.Call();
}

void CommandSkinSet::Undo() {
    before_.Restore(doc_.Wirrel());
    selectionBefore_.Restore(selection_);
    doc_.onChanged.Call();
}

CommandSkinProperty::CommandSkinProperty(WirrelDoc& doc, std::string_view text, int kind, int pin,
                                         const WirrelSkin& record)
    : WirrelCommand(text),
      doc_(doc),
      kind_(kind),
      pin_(pin),
      before_(SkinState::Of(doc.Wirrel())),
      record_(record) {
    Redo();
}

void CommandSkinProperty::Redo() {
    SetPinSkin(doc_.Wirrel(), doc_.CurrentKey(), pin_, record_);
    doc_.onChanged.Call();
}

void CommandSkinProperty::Undo() {
    before_.Restore(doc_.Wirrel());
    doc_.onChanged.Call();
}

bool CommandSkinProperty::Merge(ICommand& next) {
    auto* other = dynamic_cast<CommandSkinProperty*>(&next);
    if (other == nullptr || other->kind_ != kind_ || other->pin_ != pin_) {
        return false;
    }
    record_ = other->record_;
    return true;
}

std::shared_ptr<CommandSkinProperty> MakeSkinReset(WirrelDoc& doc, int pin, int part, bool ctrl, bool alt) {
    const Wirrel& wirrel = doc.Wirrel();
    const WirrelPin& record = doc.CurrentKey().pins[pin];
    const WirrelSkin* skin = TexturedSkin(wirrel, record);
    if (skin == nullptr) {
        return nullptr;
    }
    const auto reset = [&](const char* text, int kind, SkinReset what, bool negative) {
        return std::make_shared<CommandSkinProperty>(
            doc, text, kind, pin, ResetSkin(wirrel, record, *skin, what, negative, alt, ctrl));
    };
    switch (part) {
        case kGripBody:
            return reset("Reset Skin Offset", kKindSkinResetOffset, SkinReset::Offset, false);
        case kGripScaleTop:
        case kGripScaleBottom:
            return reset("Reset Skin Scale", kKindSkinResetScale, SkinReset::ScaleY, part == kGripScaleTop);
        case kGripScaleRight:
        case kGripScaleLeft:
            return reset("Reset Skin Scale", kKindSkinResetScale, SkinReset::ScaleX, part == kGripScaleLeft);
        default:
            if (part >= kGripRotate0 && part <= kGripRotate2) {
                return reset("Reset Skin Angle", kKindSkinResetAngle, SkinReset::Angle, false);
            }
            return nullptr;
    }
}

CommandSkinRotate::CommandSkinRotate(const SkinDrag& drag, const std::vector<SkinGrip>& grips, WirrelDoc& doc,
                                     const SelectionTracker& selection)
    : WirrelCommand("Rotate Skin"),
      doc_(doc),
      selected_(selection.selected),
      before_(SkinState::Of(doc.Wirrel())) {
    const SkinGrip* g = GripsOf(grips, selection.currentItem);
    if (g != nullptr && selection.currentPart > 0 && selection.currentPart < kGripsPerPin) {
        const Vec2 centre = Centre(g);
        const float start = Direction(centre, drag.anchor);
        total_ = Direction(centre, Dragged(drag)) - start;
        // The grip in the table has turned with the moves before this one.
        step_ = total_ - (Direction(centre, At(g[selection.currentPart])) - start);
    }
    Redo();
}

void CommandSkinRotate::Redo() {
    EditSelectedSkins(doc_, selected_, [this](WirrelSkin& skin) { skin.angle += step_; });
}

void CommandSkinRotate::Undo() {
    before_.Restore(doc_.Wirrel());
    doc_.onChanged.Call();
}

bool CommandSkinRotate::Merge(ICommand& next) {
    if (next.GetType() != GetType()) {
        return false;
    }
    total_ = static_cast<CommandSkinRotate&>(next).total_;
    step_ = total_;
    // The whole turn from the skins before the drag, so that the document holds what a redo gives.
    before_.Restore(doc_.Wirrel());
    Redo();
    return true;
}

CommandSkinScale::CommandSkinScale(const SkinDrag& drag, const std::vector<SkinGrip>& grips, WirrelDoc& doc,
                                   const SelectionTracker& selection, bool expand)
    : WirrelCommand(expand ? "Expand Skin" : "Scale Skin"),
      doc_(doc),
      selected_(selection.selected),
      pin_(selection.currentItem),
      before_(SkinState::Of(doc.Wirrel())) {
    const SkinGrip* g = GripsOf(grips, pin_);
    const int part = selection.currentPart;
    if (g != nullptr && part >= kGripScaleTop && part <= kGripScaleLeft) {
        // The side grips move along one axis of the skin: the right and left ones along its width.
        const bool alongWidth = part == kGripScaleRight || part == kGripScaleLeft;
        const Vec2 axis = alongWidth ? Unit(Minus(At(g[kGripScaleRight]), At(g[kGripScaleLeft])))
                                     : Unit(Minus(At(g[kGripScaleBottom]), At(g[kGripScaleTop])));
        const Vec2 centre = Centre(g);
        const float from = Dot(Minus(At(g[part]), centre), axis);
        const float to = Dot(Minus(Dragged(drag), centre), axis);
        const float ratio = from * from > 1e-5f ? to / from : 1.0f;
        factorX_ = expand || alongWidth ? ratio : 1.0f;
        factorY_ = expand || !alongWidth ? ratio : 1.0f;
    }
    Redo();
}

void CommandSkinScale::Redo() {
    EditSelectedSkins(doc_, selected_, [this](WirrelSkin& skin) {
        skin.scaleX *= factorX_;
        skin.scaleY *= factorY_;
    });
}

void CommandSkinScale::Undo() {
    before_.Restore(doc_.Wirrel());
    doc_.onChanged.Call();
}

bool CommandSkinScale::Merge(ICommand& next) {
    if (next.GetType() != GetType() || next.label.Utf8() != label.Utf8()) {
        return false;
    }
    // The factors of the whole drag: the skin as the newcomer left it over the skin before this command.
    const WirrelSkin* now = SkinOfPin(doc_, pin_);
    const bool scaled = now != nullptr;
    const WirrelSkin latest = scaled ? *now : WirrelSkin{};
    before_.Restore(doc_.Wirrel());
    const WirrelSkin* start = SkinOfPin(doc_, pin_);
    if (scaled && start != nullptr) {
        factorX_ = start->scaleX != 0.0f ? latest.scaleX / start->scaleX : factorX_;
        factorY_ = start->scaleY != 0.0f ? latest.scaleY / start->scaleY : factorY_;
    }
    Redo();
    return true;
}

}  // namespace kovra
