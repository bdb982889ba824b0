#pragma once
// What the event editor edits, without a window: the events of one key frame, each a name and six
// variables typed by their text, over a working copy of the document's event definitions. Nothing
// reaches the document until the definitions are handed to a command.

#include <array>
#include <string>
#include <vector>

#include "base/prompt.h"
#include "commands/editor_commands.h"
#include "doc/wirrel.h"

namespace kovra {

enum class VarKind { None, Int, Float, Invalid };

// How a variable's text reads: an integer first, then a float; empty text is no variable.
VarKind KindOfVarText(const std::string& text);

// The grid's label of variable `number` (from 1) holding `text`: "Var 3 (int)", "Var 4" when empty.
std::string VarRowLabel(int number, const std::string& text);

class EventEditing {
public:
    static constexpr int kVarCount = 6;

    // The events of key frame `frame` of animation `anim`.
    EventEditing(const Wirrel& wirrel, int anim, int frame);

    int Count() const { return static_cast<int>(Rows().size()); }
    const std::string& Name(int row) const { return Rows()[static_cast<std::size_t>(row)].name; }
    const std::string& Var(int row, int var) const {
        return Rows()[static_cast<std::size_t>(row)].vars[static_cast<std::size_t>(var)];
    }

    // Appends an event to the frame under a name that no event carries yet; answers its row.
    int Add();
    // Removes the row's event. When key frames other than this one trigger an event of that name, asks
    // first, and on OK takes every event of that name from every frame; false when nothing was removed.
    bool Remove(int row, aurel::Prompt& prompt);
    void SetName(int row, const std::string& name);
    void SetVar(int row, int var, const std::string& text);

    // The definitions as the command takes them: the frames' events in the order of animations and then
    // key frames, the names that some event still uses.
    EventDefinitions Definitions() const;

private:
    struct Row {
        std::string name;
        std::array<std::string, kVarCount> vars;
    };
    using Frame = std::vector<Row>;

    const Frame& Rows() const { return frames_[current_]; }
    Frame& Rows() { return frames_[current_]; }
    bool NameUsedElsewhere(const std::string& name) const;

    std::vector<Frame> frames_;  // every key frame of every animation, in order
    std::size_t keyCount_ = 0;
    std::size_t current_ = 0;
};

}  // namespace kovra
