#pragma once
// The parts every kovra-cli subcommand is made of. A subcommand lives in its own file as one Add
// function: it adds itself to the tool with its arguments bound to its own values, and answers the work
// to run once the whole command line has been parsed. The work answers the process's exit code: 0 when
// it did its work, 1 after one line on stderr when it couldn't. A command line the parser refuses never
// reaches the work: the tool prints why and the usage, and exits 2.

#include <CLI/CLI.hpp>
#include <functional>
#include <string>

namespace kovra::cli {

// A subcommand added to the tool: its place in the parser and its work.
struct Subcommand {
    const CLI::App* app;
    std::function<int()> run;
};
using AddSubcommand = Subcommand (*)(CLI::App& tool);

// The subcommands, in the order the usage lists them.
Subcommand AddNew(CLI::App& tool);
Subcommand AddDump(CLI::App& tool);
Subcommand AddResave(CLI::App& tool);
Subcommand AddCheck(CLI::App& tool);
Subcommand AddPose(CLI::App& tool);
Subcommand AddIk(CLI::App& tool);
Subcommand AddDetect(CLI::App& tool);
Subcommand AddImport(CLI::App& tool);
Subcommand AddPack(CLI::App& tool);
Subcommand AddRender(CLI::App& tool);

// Numbers on the command line are read in plain decimal, the whole text or nothing: an index is an
// integer of 0 or more, a coordinate any finite number.
bool ParseIndex(const std::string& text, int& value);
bool ParseCoordinate(const std::string& text, float& value);

// Checks for arguments kept as text and read with the functions above.
CLI::Validator IndexText();
CLI::Validator CoordinateText();

// Prints "kovra-cli: message" on stderr and answers 1.
int Fail(const std::string& message);

}  // namespace kovra::cli
