// kovra-cli: the headless tool over the document core.

#include "cli/tool.h"

int main(int argc, char** argv) {
    return kovra::cli::RunTool(argc, argv);
}
