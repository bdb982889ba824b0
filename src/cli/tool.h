#pragma once
// kovra-cli's command line: the subcommands, their parsing, and the one place where every failure becomes
// one line on stderr. Exit codes: 0 done, 1 the work failed, 2 the command line is wrong.

namespace kovra::cli {

int RunTool(int argc, char** argv);

}  // namespace kovra::cli
