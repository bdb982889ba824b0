// kovra-cli: the headless tool over the document core.

#include <malloc.h>

#include "cli/tool.h"

int main(int argc, char** argv) {
#ifdef M_MMAP_MAX
    // The tool lives for one command. Big pictures come and go during it (the decoder's pixels, the
    // surface, the labels of detection); served from the heap, a freed one is reused by the next instead
    // of being returned to the system and faulted in again page by page.
    mallopt(M_MMAP_MAX, 0);
#endif
    return kovra::cli::RunTool(argc, argv);
}
