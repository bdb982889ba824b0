#pragma once
// The image library: decoding and encoding of image files, behind a small set of operations so that
// nothing else in the program sees the codec library that does the work.

namespace kovra {

// Starts the library once at program start; it runs on the program's one thread.
void VylLibInit();
// Ends it once at program end.
void VylLibExit();

}  // namespace kovra
