// kovra-cli: the headless tool over the document core. Each subcommand prints one clear line on stderr
// and exits 1 when it can't do its work; an unknown subcommand prints the usage and exits 2.

#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "cli/doc_commands.h"
#include "cli/pose_commands.h"
#include "settings/folders.h"
#include "settings/lang.h"

namespace {

constexpr const char* kUsage =
    "usage: kovra-cli <command> [arguments]\n"
    "\n"
    "commands:\n"
    "  --version        print the version\n"
    "  help             print this text\n"
    "  new OUT          save a new document to OUT\n"
    "  dump FILE        print everything FILE holds as one JSON object\n"
    "  resave IN OUT    load IN and save it to OUT, image paths made relative to OUT\n"
    "  check FILE       exit 0 when FILE loads, 1 with the reason otherwise\n"
    "  pose FILE ANIM FRAMEPOS\n"
    "                   print the world positions of the pins of ANIM at FRAMEPOS (2.25: a quarter of\n"
    "                   the way from key frame 2 to 3)\n"
    "  ik FILE ANIM FRAME PIN X Y [--lock PIN]... [--rotate-children]\n"
    "                   drag pin PIN of key frame FRAME to (X, Y) with inverse kinematics, the locked pins\n"
    "                   held, and print the result and the pins\n";

struct Subcommand {
    std::string_view name;
    std::size_t argumentCount;
    bool takesOptions;  // more arguments may follow the fixed ones
    const char* arguments;
    int (*run)(const std::vector<std::string>&);
};

constexpr Subcommand kSubcommands[] = {
    {"new", 1, false, "OUT", kovra::cli::RunNew},
    {"dump", 1, false, "FILE", kovra::cli::RunDump},
    {"resave", 2, false, "IN OUT", kovra::cli::RunResave},
    {"check", 1, false, "FILE", kovra::cli::RunCheck},
    {"pose", 3, false, "FILE ANIM FRAMEPOS", kovra::cli::RunPose},
    {"ik", 6, true, "FILE ANIM FRAME PIN X Y [--lock PIN]... [--rotate-children]", kovra::cli::RunIk},
};

}  // namespace

int main(int argc, char** argv) {
    const std::string_view command = argc > 1 ? argv[1] : "";
    if (command == "--version") {
        std::printf("kovra-cli %s\n", KOVRA_VERSION);
        return 0;
    }
    if (command == "help" || command == "--help") {
        std::fputs(kUsage, stdout);
        return 0;
    }
    for (const Subcommand& subcommand : kSubcommands) {
        if (subcommand.name != command) {
            continue;
        }
        const std::vector<std::string> args(argv + 2, argv + argc);
        if (subcommand.takesOptions ? args.size() < subcommand.argumentCount
                                    : args.size() != subcommand.argumentCount) {
            std::fprintf(stderr, "usage: kovra-cli %s %s\n", argv[1], subcommand.arguments);
            return 2;
        }
        // The documents' words (the name of a new animation, the messages of a save) are English here.
        const std::string language = aurel::ProgramFolder() + "Lang/English.txt";
        if (!aurel::LoadLanguageFile(language)) {
            std::fprintf(stderr, "kovra-cli: cannot read the language file %s\n", language.c_str());
            return 1;
        }
        return subcommand.run(args);
    }
    std::fputs(kUsage, stderr);
    return 2;
}
