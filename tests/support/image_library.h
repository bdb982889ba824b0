#pragma once
// Starts the image library once for the whole test program, as the editor does at start-up; tests that
// load or save pictures call it first.

namespace kovra::test {

void StartImageLibrary();

}  // namespace kovra::test
