#pragma once
// What the property grids of the navigation column show for the document and its selections, and the
// command an accepted value becomes. Rows are named as the grid shows them; a value is read back by
// the row's name, so the grid's order is told in one place only.

#include <memory>
#include <string>
#include <vector>

#include <boost/any.hpp>

#include "commands/command.h"
#include "doc/editor_hub.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"

namespace kovra {

struct NavRow {
    std::string name;
    int type = 0;
    std::string value;
    boost::any constraint;
    bool enabled = true;
};

// The rows of a pin by its type: a title row first, named by the type, then the values.
std::vector<NavRow> PinRows(WirrelDoc& doc, int pin);
std::vector<NavRow> SkinRows(const WirrelSkin& skin);
std::vector<NavRow> TextureRows(const WirrelTexture& texture);
std::vector<NavRow> BackgroundRows(const WirrelDoc& doc, const EditorHub& hub);
// The first collision rectangle of the pin, shown for reading; empty without one.
std::vector<NavRow> CollisionRows(const WirrelDoc& doc, int pin);

// The command for a value typed into the row of that name, or null when it changes nothing. Colour rows
// give their colour in `colour`.
std::shared_ptr<ICommand> PinEdit(WirrelDoc& doc, int pin, const std::string& row, const std::string& text);
std::shared_ptr<ICommand> SkinEdit(WirrelDoc& doc, int pin, const std::string& row, const std::string& text);
std::shared_ptr<ICommand> TextureEdit(WirrelDoc& doc, SelectionTracker& textures, const std::string& row,
                                      const std::string& text);
std::shared_ptr<ICommand> BackgroundEdit(WirrelDoc& doc, EditorHub& hub, const std::string& row,
                                         const std::string& text, aurel::Color32 colour);

// A number as the grids show it: at most three decimals, without trailing zeros.
std::string NumberText(float value);

// The skin of the pin in the current key frame, or null when it has none.
WirrelSkin* SkinOf(WirrelDoc& doc, int pin);
// The pin record at the index of the current key frame, or null.
WirrelPin* PinAt(WirrelDoc& doc, int pin);

}  // namespace kovra
