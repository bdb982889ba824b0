// kovra-cli: the headless tool over the document core. Each subcommand prints one clear line on stderr
// and exits 1 when it can't do its work; an unknown subcommand prints the usage and exits 2.

#include <cstdio>
#include <cstring>
#include <string_view>

namespace {

constexpr const char* kUsage =
    "usage: kovra-cli <command> [arguments]\n"
    "\n"
    "commands:\n"
    "  --version        print the version\n"
    "  help             print this text\n";

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
    std::fputs(kUsage, stderr);
    return 2;
}
