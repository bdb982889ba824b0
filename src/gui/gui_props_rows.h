#pragma once
// The rows of a property grid and the rules for what may be typed into them, without any window: the
// row record, the number tests of the toolkit, the check of a typed value with the message that refuses
// it, and where each row stands in a grid of a given width.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <boost/any.hpp>

#include "base/color32.h"
#include "base/dual_string.h"

namespace kestrel2::win {

enum PropType : int {
    kPropSeparator = 0,
    kPropTitle = 1,
    kPropString = 2,      // constraint: unsigned, the maximum length
    kPropFloat = 3,       //
    kPropFloatRange = 4,  // constraint: std::pair<float, float>
    kPropInt = 5,         //
    kPropIntRange = 6,    // constraint: std::pair<int, int>
    kPropColor = 7,       // constraint: aurel::Color32
};

struct PropRow {
    bool enabled = true;
    aurel::DualString name;
    int type = kPropString;
    aurel::DualString value;
    boost::any constraint;
    int nameColumnWidth = 72;
};

// Why a typed value was refused: the title and text of the message that says so.
struct PropRefusal {
    std::string title;
    std::string text;
    bool operator==(const PropRefusal&) const = default;
};

// A sign, then digits; a float may hold one point among its digits. At least one digit either way.
bool IsIntegerText(std::string_view text);
bool IsFloatText(std::string_view text);

// Checks the text typed into a row of the type and constraint. An empty number passes when
// `allowEmpty`; a string row refuses a text as long as its maximum or longer.
std::optional<PropRefusal> ValidateProp(int type, const boost::any& constraint, std::string_view text,
                                        bool allowEmpty);

// The shortest text that reads back as the same float: "0.5", "360".
std::string FloatText(float value);
// A colour as a colour row shows its text: "#RRGGBB", with the alpha after when it isn't opaque.
std::string ColorText(aurel::Color32 colour);

// Where a row stands: its band, and the rectangle of its value (edges included).
struct PropRowRect {
    int row = -1;
    int top = 0, bottom = 0;
    int valueLeft = 0, valueRight = 0;
};

// The rows' rectangles in a grid `width` client pixels wide, each figure scaled by `ratio`: rows begin at
// y 1, a band is 18 high and the next begins one pixel after it; a separator only leaves a gap.
std::vector<PropRowRect> LayOutPropRows(const std::vector<PropRow>& rows, int width, double ratio);

// The height the rows need, in layout pixels, border included.
int PropRowsHeight(const std::vector<PropRow>& rows);

}  // namespace kestrel2::win
