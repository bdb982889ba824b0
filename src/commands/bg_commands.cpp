#include "commands/bg_commands.h"

#include <string>
#include <utility>

#include "images/wirrel_tex_image.h"
#include "settings/lang.h"

namespace kovra {
namespace {

// The failure message for a picture from a file: the language's text with the quoted path for "%1".
std::string FileFailure(const aurel::DualString& file) {
    std::string text = aurel::Lang("MESSAGES", "ErrorLoadImage").Utf8();
    const std::string quoted = "\"" + file.Utf8() + "\"";
    for (std::size_t at = text.find("%1"); at != std::string::npos;
         at = text.find("%1", at + quoted.size())) {
        text.replace(at, 2, quoted);
    }
    return text;
}

// A background showing `image`, placed as a fresh one.
WirrelBackground Showing(aurel::ImageSurface image, const aurel::DualString& path) {
    WirrelBackground background;
    background.bitmap = std::move(image);
    background.path = path;
    return background;
}

}  // namespace

BgPlacement BgPlacement::Of(const WirrelBackground& background) {
    return {background.scale, background.offsetX, background.offsetY, background.alpha};
}

void BgPlacement::ApplyTo(WirrelBackground& background) const {
    background.scale = scale;
    background.offsetX = offsetX;
    background.offsetY = offsetY;
    background.alpha = alpha;
}

CommandBgChange::CommandBgChange(WirrelDoc& doc, std::string_view text, int kind,
                                 const BgPlacement& placement)
    : WirrelCommand(text), doc_(doc), kind_(kind), other_(placement) {
    Redo();
}

void CommandBgChange::Redo() {
    const BgPlacement current = BgPlacement::Of(doc_.background);
    other_.ApplyTo(doc_.background);
    other_ = current;
    doc_.onChanged.Call();
}

bool CommandBgChange::Merge(ICommand& next) {
    return next.GetType() == GetType();
}

CommandBgClear::CommandBgClear(WirrelDoc& doc, EditorHub& hub)
    : WirrelCommand("Clear Background Image"), doc_(doc), hub_(hub), before_(doc.background) {
    Redo();
}

void CommandBgClear::Redo() {
    doc_.background = WirrelBackground{};
    hub_.SetBackgroundLoaded(false);
    doc_.onChanged.Call();
}

void CommandBgClear::Undo() {
    doc_.background = before_;
    hub_.SetBackgroundLoaded(!doc_.background.bitmap.IsEmpty());
    doc_.onChanged.Call();
}

CommandBgLoad::CommandBgLoad(WirrelDoc& doc, EditorHub& hub, aurel::Prompt& window,
                             const aurel::DualString& file)
    : WirrelCommand("Load Background Image"), doc_(doc), hub_(hub) {
    WirrelTexImage image(file);
    if (image.Load(file) != 0 || image.surface.IsEmpty()) {
        window.Tell(aurel::Lang("MESSAGES", "Error"), FileFailure(file), aurel::PromptIcon::Error);
        return;
    }
    other_ = Showing(std::move(image.surface), file);
    valid = true;
    Redo();
}

CommandBgLoad::CommandBgLoad(WirrelDoc& doc, EditorHub& hub, aurel::Prompt& window, const void* data,
                             std::size_t size)
    : WirrelCommand("Paste Background Image"), doc_(doc), hub_(hub) {
    WirrelTexImage image;
    if (!image.LoadMemory(data, size) || image.surface.IsEmpty()) {
        window.Tell(aurel::Lang("MESSAGES", "Error"), aurel::Lang("MESSAGES", "ErrorLoadImageAny"),
                    aurel::PromptIcon::Error);
        return;
    }
    other_ = Showing(std::move(image.surface), {});
    valid = true;
    Redo();
}

void CommandBgLoad::Redo() {
    std::swap(doc_.background, other_);
    hub_.SetBackgroundLoaded(!doc_.background.bitmap.IsEmpty());
    doc_.onChanged.Call();
}

CommandBgToggle::CommandBgToggle(WirrelDoc& doc)
    : WirrelCommand(doc.viewFlags[kViewBackground] ? "Disable Background Image" : "Enable Background Image"),
      doc_(doc) {
    Redo();
}

void CommandBgToggle::Redo() {
    doc_.viewFlags[kViewBackground] = !doc_.viewFlags[kViewBackground];
    doc_.onChanged.Call();
}

CommandBgGrid::CommandBgGrid(EditorHub& hub, const WorkGrid& grid)
    : WirrelCommand("Set Grid"), hub_(hub), old_(hub.Grid()), new_(grid) {
    Redo();
}

CommandBgColor::CommandBgColor(EditorHub& hub, aurel::Color32 colour)
    : WirrelCommand("Set Background Color"), hub_(hub), old_(hub.BackgroundColor()), new_(colour) {
    Redo();
}

}  // namespace kovra
