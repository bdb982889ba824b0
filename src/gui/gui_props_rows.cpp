#include "gui/gui_props_rows.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace kestrel2::win {

namespace {

constexpr int kBand = 18;
constexpr int kSeparator = 6;

int Scale(int size, double ratio) {
    return static_cast<int>(std::lround(size * ratio));
}

// Sign and digits with at most `points` points among them.
bool IsNumberText(std::string_view text, int points) {
    std::size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
        ++i;
    }
    int digits = 0;
    for (; i < text.size(); ++i) {
        if (text[i] >= '0' && text[i] <= '9') {
            ++digits;
        } else if (text[i] == '.' && points > 0) {
            --points;
        } else {
            return false;
        }
    }
    return digits > 0;
}

PropRefusal Invalid(std::string text) {
    return PropRefusal{"Invalid input", std::move(text)};
}

}  // namespace

bool IsIntegerText(std::string_view text) {
    return IsNumberText(text, 0);
}

bool IsFloatText(std::string_view text) {
    return IsNumberText(text, 1);
}

std::string FloatText(float value) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof(buffer), value).ptr;
    return std::string(buffer, end);
}

std::string ColorText(aurel::Color32 colour) {
    char buffer[16];
    if (colour.A() == 255) {
        std::snprintf(buffer, sizeof(buffer), "#%02X%02X%02X", colour.R(), colour.G(), colour.B());
    } else {
        std::snprintf(buffer, sizeof(buffer), "#%02X%02X%02X%02X", colour.R(), colour.G(), colour.B(),
                      colour.A());
    }
    return buffer;
}

std::optional<PropRefusal> ValidateProp(int type, const boost::any& constraint, std::string_view text,
                                        bool allowEmpty) {
    const bool checkNumber = !text.empty() || !allowEmpty;
    const std::string owned(text);
    switch (type) {
        case kPropString: {
            const unsigned maximum = boost::any_cast<unsigned>(constraint);
            if (text.size() >= maximum) {
                return Invalid("This string can be no more than " + std::to_string(maximum) +
                               " characters long.");
            }
            return std::nullopt;
        }
        case kPropFloat:
        case kPropFloatRange: {
            if (checkNumber && !IsFloatText(text)) {
                return Invalid("This is not a valid floating point number.");
            }
            if (type == kPropFloatRange && !text.empty()) {
                const auto range = boost::any_cast<std::pair<float, float>>(constraint);
                const float value = std::strtof(owned.c_str(), nullptr);
                if (value < range.first || value > range.second) {
                    return Invalid("This floating point value must be within the range (" +
                                   FloatText(range.first) + " - " + FloatText(range.second) + ")");
                }
            }
            return std::nullopt;
        }
        case kPropInt:
        case kPropIntRange: {
            if (checkNumber && !IsIntegerText(text)) {
                return Invalid("This is not a valid integer.");
            }
            if (type == kPropIntRange && !text.empty()) {
                const auto range = boost::any_cast<std::pair<int, int>>(constraint);
                const long long value = std::strtoll(owned.c_str(), nullptr, 10);
                if (value < range.first || value > range.second) {
                    return Invalid("This integer must be within the range (" + std::to_string(range.first) +
                                   " - " + std::to_string(range.second) + ")");
                }
            }
            return std::nullopt;
        }
        default:
            return std::nullopt;
    }
}

std::vector<PropRowRect> LayOutPropRows(const std::vector<PropRow>& rows, int width, double ratio) {
    std::vector<PropRowRect> rects;
    int y = Scale(1, ratio);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].type == kPropSeparator) {
            y += Scale(kSeparator, ratio);
            continue;
        }
        const int band = Scale(kBand, ratio);
        rects.push_back(PropRowRect{static_cast<int>(i), y, y + band - 1,
                                    Scale(rows[i].nameColumnWidth, ratio), width - Scale(4, ratio) - 1});
        y += band + Scale(1, ratio);
    }
    return rects;
}

int PropRowsHeight(const std::vector<PropRow>& rows) {
    int height = 2;
    for (const PropRow& row : rows) {
        height += row.type == kPropSeparator ? kSeparator : kBand + 1;
    }
    return height;
}

}  // namespace kestrel2::win
