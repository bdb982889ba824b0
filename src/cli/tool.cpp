#include "cli/tool.h"

#include <iostream>
#include <memory>
#include <new>
#include <vector>

#include "cli/subcommand.h"
#include "settings/folders.h"
#include "settings/lang.h"

namespace kovra::cli {

namespace {

constexpr AddSubcommand kSubcommands[] = {AddNew, AddDump,   AddResave, AddCheck, AddPose,
                                          AddIk,  AddDetect, AddImport, AddPack,  AddRender};

// The subcommand the parser reached, or the tool itself.
const CLI::App& Selected(const CLI::App& tool) {
    const std::vector<CLI::App*> reached = tool.get_subcommands();
    return reached.empty() ? tool : *reached.front();
}

// The tool's own help: its options and the list of subcommands.
std::string ToolHelp(const CLI::App& tool, const CLI::Formatter& formatter) {
    return formatter.make_help(&tool, tool.get_name(), CLI::AppFormatMode::Normal);
}

int Refuse(const CLI::App& tool, const CLI::ParseError& error, const CLI::Formatter& formatter,
           const char* first) {
    const CLI::App& selected = Selected(tool);
    if (&selected != &tool) {
        std::cerr << "kovra-cli: " << error.what() << "\n"
                  << formatter.make_usage(&selected, "kovra-cli " + selected.get_name());
    } else if (first != nullptr && first[0] != '-') {
        std::cerr << "kovra-cli: unknown command " << first << "\n" << ToolHelp(tool, formatter);
    } else {
        std::cerr << "kovra-cli: " << error.what() << "\n" << ToolHelp(tool, formatter);
    }
    return 2;
}

int ParseAndRun(int argc, char** argv) {
    CLI::App tool("", "kovra-cli");
    const auto formatter = std::make_shared<CLI::Formatter>();
    formatter->label("Usage", "usage");
    tool.formatter(formatter);
    tool.set_version_flag("--version", "kovra-cli " KOVRA_VERSION);
    tool.require_subcommand(1);
    tool.footer("Run kovra-cli COMMAND --help for the arguments of a command.");
    tool.add_subcommand("help", "print this text");

    std::vector<Subcommand> subcommands;
    for (AddSubcommand add : kSubcommands) {
        subcommands.push_back(add(tool));
    }
    try {
        tool.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() != 0) {
            return Refuse(tool, error, *formatter, argc > 1 ? argv[1] : nullptr);
        }
        // Help and version.
        std::cout << (error.get_name() == "CallForVersion" ? std::string(error.what()) + "\n" : tool.help());
        return 0;
    }
    const CLI::App& selected = Selected(tool);
    for (const Subcommand& subcommand : subcommands) {
        if (subcommand.app == &selected) {
            // The documents' words (the name of a new animation, the messages of a save) are English here.
            const std::string language = aurel::ProgramFolder() + "Lang/English.txt";
            if (!aurel::LoadLanguageFile(language)) {
                return Fail("cannot read the language file " + language);
            }
            return subcommand.run();
        }
    }
    std::cout << ToolHelp(tool, *formatter);
    return 0;
}

}  // namespace

int RunTool(int argc, char** argv) {
    try {
        return ParseAndRun(argc, argv);
    } catch (const std::bad_alloc&) {
        return Fail("out of memory");
    } catch (const std::exception& error) {
        return Fail(error.what());
    } catch (...) {
        return Fail("unexpected failure");
    }
}

}  // namespace kovra::cli
