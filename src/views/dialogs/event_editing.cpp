#include "views/dialogs/event_editing.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstring>

namespace kovra {

namespace {

constexpr std::uint32_t kTypeFloat = 1;
constexpr std::uint32_t kTypeInt = 2;

// A sign, then digits with at most `points` decimal points among them, at least one digit.
bool IsNumber(const std::string& text, int points) {
    std::size_t i = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
    int digits = 0;
    for (; i < text.size(); ++i) {
        if (text[i] >= '0' && text[i] <= '9') {
            ++digits;
        } else if (text[i] != '.' || points-- == 0) {
            return false;
        }
    }
    return digits > 0;
}

// from_chars takes no plus sign.
std::string_view Unsigned(const std::string& text) {
    std::string_view view(text);
    if (!view.empty() && view[0] == '+') {
        view.remove_prefix(1);
    }
    return view;
}

bool ParseInt(const std::string& text, std::int32_t& value) {
    const std::string_view view = Unsigned(text);
    const auto result = std::from_chars(view.data(), view.data() + view.size(), value);
    return IsNumber(text, 0) && result.ec == std::errc() && result.ptr == view.data() + view.size();
}

bool ParseFloat(const std::string& text, float& value) {
    const std::string_view view = Unsigned(text);
    const auto result = std::from_chars(view.data(), view.data() + view.size(), value);
    return IsNumber(text, 1) && result.ec == std::errc() && result.ptr == view.data() + view.size();
}

std::string VarText(const WirrelEvent& event, int var) {
    const std::uint32_t bits = event.vars[static_cast<std::size_t>(var)];
    switch (event.VarType(var)) {
        case kTypeInt:
            return std::to_string(std::bit_cast<std::int32_t>(bits));
        case kTypeFloat: {
            char buffer[32];
            const auto result = std::to_chars(buffer, buffer + sizeof buffer, std::bit_cast<float>(bits));
            return std::string(buffer, result.ptr);
        }
        default:
            return {};
    }
}

}  // namespace

VarKind KindOfVarText(const std::string& text) {
    std::int32_t integer = 0;
    float real = 0.0f;
    if (text.empty()) {
        return VarKind::None;
    }
    if (ParseInt(text, integer)) {
        return VarKind::Int;
    }
    return ParseFloat(text, real) ? VarKind::Float : VarKind::Invalid;
}

std::string VarRowLabel(int number, const std::string& text) {
    static constexpr const char* kMarks[] = {"", " (int)", " (float)", " (invalid)"};
    return "Var " + std::to_string(number) + kMarks[static_cast<int>(KindOfVarText(text))];
}

EventEditing::EventEditing(const Wirrel& wirrel, int anim, int frame) {
    for (std::size_t a = 0; a < wirrel.anims.size(); ++a) {
        for (std::size_t k = 0; k < wirrel.anims[a].keys.size(); ++k) {
            if (static_cast<int>(a) == anim && static_cast<int>(k) == frame) {
                current_ = frames_.size();
            }
            const WirrelKey& key = wirrel.anims[a].keys[k];
            Frame& rows = frames_.emplace_back();
            for (std::int32_t e = 0; e < key.eventCount; ++e) {
                const WirrelEvent& event = wirrel.events[static_cast<std::size_t>(key.eventFirst + e)];
                Row& row = rows.emplace_back();
                if (event.name < wirrel.eventNames.size()) {
                    row.name = std::string(NameOf(wirrel.eventNames[event.name]));
                }
                for (int var = 0; var < kVarCount; ++var) {
                    row.vars[static_cast<std::size_t>(var)] = VarText(event, var);
                }
            }
        }
    }
    keyCount_ = frames_.size();
    // A document without key frames still gives the dialog a frame to show, which nothing keeps.
    if (frames_.empty()) {
        frames_.emplace_back();
    }
}

bool EventEditing::NameUsedElsewhere(const std::string& name) const {
    for (std::size_t f = 0; f < frames_.size(); ++f) {
        const bool uses = std::any_of(frames_[f].begin(), frames_[f].end(),
                                      [&](const Row& row) { return row.name == name; });
        if (f != current_ && uses) {
            return true;
        }
    }
    return false;
}

int EventEditing::Add() {
    const auto taken = [&](const std::string& name) {
        return std::any_of(frames_.begin(), frames_.end(), [&](const Frame& rows) {
            return std::any_of(rows.begin(), rows.end(), [&](const Row& row) { return row.name == name; });
        });
    };
    int number = 1;
    while (taken("Event " + std::to_string(number))) {
        ++number;
    }
    Rows().push_back(Row{"Event " + std::to_string(number), {}});
    return Count() - 1;
}

bool EventEditing::Remove(int row, aurel::Prompt& prompt) {
    const std::string name = Name(row);
    if (!NameUsedElsewhere(name)) {
        Rows().erase(Rows().begin() + row);
        return true;
    }
    const int answer = prompt.Ask({.title = "Confirm",
                                   .text = "This event is triggered from other frames. Deleting will remove "
                                           "it from them all.",
                                   .buttons = aurel::PromptButtons::OkCancel,
                                   .icon = aurel::PromptIcon::Question,
                                   .labels = {}});
    if (answer != aurel::kAnswerOk) {
        return false;
    }
    for (Frame& rows : frames_) {
        std::erase_if(rows, [&](const Row& each) { return each.name == name; });
    }
    return true;
}

void EventEditing::SetName(int row, const std::string& name) {
    Rows()[static_cast<std::size_t>(row)].name = name;
}

void EventEditing::SetVar(int row, int var, const std::string& text) {
    Rows()[static_cast<std::size_t>(row)].vars[static_cast<std::size_t>(var)] = text;
}

EventDefinitions EventEditing::Definitions() const {
    EventDefinitions definitions;
    std::vector<std::string> names;
    for (std::size_t f = 0; f < keyCount_; ++f) {
        const Frame& rows = frames_[f];
        const auto first = static_cast<std::int32_t>(definitions.events.size());
        for (const Row& row : rows) {
            WirrelEvent event;
            const auto known = std::find(names.begin(), names.end(), row.name);
            event.name = static_cast<std::uint32_t>(known - names.begin());
            if (known == names.end()) {
                names.push_back(row.name);
            }
            for (int var = 0; var < kVarCount; ++var) {
                const std::string& text = row.vars[static_cast<std::size_t>(var)];
                std::int32_t integer = 0;
                float real = 0.0f;
                std::uint32_t& bits = event.vars[static_cast<std::size_t>(var)];
                if (ParseInt(text, integer)) {
                    event.types |= kTypeInt << (var * 2);
                    bits = std::bit_cast<std::uint32_t>(integer);
                } else if (ParseFloat(text, real)) {
                    event.types |= kTypeFloat << (var * 2);
                    bits = std::bit_cast<std::uint32_t>(real);
                }
            }
            definitions.events.push_back(event);
        }
        const auto count = static_cast<std::int32_t>(rows.size());
        definitions.spans.emplace_back(count == 0 ? -1 : first, count);
    }
    for (const std::string& name : names) {
        definitions.names.push_back(MakeName(name));
    }
    return definitions;
}

}  // namespace kovra
